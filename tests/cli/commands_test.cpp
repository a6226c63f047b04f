#include "tests/cli/program.h"

namespace voxilane {
namespace {

class CommandsTest : public ProgramTest {};

TEST_F(CommandsTest, PrintWhatTheyPromise) {
  struct Case {
    std::string arguments;
    std::string input;
    std::string expected;
  };
  const std::vector<Case> cases{
      {"mark Cat --brackets square --edition mei", "", "Cat[kæt] "},
      {"mark 'xyz ' --separator huiche", "", "xyz     \n"},
      {"--codes lookup dog dogs 'zero' --edition new", "",
       "dog\td2g\tlist\ndogs\td2gz\trule-list\nzero\t5zIErEJ\tdata\n"},
      {"lookup --chain data cats nothing", "", "cats\tkæts\trule-data\nnothing\t\t-\n"},
      {"lookup", "cat\r\n\nrunning", "cat\tkæt\tlist\n\t\t-\nrunning\trʌniŋ\trule-list\n"},
      {"infer --against base running zeros", "", "running\trun\nzeros\tzero\n"},
      {"infer --against gloss dogs", "", "dogs\tn.狗，犬\n"},
      {"--codes convert --to mei dRg fR:", "", "dBg\nfC\n"},
      {"convert --to new dRg", "", "dɒg\n"},
      {"convert --to entities 5eIFEn", "", "'e&#618;&#643;&#601;n\n"},
      {"convert --to codes", "ˈzɪərəʊ\nk'æt", "5zIErEJ\nk5At\n"},
      {"syllables 5ziErEu ˈzɪərəʊ", "", "2\n2\n"},
      {"number 31 --brackets square --codes", "", "[5W3:tI-[wQn]\n"},
      {"number 0.5 --runs --brackets slash --codes", "",
       "blue\t//\nblack\t pCint \nblue\t/faIv/\n"},
      {"year 0 --codes", "", "\n"},
      {"phone 010 --codes --brackets square", "", "[ wQn ][ Eu ]\n"},
      {"explain 'c at' ghost", "", "cat  :  n.猫\nghost  :  没找到！\n"},
      {"library get ZERO --codes", "", "5ziErEu\n"},
      {"library check", "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.arguments);
    EXPECT_EQ(output(c.arguments, c.input), c.expected);
  }
}

TEST_F(CommandsTest, WordsMayBeNamesOfCommands) {
  EXPECT_EQ(output("--codes lookup year cat infer"), "year\t\t-\ncat\tkAt\tlist\ninfer\t\t-\n");
}

TEST_F(CommandsTest, ALineIsAnsweredBeforeTheNextIsWritten) {
  const Outcome outcome = shell(
      "mkfifo $T/to $T/from\n"
      "$V --home $T --codes lookup <$T/to >$T/from &\n"
      "exec 3>$T/to 4<$T/from\n"
      "echo cat >&3; read -r first <&4; echo \"$first\"\n"
      "echo 猫 >&3; read -r second <&4; echo \"$second\"\n"
      "exec 3>&-; wait\n");
  EXPECT_EQ(outcome.out, "cat\tkAt\tlist\n猫\t\t-\n");
}

TEST_F(CommandsTest, LibraryCheckPrintsRowsThatBreakTheNotation) {
  directory.write("dictionary.txt", " !=||\r\ncat=|g|kAt\r\ndog=|g|d2g\r\n~ ~=||\r\n");
  const Outcome outcome = run("--codes library check");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "list\tdog\td2g\tnot a code of the 13th edition: 2\n");
}

TEST_F(CommandsTest, LibraryInfoCountsTheStores) {
  directory.write("selfmake.dat", "new,nju:,old\r\n\r\nno comma\r\n");
  EXPECT_EQ(output("library info"),
            "list_entries\t6\nlibrary_words\t5\nlibrary_glosses\t4\nown_entries\t1\n");
}

// The library that is delivered, not a made-up one.
TEST(DeliveredLibraryTest, IsLargeAndKeepsToTheNotation) {
  const TemporaryDirectory directory;
  const std::string program = std::string(VOXILANE_CLI) + " --home " VOXILANE_PROGRAM_DIRECTORY;
  EXPECT_EQ(std::system((program + " library check >" + (directory / "check")).c_str()), 0);
  ASSERT_EQ(std::system((program + " library info >" + (directory / "info")).c_str()), 0);
  const std::string info = directory.read("info");
  const auto figure = [&](const std::string& name) {
    return std::stoul(info.substr(info.find(name) + name.size() + 1));
  };
  EXPECT_EQ(figure("list_entries"), 32767U);
  EXPECT_GE(figure("library_words"), 200'000U);
  EXPECT_GE(figure("library_glosses"), 200'000U);
}

}  // namespace
}  // namespace voxilane
