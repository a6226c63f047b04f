#pragma once

#include <string>
#include <string_view>

namespace voxilane {

// Gives all line ends (CR LF, LF, CR) one form, in a text that comes in parts.
class LineEndNormaliser {
 public:
  explicit LineEndNormaliser(std::u16string_view lineEnd) : lineEnd_(lineEnd) {}

  void append(std::u16string& out, std::u16string_view part) {
    out.reserve(out.size() + part.size());
    for (const char16_t c : part) {
      const bool secondHalf = c == u'\n' && afterReturn_;
      afterReturn_ = c == u'\r';
      if (c != u'\r' && c != u'\n') {
        out += c;
      } else if (!secondHalf) {
        out += lineEnd_;
      }
    }
  }

 private:
  std::u16string_view lineEnd_;
  bool afterReturn_ = false;
};

}  // namespace voxilane
