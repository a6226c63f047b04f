#pragma once

#include <string>
#include <string_view>

namespace voxilane {

// What stands in front of and behind a transcription.
struct Brackets {
  std::string left = " ";
  std::string right = " ";
};

// The brackets of a style: "/" broad, "[" narrow, anything else a blank on each side.
inline Brackets bracketsOfStyle(std::string_view style) {
  if (style == "/") return {"/", "/"};
  if (style == "[") return {"[", "]"};
  return {};
}

}  // namespace voxilane
