#include "annotation/web_page.h"

#include <string>

#include <gtest/gtest.h>

#include "core/text.h"

namespace voxilane {
namespace {

const Recognition catSat{{"kAt", "5sAt"}, {3, 7}};
const AlignedLines twoLines{{u"I am.     ", u"cat     "}, {" [aI]  [Am]       ", " [kAt]      "}};

std::string page(const std::string& size1, const std::string& size2, const std::string& body) {
  return "<html><head><meta http-equiv=Content-Type content=text/html; charset=gbk />"
         "<meta http-equiv=content-language content=gbk /><style type=text/css><!--\r\n"
         ".pronounce1{font-family: Lucida Sans Unicode, Microsoft Sans Serif;font-size: " +
         size1 +
         "px;color: #0033FF;}\r\n"
         ".pronounce{font-family:TessaraPhonic;font-size: " +
         size2 + "px;color: #0033FF;}\r\n--></style><body bgcolor=#ffffff>" + body +
         "</body></html>\r\n";
}

TEST(WebPage, OfDangqianHasEachTranscriptionBehindItsWord) {
  const std::string expected = page("15", "15",
                                    "cat<span class=pronounce1>[k&#230;t] </span> sat"
                                    "<span class=pronounce1>['s&#230;t] </span>  ");
  EXPECT_EQ(dangqianPage(u"cat sat", catSat, parseParameters("canshu2=[")), expected);
  EXPECT_EQ(dangqianPage(u"cat sat", catSat, parseParameters("canshu2=[\ncanshu8=TessaraPhonic")),
            expected)
      << "the font plays no part";
  EXPECT_EQ(dangqianPage(u"cat\r\nsat<&猫", {{"kAt"}, {3}},
                         parseParameters("canshu2=|\ncanshu3=huiche\ncanshu9=20")),
            page("20", "20", "cat<span class=pronounce1> k&#230;t \r\n</span>\r\nsat<&猫  "));
  EXPECT_EQ(dangqianPage(u"zzz", {}, CanshuSet()), page("15", "15", "zzz  "));
}

TEST(WebPage, OfUpAndDownHasPairsOfLines) {
  const CanshuSet unicode = parseParameters("canshu2=[");
  const CanshuSet codes = parseParameters("canshu2=[\ncanshu8=TessaraPhonic");
  EXPECT_EQ(alignedPage(Layout::up, twoLines, unicode),
            page("15", "15",
                 "<span class=pronounce1> [a&#618;]  [&#230;m]       </span><br>I am.     <br>"
                 "<span class=pronounce1> [k&#230;t]      </span><br>cat     <br>"));
  EXPECT_EQ(alignedPage(Layout::down, twoLines, codes),
            page("14", "15",
                 "I am.     <br><span class=pronounce> [aI]  [Am]       </span><br>"
                 "cat     <br><span class=pronounce> [kAt]      </span><br>"));
}

TEST(WebPage, OfSelfHasTheBlockBehindARule) {
  EXPECT_EQ(
      selfPage(u"cat\r\nsat", catSat, parseParameters("canshu2=[\ncanshu3=huiche")),
      page("15", "15", "cat<br>sat  <br><hr><span class=pronounce1>[k&#230;t]['s&#230;t]</span>"));
  EXPECT_EQ(selfPage(u"cat sat", catSat, parseParameters("canshu8=TessaraPhonic\ncanshu9=2")),
            page("2", "2", "cat sat  <br><hr><span class=pronounce> kAt  5sAt </span>"));
  EXPECT_EQ(selfPage(u"zzz", {}, CanshuSet()),
            page("15", "15", "zzz  <br><hr><span class=pronounce1></span>"));
}

TEST(Frames, StandAroundEachTranscriptionInTheDocument) {
  const auto shown = [](const RunFrame& frame) { return frame.before + "y" + frame.after; };
  EXPECT_EQ(shown(dangqianFrame(parseParameters("canshu2=["))), "[y] ");
  EXPECT_EQ(shown(dangqianFrame(parseParameters("canshu2=|\ncanshu3=huiche"))), " y \r\n");
  EXPECT_EQ(shown(selfFrame(parseParameters("canshu2=/\ncanshu3=huiche"))), "/y/");
}

}  // namespace
}  // namespace voxilane
