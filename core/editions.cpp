#include "core/editions.h"

#include <array>

#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::array<Replacement, 5> steps15to13{{
    {"I", "i"},
    {"J", "u"},
    {"2", "R"},
    {"3:", "E:"},
    {"eE", "ZE"},
}};

// A short vowel moves first and takes the long one with it; the next step brings the long one
// back. `U` and `2` are the stepping stones.
constexpr std::array<Replacement, 12> steps13to15{{
    {"u", "U"},
    {"U:", "u:"},
    {"U", "J"},
    {"E:", "3:"},
    {"i", "I"},
    {"I:", "i:"},
    {"R", "2"},
    {"2:", "R:"},
    {"ZE", "eE"},
    {"C", "2"},
    {"2I", "CI"},
    {"2:", "C:"},
}};

// Long vowels and two diphthongs are parked under Chinese characters, which no Yinbiao holds, while
// the short vowels take over their letters.
constexpr std::array<Replacement, 25> steps13toKK{{
    {"i:", "我"},  {"E:", "们"}, {"R:", "爱"}, {"C:", "爱"}, {"u:", "英"},
    {"B:", "语"},  {"Ci", "音"}, {"Ri", "音"}, {"ei", "标"}, {"iE", "Ir"},
    {"ZE:", "Zr"}, {"uE", "ur"}, {"Eu", "o"},  {"C", "B"},   {"R", "B"},
    {"i", "I"},    {"u", "J"},   {"e", "Z"},   {"我", "i"},  {"们", "3"},
    {"爱", "C"},   {"英", "u"},  {"语", "B"},  {"音", "CI"}, {"标", "e"},
}};

template <std::size_t count>
std::string replacedInOrder(std::string_view text, const std::array<Replacement, count>& steps) {
  std::string out(text);
  for (const Replacement& step : steps) {
    replaceAll(out, step);
  }
  return out;
}

}  // namespace

std::string convert13to15(std::string_view text) { return replacedInOrder(text, steps13to15); }
std::string convert15to13(std::string_view text) { return replacedInOrder(text, steps15to13); }
std::string convert13toKK(std::string_view text) { return replacedInOrder(text, steps13toKK); }

std::optional<Edition> editionNamed(std::string_view name) {
  if (name == "new") return Edition::fifteenth;
  if (name == "old") return Edition::thirteenth;
  if (name == "mei") return Edition::kk;
  return std::nullopt;
}

std::string inEdition(std::string_view text, std::optional<Edition> edition) {
  if (!edition) {
    return std::string(text);
  }
  switch (*edition) {
    case Edition::fifteenth:
      return convert13to15(text);
    case Edition::thirteenth:
      return convert15to13(text);
    case Edition::kk:
      return convert13toKK(text);
  }
  return std::string(text);
}

}  // namespace voxilane
