#pragma once

#include <string>
#include <string_view>

namespace voxilane {

// A gloss for reading in a text: the first senses of the first lines, without subject labels, at
// most about 30 characters, without "|" and line ends. `gloss` is UTF-8 with line ends.
std::string shortGloss(std::string_view gloss);

}  // namespace voxilane
