#include "platform/rtf/text_escapes.h"

#include <array>
#include <charconv>

namespace voxilane {
namespace {

constexpr std::uint16_t notAsked = 0xFFFF;  // no character: 0xFF begins none

bool isPrivateUse(char16_t unit) { return unit >= 0xE000 && unit < 0xF900; }

void appendHex(std::string& out, unsigned byte) {
  constexpr std::string_view digits = "0123456789abcdef";
  out += "\\'";
  out += digits[byte >> 4];
  out += digits[byte & 0xF];
}

}  // namespace

TextEscapes::TextEscapes() : converter_(openConverter("GBK")), gbk_(0x10000, notAsked) {}

std::uint16_t TextEscapes::gbkBytes(char16_t unit) {
  std::uint16_t& known = gbk_[unit];
  if (known == notAsked) {
    std::array<char, 8> bytes;
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t count =
        ucnv_fromUChars(converter_.get(), bytes.data(), bytes.size(), &unit, 1, &status);
    // What is for private use in GBK has become characters in GB18030, with the same bytes.
    const bool isCommon = U_SUCCESS(status) && count == 2 && !isPrivateUse(unit);
    known = isCommon ? static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[0]) << 8 |
                                                  static_cast<unsigned char>(bytes[1]))
                     : 0;
  }
  return known;
}

void TextEscapes::append(std::string& out, char16_t unit, bool asGbk) {
  if (unit >= u' ' && unit <= u'~') {
    if (unit == u'\\' || unit == u'{' || unit == u'}') {
      out += '\\';
    }
    out += static_cast<char>(unit);
  } else if (unit == u'\t') {
    out += "\\tab ";
  } else if (unit == u'\v' || unit == u'\r' || unit == u'\n') {
    // Halves of line ends stand in no good document; word processors take them for their own marks.
    out += "\\line ";
  } else if (asGbk && isGbk(unit)) {
    appendHex(out, gbkBytes(unit) >> 8);
    appendHex(out, gbkBytes(unit) & 0xFF);
  } else {
    // The number is one of 16 bits with a sign; the mark is for readers that do not know the word.
    appendControl(out, "u", static_cast<std::int16_t>(unit));
    out += '?';
  }
}

std::size_t TextEscapes::append(std::string& out, std::u16string_view text, std::size_t begin,
                                std::size_t end, bool asGbk) {
  std::size_t at = begin;
  while (at < end) {
    if (text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n') {
      out += "\\par\r\n";
      at += 2;
    } else {
      append(out, text[at], asGbk);
      ++at;
    }
  }
  return at;
}

void appendControl(std::string& out, std::string_view word, std::int64_t number) {
  std::array<char, 20> digits;
  char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  out += '\\';
  out += word;
  out.append(digits.data(), end);
}

}  // namespace voxilane
