#include "core/suffix_sounds.h"

#include <algorithm>
#include <array>
#include <utility>

namespace voxilane {
namespace {

using EndingSound = std::pair<std::string_view, std::string_view>;

constexpr std::array<EndingSound, 10> twoLetterSounds{{
    {"er", "E"},
    {"ar", "E"},
    {"or", "E"},
    {"ly", "lI"},
    {"ic", "Ik"},
    {"th", "W"},
    {"st", "st"},
    {"ee", "5i:"},
    {"ty", "tI"},
    {"ry", "rI"},
}};

constexpr std::array<EndingSound, 29> threeLetterSounds{{
    {"ing", "IN"},   {"ism", "IzEm"}, {"ate", "(e)It"}, {"age", "IdV"},  {"ant", "eInt"},
    {"ent", "eInt"}, {"ary", "eErI"}, {"dom", "dEm"},   {"ean", "i:n"},  {"eer", "IE"},
    {"ery", "eErI"}, {"ese", "i:z"},  {"est", "Ist"},   {"ful", "fEl"},  {"ial", "El"},
    {"ian", "IEn"},  {"ics", "Iks"},  {"ify", "IfaI"},  {"ise", "aIz"},  {"ish", "IF"},
    {"ite", "aIt"},  {"ity", "ItI"},  {"ive", "aIv"},   {"ize", "aIz"},  {"let", "lIt"},
    {"ory", "CrI"},  {"ous", "Es"},   {"ure", "Er"},    {"ule", "ju:l"},
}};

// The four endings with a trailing blank equal no four letters: stems of -logy, -ship, -some and
// -ward words come back bare, as transcriptions made so far have them.
constexpr std::array<EndingSound, 18> fourLetterSounds{{
    {"able", "Ebl"},
    {"ible", "Ebl"},
    {"ance", "Ens"},
    {"ence", "Ens"},
    {"ator", "eItE"},
    {"cide", "sId"},
    {"ette", "it"},
    {"fold", "fEUld"},
    {"hood", "hU:d"},
    {"less", "lIs"},
    {"like", "laIk"},
    {"ment", "mEnt"},
    {"most", "mEUst"},
    {"ness", "nIs"},
    {"logy ", "lEdVI"},
    {"ship ", "FIp"},
    {"some ", "sEm"},
    {"ward ", "wEd"},
}};

constexpr std::array<EndingSound, 8> fiveLetterSounds{{
    {"arian", "Ern"},
    {"ation", "5eIFEn"},
    {"ative", "eItIv"},
    {"cracy", "kreIsI"},
    {"esque", "esk"},
    {"ology", "ClEdVI"},
    {"phile", "faIl"},
    {"wards", "wEdz"},
}};

template <std::size_t size>
std::string_view soundIn(const std::array<EndingSound, size>& table, std::string_view ending) {
  const auto* const found = std::find_if(
      table.begin(), table.end(), [&](const EndingSound& row) { return row.first == ending; });
  return found == table.end() ? std::string_view() : found->second;
}

bool isOneOf(std::string_view codes, char code) {
  return codes.find(code) != std::string_view::npos;
}

}  // namespace

std::string_view soundOfEs(std::string_view /*ending*/, char lastCode) {
  if (isOneOf("ptkfhlW", lastCode)) return "s";
  if (isOneOf("szFV", lastCode)) return "iz";
  return "z";
}

std::string_view soundOfSingleLetter(std::string_view ending, char lastCode) {
  if (ending == "s") return soundOfEs(ending, lastCode);
  // `t` is asked first: only a stem in `d` gets a syllable of its own.
  if (isOneOf("ptkfshlW", lastCode)) return "t";
  if (lastCode == 'd') return "id";
  return "d";
}

std::string_view soundOfEd(std::string_view /*ending*/, char lastCode) {
  if (isOneOf("td", lastCode)) return "Id";
  if (isOneOf("pkfshlW", lastCode)) return "t";
  return "d";
}

std::string_view soundOfTwoLetters(std::string_view ending, char lastCode) {
  if (ending == "ed") return soundOfEd(ending, lastCode);
  if (ending == "es") return soundOfEs(ending, lastCode);
  return soundIn(twoLetterSounds, ending);
}

std::string_view soundOfThreeLetters(std::string_view ending, char /*lastCode*/) {
  return soundIn(threeLetterSounds, ending);
}

std::string_view soundOfIng(std::string_view /*ending*/, char /*lastCode*/) { return "iN"; }

std::string_view soundOfFourLetters(std::string_view ending, char /*lastCode*/) {
  return soundIn(fourLetterSounds, ending);
}

std::string_view soundOfFiveLetters(std::string_view ending, char /*lastCode*/) {
  return soundIn(fiveLetterSounds, ending);
}

}  // namespace voxilane
