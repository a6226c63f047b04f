#include <algorithm>

#include <SQLiteCpp/SQLiteCpp.h>

#include "platform/code_page.h"
#include "tests/cli/program.h"

namespace voxilane {
namespace {

class LibraryTextTest : public ProgramTest {
 protected:
  void emptyLibrary() const { ASSERT_EQ(shell("rm -f $T/data.dat").status, 0); }

  // What an import prints that has these figures.
  static std::string figures(int added, int changed, int unchanged, int refused = 0) {
    return "added\t" + std::to_string(added) + "\nchanged\t" + std::to_string(changed) +
           "\nunchanged\t" + std::to_string(unchanged) + "\nrefused\t" + std::to_string(refused) +
           "\n";
  }
};

TEST_F(LibraryTextTest, ImportAddsAndChangesWhatTheLinesSay) {
  struct Case {
    std::string before;
    std::string lines;
    std::string printed;
    std::string after;
  };
  const std::string cat = "cat\tkAt\tn. 猫\n";
  const std::vector<Case> cases{
      {"", "b\tbi:\na\tei\tart.\n", figures(2, 0, 0), "a\tei\tart.\nb\tbi:\n"},
      {cat, cat, figures(0, 0, 1), cat},
      {cat, "CAT\tkæt\n\n \t\r\ncat\t\tn. 猫", figures(0, 0, 2), cat},
      {cat, "Cat\tkʌt\n", figures(0, 1, 0), "cat\tkQt\tn. 猫\n"},
      {cat, "cat\tkAt\tn.\\\\\\n猫\n", figures(0, 1, 0), "cat\tkAt\tn.\\\\\\n猫\n"},
      {"cat\tkAt\n", "cat\t\t猫\n", figures(0, 1, 0), "cat\tkAt\t猫\n"},
      {"cat\t\t猫\n", "cat\tkAt\n", figures(0, 1, 0), "cat\tkAt\t猫\n"},
      // Lines of one word in a row are its rows; a later one begins again at the first.
      {"", "lead\tli:d\t铅\nLead\tled\ncat\tkAt\nlead\tlid\n", figures(3, 1, 0),
       "cat\tkAt\nlead\tlid\t铅\nLead\tled\n"},
      {"lead\tli:d\nlead\tled\n", "lead\tkat\nlead\tlid\n",
       "refused\t1\thalf of a vowel: a\n" + figures(0, 1, 0, 1), "lead\tli:d\nlead\tlid\n"},
      // IPA cannot tell R: from C:.
      {"four\tfR:\n", "four\tfɔː\n", figures(0, 0, 1), "four\tfR:\n"},
      {"four\tfR:\n", "four\tfC:\n", figures(0, 1, 0), "four\tfC:\n"},
      {"",
       "no tab\n\tkAt\na\"b\tkAt\nc\\x00t\tkAt\nc\\xFFt\tkAt\n cat\tkAt\ngood\tgud\n"
       "cat\tkɨt\ncat\t\t\\xFF\ndog\t\tn.\t\n",
       "refused\t1\tno tab behind the word\nrefused\t2\tno word\n"
       "refused\t3\ta double quote in the word\nrefused\t4\ta control character in the word\n"
       "refused\t5\tthe word is no text\nrefused\t6\ta blank at an end of the word\n"
       "refused\t8\tcannot read 'ɨ' at character 2\nrefused\t9\tthe gloss is no text\n"
       "refused\t10\tmore than three fields\n" +
           figures(1, 0, 0, 9),
       "good\tgud\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.lines);
    emptyLibrary();
    output("library import -", c.before);
    const Outcome outcome = run("library import -", c.lines);
    EXPECT_EQ(outcome.out, c.printed);
    EXPECT_EQ(outcome.status, c.printed.starts_with("refused") ? 1 : 0) << outcome.err;
    EXPECT_EQ(output("library export"), c.after);
  }
}

TEST_F(LibraryTextTest, ALibraryChangesNothingInItselfAndLosesNothingInAnother) {
  output("library import -", "lead\tled\nlead\tli:d\t铅\nnew york\tnju:\na\t\tg\\r\\x0A\\t\\\\\n");
  {
    SQLite::Database writer(directory / "data.dat", SQLite::OPEN_READWRITE);
    writer.exec("insert into word values('CAT', x''), ('Cat', null), ('dog', '')");
  }
  const std::string sound = output("library export");
  emptyLibrary();
  output("library import -", sound);
  EXPECT_EQ(output("library export -o $T/all.tsv; cat $T/all.tsv"), sound);
  {
    // Rows that could not be imported are left alone all the same.
    SQLite::Database writer(directory / "data.dat", SQLite::OPEN_READWRITE);
    writer.exec(
        "insert into word values('', x'41'), ('a\"b', x'00'), (' cat ', x'FF7F'), (null, x'41'),"
        "(x'41', x'41'), (cast(x'FF0A' as text), x'41'), ('dog', 'text'), ('dog', 7)");
    writer.exec("insert into wordqj values('', 'g'), ('Cat', cast(x'FF00' as text)), ('cat', 5)");
  }
  const std::string bytes = directory.read("data.dat");
  output("library export -o $T/all.tsv");
  const std::string all = directory.read("all.tsv");
  const auto lines = static_cast<int>(std::count(all.begin(), all.end(), '\n'));
  EXPECT_EQ(lines, std::count(sound.begin(), sound.end(), '\n') + 8);
  EXPECT_EQ(output("library import $T/all.tsv"), figures(0, 0, lines));
  EXPECT_EQ(directory.read("data.dat"), bytes);
}

TEST_F(LibraryTextTest, ImportRecognisesTheEncoding) {
  for (const std::string& bytes :
       {std::string("\xEF\xBB\xBF") + "w\tkæt\t猫\r\n", toCodePage("w\tkæt\t猫\r"),
        std::string("\xFF\xFEw\0\t\0k\0\xE6\0t\0\t\0\x2B\x73\r\0\n\0", 20)}) {
    emptyLibrary();
    output("library import -", bytes);
    EXPECT_EQ(output("library export"), "w\tkAt\t猫\n");
  }
}

TEST_F(LibraryTextTest, ALineOfAnySizeIsALine) {
  const std::string big(2'000'000, 'a');
  const Outcome outcome = run("library import -", "w\t" + big + "\nnew\tnju:\nw\tkAt\t" + big);
  EXPECT_EQ(outcome.out,
            "refused\t1\tlonger than 1000000 bytes\n"
            "refused\t3\tlonger than 1000000 bytes\n" +
                figures(1, 0, 0, 2));
}

TEST_F(LibraryTextTest, WhatCannotBeDoneIsSaidInOneLineAndChangesNothing) {
  directory.write("new.tsv", "new\tnju:\n");
  const std::string bytes = directory.read("data.dat");
  const auto expectFailure = [&](const std::string& call, const std::string& err,
                                 const std::string& content) {
    SCOPED_TRACE(call);
    const Outcome outcome = run(call, std::string("new\tnju:\nn\0t\tnEt\n", 17));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "voxilane-cli: " + err + "\n");
    EXPECT_EQ(directory.read("data.dat"), content);
  };
  const std::string library = directory / "data.dat";
  expectFailure("library import -", "standard input: not a text: character 11 is NUL", bytes);
  expectFailure("library import nowhere", "nowhere: No such file or directory", bytes);
  expectFailure("library export -o $T/data.dat", library + ": is the library", bytes);
  {
    SQLite::Database other(library, SQLite::OPEN_READWRITE);
    other.exec("begin exclusive");
    expectFailure("library import $T/new.tsv", library + ": database is locked", bytes);
  }
  for (const char* broken : {"", "no database, only some text"}) {
    directory.write("data.dat", broken);
    EXPECT_EQ(run("library import $T/new.tsv").status, 1);
    EXPECT_EQ(run("library export").status, 1);
    EXPECT_EQ(directory.read("data.dat"), broken);
  }
  emptyLibrary();
  expectFailure("library export", library + ": there is no library", "");
  EXPECT_EQ(run("library import -", "no tab\n").status, 1);
  EXPECT_EQ(shell("test -e $T/data.dat").status, 1);
}

}  // namespace
}  // namespace voxilane
