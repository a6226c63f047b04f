#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/converter.h"

namespace voxilane {

// Text as it stands in a rich text file, in ASCII.
class TextEscapes {
 public:
  TextEscapes();

  // Whether GBK has two bytes for a unit that everybody reads alike.
  bool isGbk(char16_t unit) { return gbkBytes(unit) != 0; }

  // Appends text[begin, end), characters of GBK as its bytes when `asGbk`, and tells where it got
  // to: one unit behind the end where that would tear a line end apart.
  std::size_t append(std::string& out, std::u16string_view text, std::size_t begin, std::size_t end,
                     bool asGbk);

  // Appends one unit that is no part of a line end.
  void append(std::string& out, char16_t unit, bool asGbk);

 private:
  std::uint16_t gbkBytes(char16_t unit);

  ConverterPointer converter_;
  std::vector<std::uint16_t> gbk_;  // by unit: the two bytes, 0 for none, or not asked yet
};

// Appends a control word, which is given without its backslash, and its number.
void appendControl(std::string& out, std::string_view word, std::int64_t number);

}  // namespace voxilane
