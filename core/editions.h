#pragma once

#include <optional>
#include <string>
#include <string_view>

// The three notations of a Yinbiao. The library holds the 13th edition; the others are made on the
// way out by plain replacements in a fixed order. What is no code passes unchanged.

namespace voxilane {

std::string convert13to15(std::string_view text);
std::string convert15to13(std::string_view text);
std::string convert13toKK(std::string_view text);

enum class Edition { fifteenth, thirteenth, kk };

// The edition of a parameter value: "new", "old" or "mei"; nothing for any other.
std::optional<Edition> editionNamed(std::string_view name);

// A stored Yinbiao in an edition, or as it is without one.
std::string inEdition(std::string_view text, std::optional<Edition> edition);

}  // namespace voxilane
