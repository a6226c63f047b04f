#include "core/numbers.h"

#include <algorithm>
#include <array>

#include "core/number_parser.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::string_view digits = "1234567890";
constexpr std::string_view notANumberText = "存在非数字字符！";
constexpr std::string_view notDigitsText = "存在非数字符号！";

constexpr std::array<Replacement, 11> halfWidthForms{{
    {"１", "1"},
    {"２", "2"},
    {"３", "3"},
    {"４", "4"},
    {"５", "5"},
    {"６", "6"},
    {"７", "7"},
    {"８", "8"},
    {"９", "9"},
    {"０", "0"},
    {"。", "."},
}};

// Collects pieces and joins neighbours of one colour.
class RunWriter {
 public:
  explicit RunWriter(const Brackets& brackets) : brackets_(brackets) {}

  void write(RunColor color, std::string_view text) {
    if (text.empty()) {
      return;
    }
    if (runs_.empty() || runs_.back().color != color) {
      runs_.push_back({color, {}});
    }
    runs_.back().text += text;
  }

  void writeBracketed(RunColor color, std::string_view reading) {
    write(color, brackets_.left + std::string(reading) + brackets_.right);
  }

  NumberReading take() { return {std::move(runs_), std::nullopt}; }

 private:
  const Brackets& brackets_;
  std::vector<ColoredRun> runs_;
};

NumberReading refused(std::string_view message) { return {{}, std::string(message)}; }

bool consistsOf(std::string_view text, std::string_view characters) {
  return text.find_first_not_of(characters) == std::string_view::npos;
}

std::string_view withoutLeadingZeros(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of('0'), text.size()));
}

// One to three digits at the head of a number, with the reading that their count asks for.
std::string headReading(std::string_view head, const Brackets& brackets) {
  switch (head.size()) {
    case 1:
      return digitYinbiao(head[0], brackets);
    case 2:
      return tensYinbiao(head, brackets);
    default:
      return groupYinbiao(head, brackets);
  }
}

// A head of one to three digits and up to three groups of three behind it. Colours alternate; the
// head of a billion is red, any other blue, and a group of noughts writes nothing.
void writeGroups(RunWriter& writer, std::string_view integer, const Brackets& brackets) {
  constexpr std::array<std::string_view, 4> words{"", "5WaJzEnd", "5mIljEn", "5bIljEn"};
  std::size_t groups = (integer.size() - 1) / 3;
  const std::size_t headSize = integer.size() - groups * 3;
  RunColor color = groups == 3 ? RunColor::red : RunColor::blue;
  writer.write(color, headReading(integer.substr(0, headSize), brackets));
  if (groups > 0) {
    // Only the ten thousands have blanks around their word.
    writer.writeBracketed(color, integer.size() == 5 ? " 5WaJzEnd " : words[groups]);
  }
  for (std::size_t at = headSize; at < integer.size(); at += 3) {
    --groups;
    color = color == RunColor::red ? RunColor::blue : RunColor::red;
    const std::string reading = groupYinbiao(integer.substr(at, 3), brackets);
    writer.write(color, reading);
    if (groups > 0 && !reading.empty()) {
      writer.writeBracketed(color, words[groups]);
    }
  }
}

void writeInteger(RunWriter& writer, std::string_view integer, const Brackets& brackets) {
  constexpr std::size_t longest = 12;
  if (integer.empty() || integer.size() > longest) {
    return;
  }
  if (integer.size() == 1) {
    writer.writeBracketed(RunColor::blue, digitYinbiao(integer[0], brackets));
  } else {
    writeGroups(writer, integer, brackets);
  }
}

// The first `units` UTF-16 units, counted in whole characters.
std::string firstUnits(std::string_view text, std::size_t units) {
  const std::size_t length = utf16Length(text);
  if (length <= units) {
    return std::string(text);
  }
  return toUtf8(std::u16string_view(toUtf16(text)).substr(0, units));
}

// Digits with their leading zeros gone; nothing when the text is no number at all.
std::optional<std::string> cleanDigits(std::string_view text) {
  const auto clean = cleanNumber(trimBlanks(text));
  if (!clean) {
    return std::nullopt;
  }
  return std::string(withoutLeadingZeros(*clean));
}

void writeFourDigitYear(RunWriter& writer, std::string_view year, const Brackets& brackets) {
  const auto blue = RunColor::blue;
  const std::string_view century = year.substr(0, 2);
  if (year.substr(1) == "000") {
    writer.write(blue, digitYinbiao(year[0], brackets));
    writer.writeBracketed(blue, " 5WaJzEnd ");
  } else if (year[1] != '0' && year.substr(2) == "00") {
    writer.write(blue, tensYinbiao(century, brackets));
    writer.writeBracketed(blue, "5hQndrId");
  } else if (year.substr(1, 2) == "00") {
    writer.write(blue, digitYinbiao(year[0], brackets));
    writer.writeBracketed(blue, "5WaJzEnd ");
    writer.writeBracketed(blue, "End");
    writer.write(blue, digitYinbiao(year[3], brackets));
  } else if (year[1] != '0' && year[2] == '0') {
    writer.write(blue, tensYinbiao(century, brackets));
    writer.writeBracketed(blue, " End ");
    writer.write(blue, digitYinbiao(year[3], brackets));
  } else {
    writer.write(blue, tensYinbiao(century, brackets));
    writer.write(blue, tensYinbiao(year.substr(2), brackets));
  }
}

}  // namespace

std::optional<std::string> cleanNumber(std::string_view text) {
  std::string clean(trimBlanks(text));
  if (clean.empty()) {
    return clean;
  }
  for (const Replacement& form : halfWidthForms) {
    replaceAll(clean, form);
  }
  const auto value = parseNumber(clean);
  if (!value) {
    return std::nullopt;
  }
  if (*value == 0) {
    return "0";
  }
  clean = withoutLeadingZeros(clean);
  if (clean.front() == '.') {
    clean.insert(0, "0");
  }
  const auto point = clean.find('.');
  if (point != std::string::npos) {
    clean.erase(std::max(clean.find_last_not_of('0'), point) + 1);
    if (clean.back() == '.') {
      clean += '0';
    }
  }
  return clean;
}

NumberReading readNumber(std::string_view text, const Brackets& brackets) {
  constexpr std::size_t readLength = 12;
  const auto clean = cleanNumber(firstUnits(trimBlanks(text), readLength));
  if (!clean || !consistsOf(*clean, "1234567890.")) {
    return refused(notANumberText);
  }
  const std::size_t point = std::min(clean->find('.'), clean->size());
  RunWriter writer(brackets);
  writeInteger(writer, std::string_view(*clean).substr(0, point), brackets);
  if (point < clean->size()) {
    writer.write(RunColor::black, " pCint ");
    for (const char digit : std::string_view(*clean).substr(point + 1)) {
      writer.write(RunColor::blue, digitYinbiao0(digit, brackets));
    }
  }
  return writer.take();
}

NumberReading readPhone(std::string_view text, const Brackets& brackets) {
  const auto number = cleanDigits(text);
  if (!number || !consistsOf(*number, digits)) {
    return refused(notDigitsText);
  }
  RunWriter writer(brackets);
  for (const char digit : *number) {
    writer.writeBracketed(RunColor::blue, phoneYinbiao(digit));
  }
  return writer.take();
}

NumberReading readYear(std::string_view text, const Brackets& brackets) {
  const auto year = cleanDigits(text);
  if (!year || year->empty()) {
    return {};
  }
  if (!consistsOf(*year, digits)) {
    return refused(notDigitsText);
  }
  RunWriter writer(brackets);
  const auto blue = RunColor::blue;
  switch (year->size()) {
    case 1:
      writer.write(blue, digitYinbiao(year->front(), brackets));
      break;
    case 2:
      writer.write(blue, tensYinbiao(*year, brackets));
      break;
    case 3:
      writer.write(blue, digitYinbiao(year->front(), brackets));
      writer.writeBracketed(blue, "5hQndrId");
      writer.writeBracketed(blue, " End ");
      writer.write(blue, tensYinbiao(std::string_view(*year).substr(1), brackets));
      break;
    case 4:
      writeFourDigitYear(writer, *year, brackets);
      break;
    default:
      break;
  }
  return writer.take();
}

}  // namespace voxilane
