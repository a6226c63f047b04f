#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace voxilane {

// Gives all line ends (CR LF, LF, CR) one form, in a text that comes in parts.
class LineEndNormaliser {
 public:
  explicit LineEndNormaliser(std::u16string_view lineEnd) : lineEnd_(lineEnd) {}

  void append(std::u16string& out, std::u16string_view part) {
    if (part.empty()) {
      return;
    }
    if (afterReturn_ && part.front() == u'\n') {
      part.remove_prefix(1);
    }
    afterReturn_ = false;
    while (!part.empty()) {
      const auto* const end = std::find_if(part.begin(), part.end(),
                                           [](char16_t c) { return c == u'\r' || c == u'\n'; });
      out.append(part.begin(), end);
      part.remove_prefix(static_cast<std::size_t>(end - part.begin()));
      takeLineEnd(out, part);
    }
  }

 private:
  void takeLineEnd(std::u16string& out, std::u16string_view& part) {
    if (part.empty()) {
      return;
    }
    out += lineEnd_;
    afterReturn_ = part == u"\r";
    part.remove_prefix(part.substr(0, 2) == u"\r\n" ? 2 : 1);
  }

  std::u16string_view lineEnd_;
  bool afterReturn_ = false;
};

}  // namespace voxilane
