#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

namespace voxilane {

// A row of words.tsv, the source text of the word library.
struct WordRow {
  std::string_view word;
  std::string_view yinbiao;   // empty: the row is there for its gloss
  std::string_view readings;  // all of a word that has several: "n 5rekC:d; v ri5kC:d"
  std::string_view source;    // where the Yinbiao comes from
  std::string_view lemma;     // of an inflected form
  std::uint32_t rank = 0;     // 1 is the most frequent word; 0: not ranked
  std::string_view levels;    // the exams whose syllabus has the word
  std::string gloss;          // with line ends CR LF
};

// The rows of the text of words.tsv, which must outlive them. A row that is not well formed, a
// Yinbiao that breaks the notation and rows out of order are errors that tell the line.
Result<std::vector<WordRow>> parseWordRows(std::string_view text);

}  // namespace voxilane
