#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"
#include "platform/rtf/code_pages.h"
#include "platform/rtf/colour_table.h"
#include "platform/rtf/control_words.h"
#include "platform/rtf/document_builder.h"
#include "platform/rtf/font_table.h"
#include "platform/rtf/group.h"
#include "platform/rtf/rtf.h"
#include "platform/rtf/tokenizer.h"

namespace voxilane {

// Reads one file. The public operations but read() are what control words do.
class RtfReader {
 public:
  explicit RtfReader(std::string_view source);

  Result<RtfReading> read();

  RtfGroup& group() { return groups_.back(); }
  FontTable& fonts() { return fonts_; }
  ColourTable& colours() { return colours_; }
  PageFormat& page() { return page_; }

  // The control word directly ahead of the present one.
  std::string_view previousWord() const { return previousWord_; }

  // A UTF-16 unit of the text.
  void put(char16_t unit);

  // \u, which stands ahead of characters for readers that do not know it.
  void putWithFallback(std::int32_t number);

  void endParagraph();
  void endCell();
  void endRow();

  // Ends a line in which there is something, as a page break does.
  void breakLine();

  // Leaves the group out and keeps that for the user.
  void leaveOut(LeftOut kind);

  void beginFieldInstruction();
  void skipBinary(std::int32_t bytes);

 private:
  void take(const RtfToken& token);
  void beginGroup();
  void endGroup();
  void takeWord(const RtfToken& token, bool isStarred);
  void takeSymbol(char symbol);
  void takeEscape(unsigned char byte);
  void takeText(std::string_view text);

  // Whether what comes next stands in for a \u.
  bool skipsFallback();

  const CodePage& codePage();
  void addByte(unsigned char byte);
  void endBytes();

  template <typename Unit>
  void putText(std::basic_string_view<Unit> text, const CharacterFormat& format);
  void putElsewhere(char16_t unit);

  void noteLeftOut(LeftOut kind);
  void noteFormula();

  bool isWritten() { return group().destination != RtfDestination::nowhere; }
  bool writesBody() { return group().destination == RtfDestination::body && !group().isHidden; }
  CharacterFormat shown(CharacterFormat format) const;
  ParagraphFormat paragraph();
  RtfReading finish();

  RtfTokenizer tokenizer_;
  CodePages codePages_;
  FontTable fonts_;
  ColourTable colours_;
  PageFormat page_;
  DocumentBuilder builder_;
  std::vector<LeftOut> leftOut_;
  std::vector<RtfGroup> groups_;  // the first one is around the file

  bool isStarred_ = false;  // \*: a word that nobody knows makes its group one to leave out
  std::string_view word_;   // when the last token was one
  std::string_view previousWord_;
  std::int32_t fallbackLeft_ = 0;

  // Bytes of characters that are not ASCII, in one code page.
  std::string bytes_;
  const CodePage* bytesCodePage_ = nullptr;
  bool leadIsOpen_ = false;  // the last byte wants a second one

  std::u16string generator_;
  std::u16string fieldInstruction_;
};

}  // namespace voxilane
