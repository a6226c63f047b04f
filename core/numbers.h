#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/brackets.h"

// The English reading of numbers, years and telephone numbers, put together from fixed tables of
// Yinbiao. The irregularities of the tables are part of the readings.

namespace voxilane {

enum class RunColor { blue, red, black };

struct ColoredRun {
  RunColor color;
  std::string text;  // font codes, brackets included
};

struct NumberReading {
  std::vector<ColoredRun> runs;        // neighbours differ in colour; none is empty
  std::optional<std::string> refusal;  // the message for the user, when the text is refused
};

// A number of up to 12 digits before the point; the text is cut to 12 characters first.
NumberReading readNumber(std::string_view text, const Brackets& brackets);

// A telephone number, digit by digit; leading zeros are lost.
NumberReading readPhone(std::string_view text, const Brackets& brackets);

// A year of up to 4 digits. A longer one, and a text that is no number, reads as nothing.
NumberReading readYear(std::string_view text, const Brackets& brackets);

// The number text that the readings work on: half-width digits, no leading zeros, a zero before a
// bare point, no trailing zeros of the fraction. Nothing when the text is not a number.
std::optional<std::string> cleanNumber(std::string_view text);

// The pieces. Each takes digits only; groupYinbiao three, tensYinbiao two, the others one.
std::string digitYinbiao(char digit, const Brackets& brackets);
std::string digitYinbiao0(char digit, const Brackets& brackets);
std::string tensYinbiao(std::string_view pair, const Brackets& brackets);
std::string groupYinbiao(std::string_view group, const Brackets& brackets);
std::string phoneYinbiao(char digit);

}  // namespace voxilane
