#include "platform/code_page.h"
#include "tests/cli/program.h"

namespace voxilane {
namespace {

class AnnotateTest : public ProgramTest {};

TEST_F(AnnotateTest, EveryLayoutAndSpelling) {
  const std::string text = "A cat, a dog\nsat.";
  struct Case {
    std::string options;
    std::string expected;
  };
  const std::vector<Case> cases{
      {"--layout dangqian --brackets square", "A cat[kæt] , a dog[dɒg] \nsat[sæt] ."},
      {"--layout dangqian --brackets square --to unicode", "A cat[kæt] , a dog[dɐg] \nsat[sæt] ."},
      {"--layout dangqian --separator huiche --edition old",
       "A cat kæt \n, a dog dɔg \n\nsat sæt \n."},
      {"--layout up --brackets slash",
       " /  /  /kæt/   /  /  /dɒg/      \nA cat, a dog     \n /sæt/       \nsat.     \n"},
      {"--layout down --brackets slash",
       "A cat, a dog     \n /  /  /kæt/   /  /  /dɒg/      \nsat.     \n /sæt/       \n"},
      {"--layout self --brackets square --edition mei", "A cat, a dog\nsat.\n[kæt][dɑg]"},
      {"--layout dangqian --edition none", "A cat kæt  , a dog dɔg  \nsat sæt  ."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.options);
    EXPECT_EQ(output("annotate " + c.options, text), c.expected);
  }
  EXPECT_EQ(output("--codes annotate --layout self --brackets square", text),
            "A cat, a dog\nsat.\n[kAt][d2g]");
}

TEST_F(AnnotateTest, ParametersComeFromTheirFileUnlessGiven) {
  directory.write("canshushezhi.txt", "canshu1=old\r\ncanshu2=[\r\ncanshu4=dangqian\r\n");
  EXPECT_EQ(output("--codes annotate", "dog"), "dog[dRg] ");
  EXPECT_EQ(output("--codes annotate --brackets slash --edition new", "dog"), "dog/d2g/ ");
  directory.write("canshushezhi.txt", "canshu4=sideways\r\n");
  EXPECT_EQ(output("annotate", "dog\r\ncat"), "dog\ncat");
}

TEST_F(AnnotateTest, PagesAreInTheEncodingThatTheyDeclare) {
  const std::string page = output("annotate --layout down --to html --size 12", "猫 cat");
  EXPECT_NE(page.find("charset=gbk"), std::string::npos);
  EXPECT_NE(page.find(toCodePage("猫 cat     <br>")), std::string::npos);
  EXPECT_NE(page.find("k&#230;t"), std::string::npos);
  EXPECT_NE(page.find("font-size: 11px"), std::string::npos);
}

TEST_F(AnnotateTest, BlankDocumentsComeOutAsTheyAre) {
  for (const std::string layout : {"dangqian", "up", "self"}) {
    EXPECT_EQ(output("annotate --layout " + layout, "   "), "   ");
    EXPECT_EQ(output("annotate --layout " + layout, ""), "");
  }
}

// What is annotated as it streams must equal what is annotated whole; a page needs the whole
// document, and its text is checked against the streamed one.
TEST_F(AnnotateTest, StreamsAreAnnotatedLikeFiles) {
  std::string text;
  for (int i = 0; i < 20'000; ++i) {
    text += i % 7 == 0 ? "cat-dog\n" : "the cat's dogs, ";
  }
  text += std::string(150'000, 'x') + "cat " + std::string(70'000, '\'') + "\r\n猫run";
  directory.write("big.txt", text);
  for (const std::string layout : {"dangqian", "up", "down", "self"}) {
    SCOPED_TRACE(layout);
    const std::string fromFile = output("annotate $T/big.txt --layout " + layout);
    const Outcome piped = shell(
        "(head -c 70001 $T/big.txt; sleep 0.1; tail -c +70002 $T/big.txt)"
        " | $V --home $T annotate --layout " +
        layout);
    EXPECT_EQ(piped.out, fromFile);
    EXPECT_GT(fromFile.size(), text.size());
  }
}

// A document that begins with many blanks: in the layouts of lines they must wait for the first
// word.
TEST_F(AnnotateTest, BlanksBeforeTheFirstWordAreKept) {
  const std::string blanks(200'000, ' ');
  EXPECT_EQ(output("--codes annotate --layout dangqian", blanks + "cat"), blanks + "cat kAt  ");
  const std::string lines =
      output("--codes annotate --layout down", blanks + "\r\n" + blanks + "cat");
  EXPECT_EQ(lines.substr(0, blanks.size() + 9), blanks + "cat     \n");
}

TEST_F(AnnotateTest, SeveralInputsGoToAFolder) {
  directory.write("a.txt", "cat");
  directory.write("b.md", "dog");
  EXPECT_EQ(
      run("--codes annotate $T/a.txt $T/b.md $T/none -o $T/out --layout self --jobs 2").status, 1);
  EXPECT_EQ(directory.read("out/a.txt"), "cat\n kAt ");
  EXPECT_EQ(directory.read("out/b.txt"), "dog\n d2g ");
  EXPECT_EQ(run("annotate $T/a.txt $T/b.md").status, 2);
  EXPECT_EQ(run("annotate $T/a.txt $T/out/a.txt -o $T/out").status, 2);
}

}  // namespace
}  // namespace voxilane
