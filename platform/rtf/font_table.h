#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/rtf/code_pages.h"

namespace voxilane {

// The fonts of a file. While it is read, a font goes by its place in this table; 0 is the default
// font, which may become known only later.
class FontTable {
 public:
  explicit FontTable(CodePages& codePages);

  // \ansicpg, \deff. \cocoartf: fonts of no special character set are in the document's code page.
  void setDocumentCodePage(std::int32_t number);
  void setDefault(std::int32_t number);
  void setAnsiIsDocumentCodePage() { ansiIsDocumentCodePage_ = true; }

  // An entry: \f, \fcharset or \cpg, the name and a semicolon, after which the next one begins.
  void beginEntry(std::int32_t number);
  void setCharset(std::int32_t charset);
  void setCodePage(std::int32_t number) { entryCodePage_ = &codePages_.get(number); }
  void addToName(char16_t unit);
  void endEntry();

  // What the bytes of the present entry mean.
  const CodePage& entryCodePage() const { return *entryCodePage_; }

  // The place of a font; that of the default font for a number that the table does not hold.
  std::uint16_t placeOf(std::int32_t number) const;

  const CodePage& codePage(std::uint16_t place) const { return *fonts_[place].codePage; }

  // The index into names().
  std::uint16_t nameIndex(std::uint16_t place) const { return fonts_[place].name; }

  // Names once each, in the order of the file.
  const std::vector<std::u16string>& names() const { return names_; }

  // Whether there are more fonts than an honest file has.
  bool isTooLarge() const { return isTooLarge_; }

 private:
  struct Font {
    std::uint16_t name;
    const CodePage* codePage;
  };

  void setDefaultFont();

  CodePages& codePages_;
  const CodePage* documentCodePage_;
  bool ansiIsDocumentCodePage_ = false;
  std::int32_t defaultNumber_ = 0;
  std::vector<Font> fonts_;
  std::map<std::int32_t, std::uint16_t> places_;  // by number
  std::vector<std::u16string> names_;
  std::map<std::u16string, std::uint16_t> nameIndices_;
  bool isTooLarge_ = false;

  std::optional<std::int32_t> entryNumber_;
  const CodePage* entryCodePage_;
  std::u16string entryName_;
};

}  // namespace voxilane
