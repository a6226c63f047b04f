#include "platform/sqlite/library_entries.h"

#include <algorithm>

#include "platform/sqlite/connection.h"

namespace voxilane {
namespace {

// A walk over the rows of one table.
class Rows {
 public:
  Rows(SQLite::Database& database, const char* query) : statement_(database, query) { next(); }

  bool atEnd() const { return atEnd_; }
  std::string_view word() const { return bytesOf(statement_.getColumn(0)); }
  std::string_view value() const { return bytesOf(statement_.getColumn(1)); }

  void next() {
    do {
      atEnd_ = !statement_.executeStep();
    } while (!atEnd_ && value().empty());
  }

 private:
  mutable SQLite::Statement statement_;  // its columns are not const
  bool atEnd_ = false;
};

// The order of the collation `nocase`, in which the rows come.
int compareWords(std::string_view a, std::string_view b) {
  const auto shorter = static_cast<int>(std::min(a.size(), b.size()));
  const int order = sqlite3_strnicmp(a.data(), b.data(), shorter);
  if (order != 0 || a.size() == b.size()) {
    return order;
  }
  return a.size() < b.size() ? -1 : 1;
}

// Negative: the word of `words` comes first; 0: both have the same.
int compareFronts(const Rows& words, const Rows& glosses) {
  if (words.atEnd()) return 1;
  if (glosses.atEnd()) return -1;
  return compareWords(words.word(), glosses.word());
}

void mergeRows(Rows& words, Rows& glosses, const EntryVisitor& visit) {
  bool wanted = true;
  while (wanted && !(words.atEnd() && glosses.atEnd())) {
    const int order = compareFronts(words, glosses);
    // Words that differ in case are entries of their own, so that each is spelled as it is stored.
    const bool together = order == 0 && words.word() == glosses.word();
    const bool takeWord = order <= 0;
    const bool takeGloss = order > 0 || together;
    wanted = visit({takeWord ? words.word() : glosses.word(),
                    takeWord ? words.value() : std::string_view(),
                    takeGloss ? glosses.value() : std::string_view()});
    if (takeWord) words.next();
    if (takeGloss) glosses.next();
  }
}

}  // namespace

Done eachLibraryEntry(const std::string& path, const EntryVisitor& visit) {
  try {
    SQLite::Database database(path, openFlags, lockWaitMilliseconds);
    database.exec(cachePragma);
    const SQLite::Transaction oneMoment(database);
    Rows words(database,
               "select word, ipa13 from word where typeof(word) = 'text' "
               "order by word, rowid");
    Rows glosses(database,
                 "select word, sjieshi from wordqj where typeof(word) = 'text' "
                 "order by word, rowid");
    mergeRows(words, glosses, visit);
    return std::monostate();
  } catch (const SQLite::Exception& exception) {
    return errorOf(exception);
  }
}

}  // namespace voxilane
