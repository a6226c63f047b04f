#include "core/notation.h"

#include <array>

namespace voxilane {
namespace {

struct CodeMapping {
  char code;
  std::string_view unicode;
  std::string_view entity;
};

// `2` is the turned a, U+0250, in both mappings: documents made so far hold it.
constexpr std::array<CodeMapping, 17> codeMappings{{
    {'5', "\u02C8", "'"},
    {'7', "\u02CC", "."},
    {'2', "\u0250", "&#592;"},
    {'3', "\u025C", "&#604;"},
    {'A', "\u00E6", "&#230;"},
    {'T', "\u00F0", "&#240;"},
    {'N', "\u014B", "&#331;"},
    {'B', "\u0251", "&#593;"},
    {'C', "\u0254", "&#596;"},
    {'E', "\u0259", "&#601;"},
    {'Z', "\u025B", "&#603;"},
    {'I', "\u026A", "&#618;"},
    {'F', "\u0283", "&#643;"},
    {'J', "\u028A", "&#650;"},
    {'Q', "\u028C", "&#652;"},
    {'V', "\u0292", "&#658;"},
    {'W', "\u03B8", "&#952;"},
}};

// One pass over the codes: no replacement text holds a code that a later replacement would find,
// since the digits go before the entities that contain them.
std::string mapCodes(std::string_view yinbiao, std::string_view CodeMapping::*target) {
  std::string out;
  for (const char c : yinbiao) {
    std::string_view mapped(&c, 1);
    for (const CodeMapping& mapping : codeMappings) {
      if (mapping.code == c) {
        mapped = mapping.*target;
        break;
      }
    }
    out += mapped;
  }
  return out;
}

constexpr std::string_view consonants = "pbtdkgfvszFVWThmnNwjrl";
constexpr std::string_view freeVowels = "ieAQRuE";
constexpr std::string_view longVowels = "iBaRCuE";

// Codes that stand only in front of certain others: the first halves of long vowels and
// diphthongs.
constexpr std::array<std::pair<char, std::string_view>, 4> boundVowels{
    {{'B', ":"}, {'a', ":iu"}, {'C', ":i"}, {'Z', "E"}}};

bool holds(std::string_view set, char c) { return set.find(c) != std::string_view::npos; }

std::optional<std::string> codeFault(std::string_view yinbiao, std::size_t at) {
  const char code = yinbiao[at];
  const char next = at + 1 < yinbiao.size() ? yinbiao[at + 1] : '\0';
  if (holds("57", code)) {
    if (next == '\0' || holds("57:", next)) return "a stress mark with no syllable behind it";
    return std::nullopt;
  }
  if (code == ':') {
    if (at == 0 || !holds(longVowels, yinbiao[at - 1])) return "a length mark behind no long vowel";
    return std::nullopt;
  }
  for (const auto& [vowel, followers] : boundVowels) {
    if (code == vowel) {
      if (next != '\0' && holds(followers, next)) return std::nullopt;
      return std::string("half of a vowel: ") + code;
    }
  }
  if (!holds(consonants, code) && !holds(freeVowels, code)) {
    return "not a code of the 13th edition: " + std::string(1, code);
  }
  return std::nullopt;
}

}  // namespace

std::string codeToUnicode(std::string_view yinbiao) {
  return mapCodes(yinbiao, &CodeMapping::unicode);
}

std::string codeToEntities(std::string_view yinbiao) {
  return mapCodes(yinbiao, &CodeMapping::entity);
}

std::optional<std::string> notationFault(std::string_view yinbiao) {
  if (yinbiao.empty()) {
    return "empty";
  }
  bool stressed = false;
  for (std::size_t at = 0; at < yinbiao.size(); ++at) {
    if (auto fault = codeFault(yinbiao, at)) {
      return fault;
    }
    if (yinbiao[at] == '5') {
      if (stressed) return "two primary stresses";
      stressed = true;
    }
  }
  return std::nullopt;
}

}  // namespace voxilane
