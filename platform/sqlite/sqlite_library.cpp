#include "platform/sqlite/sqlite_library.h"

#include <limits>
#include <optional>

#include "platform/sqlite/connection.h"

namespace voxilane {
namespace {

// Rows are put in order here: asking for them in order keeps SQLite from answering out of an index
// that holds the value as well.
constexpr const char* ipa13Query = "select ipa13, rowid from word where word = ?";
constexpr const char* wordQuery = "select word, rowid from word where word = ?";
constexpr const char* glossQuery = "select sjieshi, rowid from wordqj where word = ?";

class SqliteLibrary : public LibraryDatabase {
 public:
  explicit SqliteLibrary(const std::string& path)
      : database_(path, openFlags, lockWaitMilliseconds) {
    database_.exec(cachePragma);
  }

  void checkWords() { prepared(ipa13_, ipa13Query); }
  void checkGlosses() { prepared(gloss_, glossQuery); }

  Result<std::string> ipa13Of(std::string_view word) override {
    return firstValue(ipa13_, ipa13Query, word);
  }
  Result<std::string> wordOf(std::string_view word) override {
    return firstValue(word_, wordQuery, word);
  }
  Result<std::string> glossOf(std::string_view word) override {
    return firstValue(gloss_, glossQuery, word);
  }

  // A failure here is met again, and reported, by the lookups.
  void beginReading() override { database_.tryExec("begin"); }
  void endReading() override { database_.tryExec("commit"); }

  Result<std::size_t> wordCount() override { return count("select count(*) from word"); }
  Result<std::size_t> glossCount() override { return count("select count(*) from wordqj"); }

  Done eachWord(const RowVisitor& visit) override {
    try {
      SQLite::Statement rows(database_, "select word, ipa13 from word order by rowid");
      while (rows.executeStep()) {
        const SQLite::Column word = rows.getColumn(0);
        const SQLite::Column ipa13 = rows.getColumn(1);
        visit(bytesOf(word), bytesOf(ipa13));
      }
      return std::monostate();
    } catch (const SQLite::Exception& exception) {
      return errorOf(exception);
    }
  }

  std::int64_t version() override {
    try {
      SQLite::Statement& query = prepared(version_, "pragma data_version");
      const std::int64_t version = query.executeStep() ? query.getColumn(0).getInt64() : 0;
      query.reset();
      return version;
    } catch (const SQLite::Exception&) {
      // The next lookup meets the same failure and reports it.
      return 0;
    }
  }

 private:
  using OptionalStatement = std::optional<SQLite::Statement>;

  SQLite::Statement& prepared(OptionalStatement& statement, const char* query) {
    if (!statement) {
      statement.emplace(database_, query);
    }
    return *statement;
  }

  Result<std::string> firstValue(OptionalStatement& statement, const char* query,
                                 std::string_view word) {
    try {
      SQLite::Statement& lookup = prepared(statement, query);
      const std::string asked(word);
      lookup.bindNoCopy(1, asked);
      std::string value;
      std::int64_t firstRow = std::numeric_limits<std::int64_t>::max();
      while (lookup.executeStep()) {
        const std::int64_t row = lookup.getColumn(1).getInt64();
        const SQLite::Column column = lookup.getColumn(0);
        if (row < firstRow && !bytesOf(column).empty()) {
          value = bytesOf(column);
          firstRow = row;
        }
      }
      lookup.reset();
      return value;
    } catch (const SQLite::Exception& exception) {
      // The statement may be in no state to go on with.
      statement.reset();
      return errorOf(exception);
    }
  }

  Result<std::size_t> count(const char* query) {
    try {
      return static_cast<std::size_t>(database_.execAndGet(query).getInt64());
    } catch (const SQLite::Exception& exception) {
      return errorOf(exception);
    }
  }

  SQLite::Database database_;
  OptionalStatement ipa13_;
  OptionalStatement word_;
  OptionalStatement gloss_;
  OptionalStatement version_;
};

}  // namespace

Result<std::unique_ptr<LibraryDatabase>> openSqliteLibrary(const std::string& path,
                                                           LibraryTables needed) {
  try {
    auto library = std::make_unique<SqliteLibrary>(path);
    if (needed != LibraryTables::glosses) {
      library->checkWords();
    }
    if (needed != LibraryTables::words) {
      library->checkGlosses();
    }
    return std::unique_ptr<LibraryDatabase>(std::move(library));
  } catch (const SQLite::Exception& exception) {
    return errorOf(exception);
  }
}

}  // namespace voxilane
