#include "platform/code_page.h"
#include "tests/cli/program.h"

namespace voxilane {
namespace {

class DocumentToolsTest : public ProgramTest {
 protected:
  // A rich text source with two fonts.
  const std::string source =
      "{\\rtf1\\ansi\\ansicpg936{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset134 "
      "\\'cb\\'ce\\'cc\\'e5;}}\r\n"
      "{\\colortbl ;}\\f1 a\\\\b \xCB\xCE\\par\r\n}";
};

TEST_F(DocumentToolsTest, ReconvertRewritesPlainText) {
  struct Case {
    std::string arguments;
    std::string input;
    std::string expected;
  };
  const std::vector<Case> cases{
      {"--to new", "hit [hit]\r\n", "hit [hIt]\n"},
      {"--to old --brackets slash", "/h2t/ 3/4", "/hRt/ 3/4"},
      {"--to mei -", "[5ziErEu] 猫[猫i:]", "[5zIrro] 猫[猫i]"},
      {"--to mei", toCodePage("狗 [i:\r\nt]"), "狗 [i\nt]"},
      {"--to mei", "", ""},
      {"--to new --report", "[hit]\n/i/ [kAt] [\\i\ti\n] [hu:]",
       "2\thit\thIt\n19\t\\\\i\\ti\\n\t\\\\I\\tI\\n\nfound 4 changed 2\n"},
      {"--to new --report --brackets slash", "none", "found 0 changed 0\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.arguments);
    EXPECT_EQ(output("reconvert " + c.arguments, c.input), c.expected);
    EXPECT_EQ(output("--codes reconvert " + c.arguments, c.input), c.expected);
  }
}

TEST_F(DocumentToolsTest, ReconvertKeepsTheFormattingOfRichText) {
  const std::string text =
      "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\pict 00}\\qc a [h\\b i:\\b0 t]\\par\\pard [\\'e8iE]}";
  EXPECT_EQ(output("reconvert --to mei --report", text),
            "4\thi:t\thit\n12\tèiE\tèIr\nfound 2 changed 2\n");
  directory.write("a.rtf", text);
  const Outcome outcome = run("reconvert $T/a.rtf --to mei -o $T/b.rtf");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.err.find("a.rtf: left out: pictures\n"), std::string::npos) << outcome.err;
  const std::string written = directory.read("b.rtf");
  EXPECT_NE(written.find("\\qc a [h\\b i\\b0 t]\\par"), std::string::npos) << written;
}

TEST_F(DocumentToolsTest, ReconvertTakesTheBracketsOfTheParameters) {
  directory.write("canshushezhi.txt", "canshu2=/\r\n");
  EXPECT_EQ(output("reconvert --to new", "/hit/ [hit]"), "/hIt/ [hit]");
  EXPECT_EQ(output("reconvert --to new --brackets square", "/hit/ [hit]"), "/hit/ [hIt]");
}

TEST_F(DocumentToolsTest, ReconvertReadsPiecesAsOneText) {
  std::string text;
  std::string expected;
  std::string report;
  for (int i = 0; i < 30'000; ++i) {
    report += std::to_string(text.size() + 2) + "\ti" + std::to_string(i) + "\tI" +
              std::to_string(i) + "\n";
    text += "[i" + std::to_string(i) + "]\r\n";
    expected += "[I" + std::to_string(i) + "]\n";
  }
  EXPECT_EQ(output("reconvert --to new", text), expected);
  EXPECT_EQ(output("reconvert --to new --report", text), report + "found 30000 changed 30000\n");
}

TEST_F(DocumentToolsTest, ReconvertTakesItsOwnOutputFile) {
  directory.write("a.txt", "[hit]");
  EXPECT_EQ(output("reconvert $T/a.txt --to new -o $T/a.txt"), "");
  EXPECT_EQ(directory.read("a.txt"), "[hIt]");
}

TEST_F(DocumentToolsTest, RefontRenamesInTheSource) {
  directory.write("a.rtf", source);
  struct Case {
    std::string arguments;
    std::string before;
    std::string after;
  };
  const std::vector<Case> cases{
      {"--from Arial --to Georgia", "Arial", "Georgia"},
      {"--from 宋体 --to 楷体", "\\'cb\\'ce", "\\'bf\\'ac"},
      {"--from @宋体 --to 'A B'", "\\'cb\\'ce\\'cc\\'e5", "A B"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.arguments);
    std::string expected = source;
    expected.replace(expected.find(c.before), c.before.size(), c.after);
    EXPECT_EQ(output("refont $T/a.rtf " + c.arguments), expected);
    EXPECT_EQ(output("refont " + c.arguments, source), expected);
  }
}

TEST_F(DocumentToolsTest, RefontSaysWhyItCannot) {
  directory.write("out", "old");
  struct Case {
    std::string arguments;
    std::string input;
    int status;
    std::string err;
  };
  const std::vector<Case> cases{
      {"--from arial --to B", source, 1,
       "standard input: 文档没有使用您想替换的字体，没有转换操作发生！"},
      {"--from Arial --to @Arial", source, 1, "refont: 您选择的是同一种字体，无需转换！"},
      {"--from ' ' --to ''", source, 1, "refont: 请选择好要转换的字体!"},
      {"--from A --to ''", source, 1, "refont: 请选择转换后的字体!"},
      {"--from A --to B", "{\\rt", 1, "standard input: is no rich text"},
      {"--from A --to B", "", 1, "standard input: is no rich text"},
      {"$T/missing --from A --to B", "", 1, ""},
      {"--from Arial --to 'B;}{\\f7 C'", source, 2, ""},
      {"--from Arial", source, 2, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.arguments);
    const Outcome outcome = run("refont -o $T/out " + c.arguments, c.input);
    EXPECT_EQ(outcome.status, c.status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err.rfind("voxilane-cli: " + c.err, 0), 0U) << outcome.err;
    EXPECT_EQ(directory.read("out"), "old");
  }
}

}  // namespace
}  // namespace voxilane
