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

TEST_F(BadInputTest, AStreamThatFailsIsNamed) {
  struct Case {
    std::string script;
    std::string named;
  };
  const std::vector<Case> cases{
      {"echo cat | $V --home $T annotate >/dev/full", "standard output"},
      {"yes cat | head -c 300000 | $V --home $T annotate >/dev/full", "standard output"},
      {"$V --version >/dev/full", "standard output"},
      {"echo cat | $V --home $T lookup >&-", "standard output"},
      {"$V --home $T annotate <&-", "standard input"},
      {"$V --home $T lookup <&-", "standard input"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.script);
    const Outcome outcome = shell(c.script);
    EXPECT_EQ(outcome.status, 1);
    expectOneLine(outcome.err);
    EXPECT_EQ(outcome.err.substr(14, c.named.size()), c.named);
  }
}

TEST_F(BadInputTest, LinesBeforeABadOneAreAnswered) {
  const Outcome outcome = run("--codes lookup", std::string("cat\ndog\nrun\0\n", 13));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "cat\tkAt\tlist\ndog\tdRg\tlist\n");
}

TEST_F(BadInputTest, NothingIsWrittenOverThatWasNotMeant) {
  directory.write("a.txt", "cat");
  directory.write("b.txt", "dog");
  EXPECT_EQ(run("annotate $T/a.txt $T/b.txt -o $T").status, 1);
  EXPECT_EQ(directory.read("a.txt"), "cat");
  EXPECT_EQ(shell("{ echo head; $V --home $T --codes annotate --layout dangqian $T/a.txt "
                  "-o /dev/stdout; } >$T/both")
                .status,
            0);
  EXPECT_EQ(directory.read("both"), "head\ncat kAt  ");
  EXPECT_EQ(shell("ln -s target $T/link; $V --home $T --codes annotate --layout self $T/a.txt "
                  "-o $T/link")
                .status,
            0);
  EXPECT_EQ(directory.read("target"), "cat\n kAt ");
}

TEST_F(BadInputTest, ADocumentThatTakesItsOwnPlaceIsKept) {
  struct Case {
    std::string call;
    std::string kept;
  };
  const std::vector<Case> cases{
      {"annotate a.txt -o b.txt", ""},     {"annotate a.txt -o a.txt", "cat\n"},
      {"annotate a.txt -o link", "cat\n"}, {"annotate - -o a.txt <a.txt", "cat\n"},
      {"annotate missing -o a.txt", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.call);
    const Outcome outcome = shell(
        "cd $T; rm -rf .state; echo cat >a.txt; echo dog >b.txt; ln -sf a.txt link\n"
        "$V --home $T " +
        c.call +
        "\n"
        "! test -e .state || cat .state/voxilane/backups/*$T/*");
    EXPECT_EQ(outcome.out, c.kept);
  }
  const Outcome outcome = shell("cd $T; XDG_STATE_HOME=/proc $V --home $T annotate a.txt -o a.txt");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.err.find("a.txt: no backup kept: "), std::string::npos);
  expectOneLine(outcome.err);
}

TEST_F(BadInputTest, ABrokenLibraryStopsBeforeAnyOutput) {
  struct Case {
    std::string name;
    std::string breaking;
  };
  ASSERT_EQ(shell("echo cat >$T/a.txt; echo dog >$T/b.txt").status, 0);
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
    for (const std::string call :
         {"annotate --layout up", "annotate $T/a.txt $T/b.txt --jobs 2 -o $T/o"}) {
      const Outcome outcome = run(call, "unheardof zzz");
      EXPECT_EQ(outcome.status, 1);
      EXPECT_EQ(outcome.out, "");
      expectOneLine(outcome.err);
    }
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
