#include "lexicon/store_writers.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <unordered_map>

#include <SQLiteCpp/SQLiteCpp.h>

#include "core/field_cipher.h"
#include "core/word_list.h"
#include "lexicon/short_gloss.h"
#include "platform/sqlite/schema.h"

namespace voxilane {
namespace {

// The list's search never finds the first line, and not always the last one. A blank within the
// last word keeps any text from matching it.
constexpr std::string_view firstLine = " !=|-|\r\n";
constexpr std::string_view lastLine = "~ ~=|-|\r\n";

constexpr std::uint32_t unranked = std::numeric_limits<std::uint32_t>::max();

// An inflected form is as good a candidate as a word four times as rare as its lemma: corpora
// rank lemmas, running text is full of forms. Possessives and forms such as goeth are rarer.
constexpr std::uint32_t lemmaFactor = 4;
constexpr std::uint32_t rareFormFactor = 20;

// For a word that a syllabus has and no corpus ranked, such as "are", and for the words that old
// books are full of and newer corpora are not.
constexpr std::uint32_t syllabusScore = 5000;
constexpr std::string_view classicLevel = "classic";

struct Candidate {
  std::uint32_t score;  // smaller is better
  const WordRow* row;
};

std::uint32_t ownScore(const WordRow& row) {
  const std::uint32_t ranked = row.rank > 0 ? row.rank : unranked;
  const bool listed = row.rank == 0 && !row.levels.empty();
  return listed || row.levels.ends_with(classicLevel) ? std::min(ranked, syllabusScore) : ranked;
}

std::uint32_t scoreOf(const WordRow& row,
                      const std::unordered_map<std::string_view, std::uint32_t>& ranks) {
  if (row.source == "contraction") {
    return 0;  // too few to need a choice, and in every text
  }
  const auto lemma = ranks.find(row.lemma);
  if (lemma == ranks.end()) {
    return ownScore(row);
  }
  const bool rare = row.source == "archaic" || row.word.ends_with("'s");
  return std::min(ownScore(row), lemma->second * (rare ? rareFormFactor : lemmaFactor));
}

std::vector<Candidate> mostFrequent(const std::vector<WordRow>& rows, std::size_t count) {
  std::unordered_map<std::string_view, std::uint32_t> ranks;
  for (const WordRow& row : rows) {
    if (row.rank > 0) {
      ranks.emplace(row.word, row.rank);
    }
  }
  std::vector<Candidate> candidates;
  for (const WordRow& row : rows) {
    const std::uint32_t score = scoreOf(row, ranks);
    if (!row.yinbiao.empty() && score != unranked) {
      candidates.push_back({score, &row});
    }
  }
  // Rows of one score stay in word order.
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Candidate& a, const Candidate& b) { return a.score < b.score; });
  candidates.resize(std::min(candidates.size(), count));
  return candidates;
}

void insertRows(SQLite::Database& database, const std::vector<WordRow>& rows) {
  SQLite::Statement word(database, "insert into word values(?, ?)");
  SQLite::Statement gloss(database, "insert into wordqj values(?, ?)");
  for (const WordRow& row : rows) {
    const std::string headword(row.word);
    if (!row.yinbiao.empty()) {
      const std::string enciphered = jiamiField(row.yinbiao);
      word.bind(1, headword);
      word.bind(2, enciphered.data(), static_cast<int>(enciphered.size()));
      word.exec();
      word.reset();
    }
    if (!row.gloss.empty()) {
      gloss.bind(1, headword);
      gloss.bind(2, row.gloss);
      gloss.exec();
      gloss.reset();
    }
  }
}

}  // namespace

std::string dictionaryText(const std::vector<WordRow>& rows) {
  constexpr std::size_t endLines = 2;
  auto chosen = mostFrequent(rows, WordList::maxEntries - endLines);
  std::sort(chosen.begin(), chosen.end(),
            [](const Candidate& a, const Candidate& b) { return a.row->word < b.row->word; });
  std::string text(firstLine);
  for (const Candidate& candidate : chosen) {
    const WordRow& row = *candidate.row;
    text.append(row.word).append("=|").append(shortGloss(row.gloss));
    text.append("|").append(row.yinbiao).append("\r\n");
  }
  return text.append(lastLine);
}

Done writeLibrary(const std::vector<WordRow>& rows, const std::string& path) {
  const std::string temporaryPath = path + ".new";
  std::remove(temporaryPath.c_str());
  try {
    SQLite::Database database(temporaryPath, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec("pragma journal_mode = off");
    database.exec("pragma synchronous = off");
    database.exec(createLibraryTables);
    SQLite::Transaction transaction(database);
    insertRows(database, rows);
    database.exec(createLibraryIndexes);
    transaction.commit();
  } catch (const SQLite::Exception& exception) {
    return Error{exception.what()};
  }
  // What a killed writer left of the old library would be put into the new one.
  std::remove((path + "-journal").c_str());
  if (std::rename(temporaryPath.c_str(), path.c_str()) != 0) {
    return Error{"cannot take the place of the old library"};
  }
  return std::monostate();
}

}  // namespace voxilane
