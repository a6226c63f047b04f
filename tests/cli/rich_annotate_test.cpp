#include "tests/cli/program.h"

namespace voxilane {
namespace {

class RichAnnotateTest : public ProgramTest {
 protected:
  // What the program writes of a document, without the line of its name.
  static std::string body(const std::string& rtf) {
    const auto start = rtf.find("\\pard");
    return start == std::string::npos ? rtf : rtf.substr(start);
  }
};

TEST_F(RichAnnotateTest, TextBecomesRichTextInItsLooks) {
  const std::string rtf =
      output("annotate --layout dangqian --edition none --brackets square --to rtf", "cat 猫\n");
  EXPECT_NE(rtf.find("{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}"), std::string::npos) << rtf;
  EXPECT_NE(rtf.find("TessaraPhonic;}"), std::string::npos);
  EXPECT_EQ(body(rtf), "\\pard cat\\f1\\fs30\\cf1 [kAt] \\f0\\fs24\\cf0  \\'c3\\'a8\\par\r\n}\r\n");
}

TEST_F(RichAnnotateTest, RichTextKeepsItsLooks) {
  directory.write("a.rtf",
                  "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red255\\green0\\blue0;}"
                  "\\qc\\fs40 A {\\b\\cf1 cat} \\\\ sat{\\pict 00}.}");
  const Outcome outcome = run("annotate $T/a.rtf -o $T/b.rtf --layout dangqian --edition none");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err.find("a.rtf: left out: pictures\n") == std::string::npos, false)
      << outcome.err;
  EXPECT_EQ(body(directory.read("b.rtf")),
            "\\pard\\qc\\fs40 A \\cf1\\b cat\\f1\\fs30\\cf2  kAt  \\f0\\fs40\\cf0\\b0  \\\\\\\\ sat"
            "\\f1\\fs30\\cf2  sAt  \\f0\\fs40\\cf0 .}\r\n")
      << "a backslash is doubled as in any saved document";
}

TEST_F(RichAnnotateTest, RichTextBecomesPlain) {
  directory.write("a.rtf", "{\\rtf1 cat\\line {\\i sat}\\par dog}");
  const std::string codes = "--codes annotate $T/a.rtf --edition none --brackets slash ";
  EXPECT_EQ(output(codes + "--layout dangqian"), "cat/kAt/ \nsat/sAt/ \ndog/dRg/ ");
  EXPECT_EQ(output(codes + "--layout up"),
            " /kAt/      \ncat     \n /sAt/      \nsat     \n"
            " /dRg/      \ndog     \n");
  EXPECT_NE(output(codes + "--layout dangqian --to html").find("cat<span"), std::string::npos);
}

TEST_F(RichAnnotateTest, SeveralGoIntoAFolderAsRichText) {
  directory.write("a.rtf", "{\\rtf1 cat}");
  directory.write("b.txt", "cat");
  EXPECT_EQ(run("annotate $T/a.rtf $T/b.txt -o $T/out --to rtf").status, 0);
  EXPECT_EQ(directory.read("out/a.rtf").substr(0, 6), "{\\rtf1");
  EXPECT_EQ(directory.read("out/b.rtf").substr(0, 6), "{\\rtf1");
}

TEST_F(RichAnnotateTest, ABlankDocumentComesOutAsItIs) {
  EXPECT_EQ(body(output("annotate --layout self --to rtf", " \n")).find("\\f1"), std::string::npos);
}

}  // namespace
}  // namespace voxilane
