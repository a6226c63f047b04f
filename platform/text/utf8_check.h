#pragma once

#include <string>
#include <string_view>

namespace voxilane {

// Whether bytes that come in parts are UTF-8; a character may be split between two parts.
class Utf8Check {
 public:
  void add(std::string_view part);

  // Nothing wrong so far; the last character may be incomplete.
  bool valid() const { return valid_; }

  // Nothing wrong, and no character cut off at the end.
  bool complete() const { return valid_ && pending_.empty(); }

 private:
  bool valid_ = true;
  std::string pending_;  // the beginning of a character
};

}  // namespace voxilane
