#include "lexicon/word_rows.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/notation.h"

namespace voxilane {
namespace {

constexpr std::string_view header = "word\tyinbiao\treadings\tsource\tlemma\trank\tlevels\tgloss";

enum Column {
  wordColumn,
  yinbiaoColumn,
  readingsColumn,
  sourceColumn,
  lemmaColumn,
  rankColumn,
  levelsColumn,
  glossColumn,
  columnCount
};

using Fields = std::array<std::string_view, columnCount>;

std::string_view takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

// False when the line has too few or too many fields.
bool splitLine(std::string_view line, Fields& fields) {
  for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos) {
      return false;
    }
    fields[i] = line.substr(0, tab);
    line.remove_prefix(tab + 1);
  }
  fields.back() = line;
  return line.find('\t') == std::string_view::npos;
}

// "\n" is a line end, "\\" a backslash.
std::string unescaped(std::string_view gloss) {
  std::string text;
  text.reserve(gloss.size());
  for (std::size_t i = 0; i < gloss.size(); ++i) {
    if (gloss[i] == '\\' && i + 1 < gloss.size()) {
      ++i;
      if (gloss[i] == 'n') {
        text += "\r\n";
        continue;
      }
    }
    text += gloss[i];
  }
  return text;
}

bool readRank(std::string_view field, std::uint32_t& rank) {
  if (field.empty()) {
    return true;
  }
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), rank);
  return error == std::errc() && end == field.data() + field.size();
}

// What is wrong with a row that follows `before`; empty when nothing is.
std::string rowFault(const WordRow& row, std::string_view before) {
  if (row.word.empty()) return "no word";
  if (row.word <= before) return "not in word order";
  if (row.yinbiao.empty()) return row.gloss.empty() ? "neither Yinbiao nor gloss" : "";
  return notationFault(row.yinbiao).value_or("");
}

Error faultAt(std::size_t lineNumber, std::string_view fault) {
  return {"line " + std::to_string(lineNumber) + ": " + std::string(fault)};
}

}  // namespace

Result<std::vector<WordRow>> parseWordRows(std::string_view text) {
  if (takeLine(text) != header) {
    return faultAt(1, "not the header of a word table");
  }
  std::vector<WordRow> rows;
  for (std::size_t lineNumber = 2; !text.empty(); ++lineNumber) {
    Fields fields;
    WordRow row;
    if (!splitLine(takeLine(text), fields) || !readRank(fields[rankColumn], row.rank)) {
      return faultAt(lineNumber, "not a row of the table");
    }
    row.word = fields[wordColumn];
    row.yinbiao = fields[yinbiaoColumn];
    row.readings = fields[readingsColumn];
    row.source = fields[sourceColumn];
    row.lemma = fields[lemmaColumn];
    row.levels = fields[levelsColumn];
    row.gloss = unescaped(fields[glossColumn]);
    const std::string fault = rowFault(row, rows.empty() ? std::string_view() : rows.back().word);
    if (!fault.empty()) {
      return faultAt(lineNumber, fault);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace voxilane
