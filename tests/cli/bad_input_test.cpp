#include <algorithm>

#include "tests/cli/program.h"

namespace voxilane {
namespace {

class BadInputTest : public ProgramTest {
 protected:
  // One line on standard error that names the program.
  static void expectOneLine(const std::string& err) {
    EXPECT_EQ(err.substr(0, 14), "voxilane-cli: ");
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
  }
};

TEST_F(BadInputTest, IsReportedInOneLineAndChangesNoFile) {
  directory.write("binary", std::string("a\0b", 3));
  directory.write("latin", "caf\xE9 noir");
  directory.write("good", "cat");
  directory.write("rich", "{\\rtf1 cat}");
  directory.write("out", "old");
  struct Case {
    std::string arguments;
    int status;
  };
  const std::vector<Case> cases{
      {"annotate $T/missing -o $T/out", 1},
      {"annotate $T -o $T/out", 1},
      {"annotate $T/binary -o $T/out", 1},
      {"annotate $T/latin -o $T/out", 1},
      {"annotate $T/good -o $T/missing/out", 1},
      {"annotate $T/good -o /dev/full", 1},
      {"annotate $T/good --layout word1", 1},
      {"annotate $T/good --to docx", 1},
      {"annotate $T/rich -o $T/out", 1},
      {"mark 'two words'", 1},
      {"mark ' '", 1},
      {"number twelve", 1},
      {"library get nothing", 1},
      {"convert --to codes 'kæq'", 1},
      {"explain ' '", 1},
      {"annotate --layout sideways", 2},
      {"annotate --size 1", 2},
      {"lookup \"$(printf '\\377')\"", 2},
      {"nonsense", 2},
      {"", 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.arguments);
    const Outcome outcome = run(c.arguments);
    EXPECT_EQ(outcome.status, c.status);
    expectOneLine(outcome.err);
    EXPECT_EQ(directory.read("out"), "old");
  }
}

TEST_F(BadInputTest, AFullDiskIsAFailure) {
  const Outcome outcome = shell("echo cat | $V --home $T annotate >/dev/full");
  EXPECT_EQ(outcome.status, 1);
  expectOneLine(outcome.err);
}

TEST_F(BadInputTest, ABrokenLibraryStopsBeforeAnyOutput) {
  struct Case {
    std::string name;
    std::string breaking;
  };
  const std::vector<Case> cases{
      {"no database", "echo rubbish >$T/data.dat"},
      {"empty", ": >$T/data.dat"},
      {"cut off", "head -c 6000 $T/data.dat >$T/x && mv $T/x $T/data.dat"},
      {"a folder", "rm $T/data.dat && mkdir $T/data.dat"},
      {"no word list", "rm $T/dictionary.txt"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASSERT_EQ(
        shell("cp -r $T/data.dat $T/data.keep; cp $T/dictionary.txt $T/list.keep; " + c.breaking)
            .status,
        0);
    const Outcome outcome = run("annotate --layout up", "unheardof zzz");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    expectOneLine(outcome.err);
    ASSERT_EQ(shell("rm -rf $T/data.dat; mv $T/data.keep $T/data.dat; "
                    "mv $T/list.keep $T/dictionary.txt")
                  .status,
              0);
  }
}

TEST_F(BadInputTest, WithoutALibraryTheListStillAnswers) {
  ASSERT_EQ(shell("rm $T/data.dat").status, 0);
  EXPECT_EQ(output("--codes lookup cat zero"), "cat\tkAt\tlist\nzero\t\t-\n");
}

TEST_F(BadInputTest, OddWordListsAreRead) {
  struct Case {
    std::string text;
    std::string expected;
  };
  std::string many;
  for (int i = 100'000; i < 200'000; ++i) {
    many += "w" + std::to_string(i) + "=|g|A\r\n";
  }
  const std::vector<Case> cases{
      {"", "\t-"},
      {"no entry here\r\n", "\t-"},
      {"w132765=|g|A", "\t-"},
      {"a=||\r\nw132765=|g|A\r\nz=||", "A\tlist"},
      {many, "A\tlist"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text.substr(0, 40));
    directory.write("dictionary.txt", c.text);
    EXPECT_EQ(output("--codes lookup w132765"), "w132765\t" + c.expected + "\n");
  }
  EXPECT_EQ(output("--codes lookup w132767"), "w132767\t\t-\n");
}

TEST_F(BadInputTest, NonsenseParametersAreDefaults) {
  directory.write("canshushezhi.txt", "canshu9=many\r\n\xFF\xFF\r\ncanshu6=perhaps\r\n=\r\ncanshu");
  EXPECT_EQ(output("--codes annotate --layout self", "cat"), "cat\n kAt ");
}

}  // namespace
}  // namespace voxilane
