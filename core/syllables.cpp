#include "core/syllables.h"

#include <algorithm>
#include <string>

#include "core/editions.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::u16string_view vowelLetters = u"BCiuQEeRaZAJIG";
constexpr std::u16string_view consonants = u"pbtdkgfvszFVWTNjrhmnwl";
constexpr std::u16string_view syllabicConsonants = u"m和n和l";
constexpr std::u16string_view diphthongs =
    u"iE和ZE和uE和Ci和eE和JE和CI和Eu和ai和ei和au和Ej和aJ和aI和eI和aJ";

bool isOneOf(std::u16string_view set, char16_t letter) {
  return set.find(letter) != std::u16string_view::npos;
}

int countVowelLetters(std::u16string_view s) {
  return static_cast<int>(
      std::count_if(s.begin(), s.end(), [](char16_t c) { return isOneOf(vowelLetters, c); }));
}

int countSyllabicConsonants(std::u16string_view s) {
  if (s.size() <= 3) {
    return 0;
  }
  const bool first = isOneOf(syllabicConsonants, s[0]) && isOneOf(consonants, s[1]);
  const bool last = isOneOf(syllabicConsonants, s.back()) && isOneOf(consonants, s[s.size() - 2]);
  return (first ? 1 : 0) + (last ? 1 : 0);
}

int countDiphthongs(std::u16string_view s) {
  int count = 0;
  for (std::size_t i = 0; i + 1 < s.size(); ++i) {
    if (diphthongs.find(s.substr(i, 2)) != std::u16string_view::npos) {
      ++count;
      i += 2;  // the letter behind the pair begins no pair of its own
    }
  }
  return count;
}

}  // namespace

int getYinjieCount(std::string_view text) {
  const std::u16string s = toUtf16(convert15to13(trimBlanks(text)));
  return countVowelLetters(s) + countSyllabicConsonants(s) - countDiphthongs(s);
}

}  // namespace voxilane
