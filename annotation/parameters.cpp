#include "annotation/parameters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "core/number_parser.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::size_t nameLength = 7;  // "canshu1"
constexpr std::int16_t defaultSize = 15;

constexpr std::array<std::pair<std::string_view, std::string CanshuSet::*>, 6> textParameters{{
    {"canshu1", &CanshuSet::canshu1},
    {"canshu2", &CanshuSet::canshu2},
    {"canshu3", &CanshuSet::canshu3},
    {"canshu4", &CanshuSet::canshu4},
    {"canshu5", &CanshuSet::canshu5},
    {"canshu8", &CanshuSet::canshu8},
}};

void readBoolean(std::string_view text, bool& value) {
  const std::string word = lowerCased(trimBlanks(text));
  if (word == "true" || word == "false") {
    value = word == "true";
  } else if (const auto number = parseNumber(word)) {
    value = *number != 0;
  }
}

void readSize(std::string_view text, std::int16_t& value) {
  const auto number = parseNumber(text);
  if (!number) {
    return;
  }
  // Halves go to the even neighbour, the default rounding of the platform.
  const double rounded = std::nearbyint(*number);
  using Limits = std::numeric_limits<std::int16_t>;
  if (rounded >= Limits::min() && rounded <= Limits::max()) {
    value = static_cast<std::int16_t>(rounded);
  }
}

// The eighth character should be the equals sign, but is not looked at.
void readLine(std::string_view line, CanshuSet& canshu) {
  const std::string_view name = line.substr(0, nameLength);
  const std::string_view value = line.substr(std::min(nameLength + 1, line.size()));
  for (const auto& [parameterName, member] : textParameters) {
    if (name == parameterName) {
      canshu.*member = value;
    }
  }
  if (name == "canshu6") {
    readBoolean(value, canshu.canshu6);
  } else if (name == "canshu9") {
    readSize(value, canshu.canshu9);
  }
}

void applyDefaults(CanshuSet& canshu) {
  const CanshuSet defaults;
  for (const auto& [name, member] : textParameters) {
    if ((canshu.*member).empty()) {
      canshu.*member = defaults.*member;
    }
  }
  if (canshu.canshu9 == 0) {
    canshu.canshu9 = defaultSize;
  }
  canshu.setBracketStyle(canshu.canshu2);
}

}  // namespace

void CanshuSet::setBracketStyle(std::string_view style) {
  canshu2 = style;
  const Brackets derived = bracketsOfStyle(style);
  leftBracket = derived.left;
  rightBracket = derived.right;
}

CanshuSet parseParameters(std::string_view text) {
  CanshuSet canshu;
  while (!text.empty()) {
    const auto end = std::min(text.find_first_of("\r\n"), text.size());
    readLine(trimBlanks(text.substr(0, end)), canshu);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  applyDefaults(canshu);
  return canshu;
}

std::string formatParameters(const CanshuSet& canshu) {
  const auto boolean = [](bool value) { return value ? "True" : "False"; };
  std::string text;
  const auto line = [&text](std::string_view name, std::string_view value) {
    text.append(name).append("=").append(value).append("\r\n");
  };
  line("canshu1", canshu.canshu1);
  line("canshu2", canshu.canshu2);
  line("canshu3", canshu.canshu3);
  line("canshu4", canshu.canshu4);
  line("canshu5", canshu.canshu5);
  line("canshu6", boolean(canshu.canshu6));
  line("canshu7", boolean(canshu.canshu7));
  line("canshu8", canshu.canshu8);
  line("canshu9", std::to_string(canshu.canshu9));
  return text + "[end]\r\n";
}

}  // namespace voxilane
