#pragma once

#include <optional>
#include <string_view>

namespace voxilane {

// The value of a number as people write it: blanks around, a sign, digits with commas between, a
// fraction, an exponent. Nothing for any other text and for a value out of range.
std::optional<double> parseNumber(std::string_view text);

}  // namespace voxilane
