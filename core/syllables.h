#pragma once

#include <string_view>

namespace voxilane {

// The number of syllables of a Yinbiao of either British edition, counted on letters alone: vowel
// letters, plus a syllabic consonant at either end, less one a diphthong. 0 without a vowel letter.
int getYinjieCount(std::string_view text);

}  // namespace voxilane
