#include "annotation/parameters.h"

#include <optional>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/table.h"

namespace voxilane {
namespace {

const std::string defaultText =
    "canshu1=new\r\ncanshu2=\r\ncanshu3=kongge\r\ncanshu4=up\r\ncanshu5=yes\r\ncanshu6=False\r\n"
    "canshu7=True\r\ncanshu8=Lucida Sans Unicode\r\ncanshu9=15\r\n[end]\r\n";

// The default text with some of its lines changed, a comma between them.
std::string textWith(const std::string& changes) {
  std::string text = defaultText;
  std::istringstream lines(changes);
  for (std::string line; std::getline(lines, line, ',');) {
    const auto at = text.find(line.substr(0, line.find('=') + 1));
    text.replace(at, text.find('\r', at) - at, line);
  }
  return text;
}

TEST(Parameters, WithoutAFileAreTheDefaults) {
  EXPECT_EQ(formatParameters(parseParameters("")), defaultText);
  EXPECT_EQ(formatParameters(CanshuSet()), defaultText);
  EXPECT_EQ(parseParameters("").leftBracket, " ");
}

TEST(Parameters, AreReadFromWhateverLinesThereAre) {
  for (const auto& [text, changes] : tableOf<2>(R"(
      canshu4=self¶ canshu4=self                      __canshu3=huiche__¶[end]¶ canshu3=huiche
      canshu2:[ canshu2=[                             canshu2=_[_ canshu2=_[
      canshu8=_My__Font¶ canshu8=_My__Font            canshu1=old¶canshu1=mei¶ canshu1=mei
      canshu1=old¶canshu1¶canshu3=¶canshu4=¶canshu5=¶canshu8= ~
      canshu1=xyz¶canshu5=no canshu1=xyz,canshu5=no   Canshu1=old¶.canshu1=old¶canshu¶=¶ ~
      canshu7=False ~                                 canshu6=True canshu6=True
      canshu6=TRUE¶canshu6=maybe canshu6=True         canshu6=-1 canshu6=True
      canshu6=True¶canshu6=0 ~                        canshu9=0 ~   canshu9=0.5 ~
      canshu9=72¶canshu9=big¶canshu9=32768¶canshu9=-32769 canshu9=72
      canshu9=14.5 canshu9=14     canshu9=15.5 canshu9=16     canshu9=2e1 canshu9=20
      canshu9=32767.4 canshu9=32767                   canshu9=-5 canshu9=-5)")) {
    EXPECT_EQ(formatParameters(parseParameters(text)), textWith(changes)) << text;
  }
  EXPECT_EQ(parseParameters("\tcanshu1=old\ncanshu3=huiche\r").canshu1, "new");
  EXPECT_EQ(parseParameters("canshu1=old\rcanshu3=huiche\n").canshu3, "huiche");
}

TEST(Parameters, BracketsFollowFromTheirStyle) {
  for (const auto& [style, brackets] : tableOf<2>("/ //  [ []  | __  ~ __  ] __  _[ __")) {
    const CanshuSet canshu = parseParameters("canshu2=" + style);
    EXPECT_EQ(canshu.leftBracket + canshu.rightBracket, brackets) << style;
    EXPECT_EQ(canshu.canshu2, style);
  }
}

TEST(Parameters, ComeBackFromTheirOwnText) {
  const std::string text = textWith(
      "canshu1=mei,canshu2=|,canshu3=huiche,canshu4=word2,canshu5=no,canshu6=True,"
      "canshu8=TessaraPhonic,canshu9=2");
  const CanshuSet canshu = parseParameters(text);
  EXPECT_EQ(formatParameters(canshu), text);
  EXPECT_EQ(canshu.edition(), Edition::kk);
  EXPECT_EQ(canshu.separator(), "\r\n");
  EXPECT_EQ(parseParameters("canshu1=xyz").edition(), std::nullopt);
  EXPECT_EQ(parseParameters("canshu3=xyz").separator(), " ");
}

}  // namespace
}  // namespace voxilane
