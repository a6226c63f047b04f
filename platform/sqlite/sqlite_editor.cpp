#include "platform/sqlite/sqlite_editor.h"

#include <algorithm>
#include <filesystem>

#include "platform/files.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/schema.h"

namespace voxilane {
namespace {

// Changes stay in memory until the commit, so that nobody has to wait for them before.
constexpr const char* noSpillPragma = "pragma cache_spill = off";

// A new library grows in a temporary database and goes to its place as a whole.
constexpr const char* temporaryPath = "";

// The statements for one table.
struct TableStatements {
  SQLite::Statement rows;
  SQLite::Statement change;
  SQLite::Statement add;
};

void bindValue(SQLite::Statement& statement, int index, LibraryTable table,
               const std::string& value) {
  if (table == LibraryTable::words) {
    statement.bindNoCopy(index, value.data(), static_cast<int>(value.size()));
  } else {
    statement.bindNoCopy(index, value);
  }
}

class SqliteEditor : public LibraryEditor {
 public:
  // In the database a transaction has been begun.
  SqliteEditor(SQLite::Database database, std::string newPath)
      : database_(std::move(database)),
        newPath_(std::move(newPath)),
        words_{{database_, "select rowid, ipa13 from word where word = ?"},
               {database_, "update word set ipa13 = ? where rowid = ?"},
               {database_, "insert into word(word, ipa13) values(?, ?)"}},
        glosses_{{database_, "select rowid, sjieshi from wordqj where word = ?"},
                 {database_, "update wordqj set sjieshi = ? where rowid = ?"},
                 {database_, "insert into wordqj(word, sjieshi) values(?, ?)"}} {}

  Result<std::vector<LibraryRow>> rowsOf(LibraryTable table, std::string_view word) override {
    try {
      SQLite::Statement& query = of(table).rows;
      query.tryReset();
      const std::string asked(word);
      query.bindNoCopy(1, asked);
      std::vector<LibraryRow> rows;
      while (query.executeStep()) {
        const SQLite::Column value = query.getColumn(1);
        if (!bytesOf(value).empty()) {
          rows.push_back({query.getColumn(0).getInt64(), std::string(bytesOf(value))});
        }
      }
      std::sort(rows.begin(), rows.end(),
                [](const LibraryRow& a, const LibraryRow& b) { return a.number < b.number; });
      return rows;
    } catch (const SQLite::Exception& exception) {
      return errorOf(exception);
    }
  }

  Done change(LibraryTable table, std::int64_t number, std::string_view value) override {
    const std::string newValue(value);
    return run(of(table).change, [&](SQLite::Statement& statement) {
      bindValue(statement, 1, table, newValue);
      statement.bind(2, number);
    });
  }

  Done add(LibraryTable table, std::string_view word, std::string_view value) override {
    const std::string newWord(word);
    const std::string newValue(value);
    return run(of(table).add, [&](SQLite::Statement& statement) {
      statement.bindNoCopy(1, newWord);
      bindValue(statement, 2, table, newValue);
    });
  }

  Done commit() override {
    try {
      database_.exec("commit");
    } catch (const SQLite::Exception& exception) {
      return errorOf(exception);
    }
    return newPath_.empty() ? Done(std::monostate()) : writeNewLibrary();
  }

 private:
  TableStatements& of(LibraryTable table) {
    return table == LibraryTable::words ? words_ : glosses_;
  }

  template <typename Bind>
  static Done run(SQLite::Statement& statement, Bind bind) {
    try {
      statement.tryReset();
      bind(statement);
      statement.exec();
      return std::monostate();
    } catch (const SQLite::Exception& exception) {
      return errorOf(exception);
    }
  }

  Done writeNewLibrary() {
    if (fileExists(newPath_)) {
      return Error{"another program has made it meanwhile"};
    }
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> bytes(
        sqlite3_serialize(database_.getHandle(), "main", &size, 0), &sqlite3_free);
    if (bytes == nullptr) {
      return Error{"not enough memory"};
    }
    // What a killed writer left of an older library would be put into this one.
    std::error_code none;
    std::filesystem::remove(newPath_ + "-journal", none);
    auto sink = replaceFile(newPath_);
    if (!sink) {
      return sink.error();
    }
    const Done written = sink.value()->write(
        {reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(size)});
    return written ? sink.value()->commit() : written;
  }

  SQLite::Database database_;
  std::string newPath_;  // empty for a library that was there
  TableStatements words_;
  TableStatements glosses_;
};

}  // namespace

Result<std::unique_ptr<LibraryEditor>> openSqliteEditor(const std::string& path) {
  try {
    const bool isNew = !fileExists(path);
    SQLite::Database database(isNew ? temporaryPath : path, openFlags, lockWaitMilliseconds);
    if (sqlite3_db_readonly(database.getHandle(), "main") == 1) {
      return Error{"cannot be written to"};
    }
    database.exec(cachePragma);
    database.exec(noSpillPragma);
    database.exec("begin immediate");
    if (isNew) {
      database.exec(createLibraryTables);
    }
    database.exec(createLibraryIndexes);
    return std::unique_ptr<LibraryEditor>(
        std::make_unique<SqliteEditor>(std::move(database), isNew ? path : std::string()));
  } catch (const SQLite::Exception& exception) {
    return errorOf(exception);
  }
}

}  // namespace voxilane
