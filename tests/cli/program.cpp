#include "tests/cli/program.h"

#include <sys/wait.h>

#include "lexicon/store_writers.h"
#include "platform/code_page.h"

namespace voxilane {
namespace {

constexpr const char* words =
    "word\tyinbiao\treadings\tsource\tlemma\trank\tlevels\tgloss\n"
    "cat\tkAt\t\ttest\t\t1\t\tn. 猫\n"
    "dog\tdRg\t\ttest\t\t2\t\tn. 狗；犬\n"
    "run\trQn\t\ttest\t\t3\t\tv. 跑\n"
    "sat\tsAt\t\ttest\t\t4\t\t\n"
    "zero\t5ziErEu\t\ttest\t\t\t\tnum. 零\n";

}  // namespace

ProgramTest::ProgramTest() {
  const auto rows = parseWordRows(words);
  EXPECT_TRUE(rows);
  EXPECT_TRUE(writeLibrary(rows.value(), directory / "data.dat"));
  directory.write("dictionary.txt", toCodePage(dictionaryText(rows.value())));
}

Outcome ProgramTest::shell(const std::string& script) const {
  directory.write(".script", script);
  const std::string command =
      "V=" VOXILANE_CLI " T=" + directory.path() + " XDG_STATE_HOME=" + (directory / ".state") +
      " sh " + (directory / ".script") + " >" + (directory / ".out") + " 2>" + (directory / ".err");
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, directory.read(".out"),
          directory.read(".err")};
}

Outcome ProgramTest::run(const std::string& arguments, const std::string& input) const {
  directory.write(".in", input);
  return shell("\"$V\" --home \"$T\" " + arguments + " <\"$T/.in\"");
}

std::string ProgramTest::output(const std::string& arguments, const std::string& input) const {
  const Outcome outcome = run(arguments, input);
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  return outcome.out;
}

}  // namespace voxilane
