#pragma once

#include <string>
#include <string_view>

#include "platform/result.h"

namespace voxilane {

// A transcription as people give it, in the form in which the library stores it: font codes of the
// 13th edition that keep to the rules of the notation. Takes font codes of the 13th edition, or IPA
// (UTF-8) of the 13th or the 15th, told apart by itself; blanks at the ends do not count. Or why it
// cannot be stored.
Result<std::string> storableYinbiao(std::string_view text);

}  // namespace voxilane
