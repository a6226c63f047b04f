#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text/converter.h"

namespace voxilane {

// What the bytes of a text mean: a code page of Windows.
class CodePage {
 public:
  // By ICU's name.
  explicit CodePage(const char* name);

  // Whether a byte is the first of a character of two.
  bool isLead(unsigned char byte) const { return leads_[byte] != 0; }

  // Appends characters. Bytes that are none become U+FFFD.
  void decode(std::string_view bytes, std::u16string& out) const;

 private:
  std::size_t sizeUntilEuro(std::string_view bytes) const;
  void decodeWithConverter(std::string_view bytes, std::u16string& out) const;

  ConverterPointer converter_;
  std::array<UBool, 256> leads_{};
  bool isGbk_;
  bool isOneByte_;
  std::array<char16_t, 256> singles_{};  // when isOneByte_
};

// All code pages that a file uses.
class CodePages {
 public:
  // By its number; that of Western Europe when nobody knows the number. Lives as long as this.
  const CodePage& get(std::int32_t number);

 private:
  std::map<std::int32_t, CodePage> pages_;
};

// The code page of a font's \fcharset; none where that is the one of the document.
std::optional<std::int32_t> codePageOfCharset(std::int32_t charset);

}  // namespace voxilane
