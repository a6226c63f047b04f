#include "core/ipa.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::array<std::pair<unsigned char, std::string_view>, 20> symbols{{
    {'5', "ˈ"}, {'7', "ˌ"}, {':', "ː"}, {'I', "ɪ"}, {'Z', "ɛ"}, {'A', "æ"}, {'B', "ɑ"},
    {'C', "ɔ"}, {'R', "ɔ"}, {'2', "ɒ"}, {'Q', "ʌ"}, {'E', "ə"}, {'3', "ɜ"}, {'J', "ʊ"},
    {'U', "ʊ"}, {'F', "ʃ"}, {'V', "ʒ"}, {'W', "θ"}, {'T', "ð"}, {'N', "ŋ"},
}};

// A symbol as it is written: two bytes of UTF-8, of which a plain character uses one.
struct Symbol {
  std::array<char, 2> bytes;
  std::uint8_t size;
};

// The symbol of each byte, itself where it is no code.
constexpr auto symbolByCode = [] {
  std::array<Symbol, 256> table{};
  for (std::size_t code = 0; code < table.size(); ++code) {
    table[code] = {{static_cast<char>(code), '\0'}, 1};
  }
  for (const auto& [code, symbol] : symbols) {
    table[code] = {{symbol[0], symbol[1]}, 2};
  }
  return table;
}();

// Spellings of people to codes; a longer one stands before a shorter one that it begins with.
constexpr std::array<Replacement, 72> spellings{{
    {"ɔ\u0361ɪ", "CI"},
    {"ɔ\u035Cɪ", "CI"},
    {"ɔ\u0361i", "Ci"},
    {"ɔ\u035Ci", "Ci"},
    {"o\u0361ʊ", "EJ"},
    {"o\u035Cʊ", "EJ"},
    {"ɔː", "C:"},
    {"ɔ:", "C:"},
    {"ɔɪ", "CI"},
    {"ɔi", "Ci"},
    {"oʊ", "EJ"},
    {"ɔ", "R"},
    {"ˈ", "5"},
    {"'", "5"},
    {"\u2019", "5"},
    {"ˌ", "7"},
    {"ː", ":"},
    {":", ":"},
    {"ɪ", "I"},
    {"ɛ", "Z"},
    {"æ", "A"},
    {"ɑ", "B"},
    {"ɒ", "2"},
    {"ɐ", "2"},
    {"ʌ", "Q"},
    {"ə", "E"},
    {"ɚ", "Er"},
    {"ɝ", "3r"},
    {"ɜ", "3"},
    {"ʊ", "J"},
    {"ʧ", "tF"},
    {"ʤ", "dV"},
    {"ʦ", "ts"},
    {"ʣ", "dz"},
    {"ʃ", "F"},
    {"ʒ", "V"},
    {"θ", "W"},
    {"ð", "T"},
    {"ŋ", "N"},
    {"ɡ", "g"},
    {"ɹ", "r"},
    {"ɫ", "l"},
    // Tie bars and the mark of a syllabic consonant say nothing that the codes could hold.
    {"\u0361", ""},
    {"\u035C", ""},
    {"\u0329", ""},
    {"\u030D", ""},
    {"p", "p"},
    {"b", "b"},
    {"t", "t"},
    {"d", "d"},
    {"k", "k"},
    {"g", "g"},
    {"f", "f"},
    {"v", "v"},
    {"s", "s"},
    {"z", "z"},
    {"h", "h"},
    {"m", "m"},
    {"n", "n"},
    {"w", "w"},
    {"j", "j"},
    {"r", "r"},
    {"l", "l"},
    {"i", "i"},
    {"e", "e"},
    {"a", "a"},
    {"u", "u"},
    {"o", "o"},
    {" ", " "},
    {"-", "-"},
    {"(", "("},
    {")", ")"},
}};

// The first spelling that the text begins with; null when there is none.
const Replacement* spellingAt(std::string_view text) {
  const auto* const found =
      std::find_if(spellings.begin(), spellings.end(), [&](const Replacement& spelling) {
        return text.substr(0, spelling.first.size()) == spelling.first;
      });
  return found == spellings.end() ? nullptr : found;
}

std::string_view firstCharacter(std::string_view utf8) {
  std::size_t size = 1;
  while (size < utf8.size() && (static_cast<unsigned char>(utf8[size]) & 0xC0U) == 0x80) {
    ++size;
  }
  return utf8.substr(0, size);
}

}  // namespace

std::string codeToIpa(std::string_view yinbiao) {
  std::string ipa;
  appendIpa(ipa, yinbiao);
  return ipa;
}

void appendIpa(std::string& out, std::string_view yinbiao) {
  // Written into room for the longest result: this runs for every word of a text.
  const std::size_t begin = out.size();
  out.resize(begin + 2 * yinbiao.size());
  char* to = out.data() + begin;
  for (std::size_t i = 0; i < yinbiao.size(); ++i) {
    const bool longU = yinbiao[i] == 'U' && yinbiao.substr(i + 1, 1) == ":";
    const Symbol& symbol = symbolByCode[static_cast<unsigned char>(longU ? 'u' : yinbiao[i])];
    to[0] = symbol.bytes[0];
    to[1] = symbol.bytes[1];
    to += symbol.size;
  }
  out.resize(static_cast<std::size_t>(to - out.data()));
}

std::string faultText(const IpaFault& fault) {
  return "cannot read '" + fault.symbol + "' at character " + std::to_string(fault.position);
}

IpaReading ipaToCode(std::string_view ipa) {
  IpaReading reading;
  std::size_t position = 1;
  while (!ipa.empty()) {
    const Replacement* spelling = spellingAt(ipa);
    if (spelling == nullptr) {
      reading.fault = IpaFault{position, std::string(firstCharacter(ipa))};
      return reading;
    }
    reading.codes += spelling->second;
    position += utf16Length(spelling->first);
    ipa.remove_prefix(spelling->first.size());
  }
  return reading;
}

bool looksLikeIpa(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return c == '\'' || static_cast<unsigned char>(c) >= 0x80; });
}

IpaReading codesFromEither(std::string_view text) {
  if (looksLikeIpa(text)) {
    return ipaToCode(text);
  }
  return {std::string(text), std::nullopt};
}

}  // namespace voxilane
