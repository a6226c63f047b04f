#include "platform/sqlite/sqlite_library.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include "tests/support/temporary_directory.h"

namespace voxilane {
namespace {

class SqliteLibraryTest : public ::testing::Test {
 protected:
  SqliteLibraryTest() : writer(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE) {
    writer.exec("create table word(word text collate nocase, ipa13 blob)");
    writer.exec("create table wordqj(word text collate nocase, sjieshi text)");
    writer.exec("create index i on word(word)");
  }

  std::unique_ptr<LibraryDatabase> opened() {
    auto library = openSqliteLibrary(path, LibraryTables::both);
    return library ? std::move(library.value()) : nullptr;
  }

  TemporaryDirectory directory;
  std::string path = directory / "data.dat";
  SQLite::Database writer;
};

TEST_F(SqliteLibraryTest, TheFirstRowThatIsNotEmptyCountsInRowOrder) {
  writer.exec("insert into word values('cat', null), ('CAT', x''), ('cat', x'00FF'), ('cat', 'z')");
  writer.exec("insert into wordqj values('cat', '猫'), ('cat', '')");
  const auto library = opened();
  EXPECT_EQ(library->ipa13Of("cat").value(), std::string("\0\xFF", 2));
  EXPECT_EQ(library->wordOf("Cat").value(), "cat");
  EXPECT_EQ(library->glossOf("CAT").value(), "猫");
  EXPECT_EQ(library->ipa13Of("dog").value(), "");
  EXPECT_EQ(library->wordCount().value(), 4U);
}

TEST_F(SqliteLibraryTest, OddWordsAreOrdinaryText) {
  const std::string odd = std::string("it's %_\0;--", 11);
  SQLite::Statement insert(writer, "insert into word values(?, x'41')");
  insert.bind(1, odd);
  insert.exec();
  EXPECT_EQ(opened()->ipa13Of(odd).value(), "A");
  EXPECT_EQ(opened()->ipa13Of("it's %").value(), "");
}

TEST_F(SqliteLibraryTest, AChangeByAnotherCountsAtTheNextLookup) {
  const auto library = opened();
  const std::int64_t before = library->version();
  EXPECT_EQ(library->ipa13Of("new").value(), "");
  writer.exec("insert into word values('new', x'42')");
  EXPECT_EQ(library->ipa13Of("new").value(), "B");
  EXPECT_NE(library->version(), before);
}

TEST_F(SqliteLibraryTest, WhileItIsReadNothingChanges) {
  const auto library = opened();
  library->beginReading();
  EXPECT_EQ(library->ipa13Of("new").value(), "");
  EXPECT_NE(writer.tryExec("insert into word values('new', x'42')"), SQLite::OK);
  library->endReading();
  EXPECT_EQ(writer.tryExec("insert into word values('new', x'42')"), SQLite::OK);
}

TEST_F(SqliteLibraryTest, ALockedLibraryIsAnErrorOnOpeningAndInALookup) {
  const auto library = opened();
  writer.exec("begin exclusive");
  EXPECT_FALSE(openSqliteLibrary(path, LibraryTables::words));
  EXPECT_FALSE(library->ipa13Of("cat"));
  writer.exec("commit");
  EXPECT_TRUE(library->ipa13Of("cat"));
}

TEST_F(SqliteLibraryTest, WhatAKilledWriterHadBegunDoesNotCount) {
  writer.exec("insert into word values('cat', x'41')");
  writer.exec("pragma cache_size = 1; begin");
  // More than the cache holds, so that changes are in the file before they are committed.
  writer.exec("update word set ipa13 = x'42'; insert into wordqj values('cat', zeroblob(1000000))");
  const TemporaryDirectory killed;
  killed.write("data.dat", directory.read("data.dat"));
  killed.write("data.dat-journal", directory.read("data.dat-journal"));
  const auto library = openSqliteLibrary(killed / "data.dat", LibraryTables::both);
  ASSERT_TRUE(library);
  EXPECT_EQ(library.value()->ipa13Of("cat").value(), "A");
  EXPECT_EQ(library.value()->glossCount().value(), 0U);
}

TEST_F(SqliteLibraryTest, OnlyTheTablesThatAreNeededMustBeThere) {
  writer.exec("drop table wordqj");
  EXPECT_TRUE(openSqliteLibrary(path, LibraryTables::words));
  EXPECT_FALSE(openSqliteLibrary(path, LibraryTables::glosses));
  EXPECT_FALSE(openSqliteLibrary(path, LibraryTables::both));
}

TEST(OpenSqliteLibraryTest, OtherFilesAreRefused) {
  const TemporaryDirectory directory;
  EXPECT_FALSE(openSqliteLibrary(directory.write("text", "this is no database, only some text"),
                                 LibraryTables::words));
  EXPECT_FALSE(openSqliteLibrary(directory.write("empty", ""), LibraryTables::words));
  EXPECT_FALSE(openSqliteLibrary(directory.path(), LibraryTables::words));
}

}  // namespace
}  // namespace voxilane
