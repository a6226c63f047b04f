#pragma once

#include <string_view>

// The sounds that the word-form rules put behind a stem. Each function takes the letters of the
// ending and the last code of the stem's Yinbiao, and gives the codes to append: empty for an
// ending without a line of its own. The sets of end sounds are the system's, not phonology's: `l`
// and `h` count as voiceless.

namespace voxilane {

using SuffixSound = std::string_view (*)(std::string_view ending, char lastCode);

std::string_view soundOfSingleLetter(std::string_view ending, char lastCode);  // -s, -d
std::string_view soundOfTwoLetters(std::string_view ending, char lastCode);
std::string_view soundOfEd(std::string_view ending, char lastCode);
std::string_view soundOfEs(std::string_view ending, char lastCode);
std::string_view soundOfThreeLetters(std::string_view ending, char lastCode);
std::string_view soundOfIng(std::string_view ending, char lastCode);
std::string_view soundOfFourLetters(std::string_view ending, char lastCode);
std::string_view soundOfFiveLetters(std::string_view ending, char lastCode);

}  // namespace voxilane
