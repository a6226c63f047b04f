#include "annotation/line_walk.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/support/made_stores.h"
#include "tests/support/stopping_monitor.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

class LineWalkTest : public testing::Test {
 protected:
  std::string walked(std::u16string_view line) {
    return putout1(line, narrow_, transcribe_, monitor_);
  }

  MadeStores stores_{{{"cat", "kAt"},
                      {"sat", "sAt"},
                      {"i", "aI"},
                      {"am", "Am"},
                      {"don", "dRn"},
                      {"t", "ti:"},
                      {"wellknown", "wel"},
                      {"through", "Wru:"},
                      {"bcdefghijklmnop", "15"}},
                     {{"lib", "lib"}}};
  Transcriber transcribe_{stores_.stores(), alignedChain, std::nullopt};
  StoppingMonitor monitor_;
  Brackets narrow_ = bracketsOfStyle("[");
};

TEST_F(LineWalkTest, ColumnsAreHeldByCharacterCounts) {
  // A word at the very end has nothing that ends it.
  for (const auto& [line, expected] : tableOf<2>(R"(
      I_am._____ [aI]__[Am]_______   Cat_SAT_ [kAt]__[sAt]__   through_ [Wru:___]__
      unknown_zz_x_ [_______]__[__]__[__]__   don't_ [dRn]__[ti:]__   2t,_t_ _[ti:]___[ti:]__
      -well-known--cat-_ [____________]__     well-known_-_cat_ [wel______]___[kAt]__
      猫cat中sat. _[kAt]__[sAt]__             猫。_ ___
      abcdefghijklmnop_ [15_____________]__   bcdefghijklmnop_ [15_____________]__
      bcdefghijklmnopq_ [_______________]__   cat_sat [kAt]__   ~ ~)")) {
    EXPECT_EQ(walked(toUtf16(line)), expected) << line;
  }
}

TEST_F(LineWalkTest, ALineInPartsGivesTheSameWhereverItIsCut) {
  const std::u16string line = u"I am-cat. don't \u732B well-kn-own abcdefghijklmnopqrst lib 2t ";
  const std::string whole = walked(line);
  for (std::size_t cut = 0; cut <= line.size(); ++cut) {
    LineWalk walk(narrow_, transcribe_, monitor_);
    std::string out;
    walk.add(std::u16string_view(line).substr(0, cut), out);
    walk.add(std::u16string_view(line).substr(cut), out);
    EXPECT_EQ(out, whole) << cut;
  }
}

TEST_F(LineWalkTest, ParagraphsBecomeLinesAndLongOnesAreTold) {
  const auto document = fenduan1(u"a\r\n\r\n  \r\nb\rc\nd\r\n");
  EXPECT_EQ(document.lines, (std::vector<std::u16string_view>{u"a", u"", u"  ", u"b\rc\nd"}));
  EXPECT_FALSE(document.hasLongParagraph);
  const std::u16string thousand(1000, u'x');
  EXPECT_FALSE(fenduan1(thousand + u"\r\n" + thousand).hasLongParagraph);
  EXPECT_TRUE(fenduan1(u"a\r\n" + thousand + u"x\r\nb").hasLongParagraph);
  EXPECT_EQ(fenduan1(thousand + u"x\r\nb").lines.size(), 2U);
  EXPECT_TRUE(fenduan1(u"").lines.empty());
}

TEST_F(LineWalkTest, BlankLinesVanishAndTheOthersKeepTheirText) {
  const auto aligned =
      walkLines({u" well-known", u"", u"   ", u"I am."}, narrow_, transcribe_, monitor_);
  EXPECT_EQ(aligned.List3, (std::vector<std::u16string>{u" well-known     ", u"I am.     "}));
  EXPECT_EQ(aligned.List31,
            (std::vector<std::string>{"  [wel      ]      ", " [aI]  [Am]       "}));
}

TEST_F(LineWalkTest, LinesAfterAStopGetOnlyTheBlank) {
  StoppingMonitor atSecondLine(2);
  const auto byProgress = walkLines({u"cat", u"sat", u"sat"}, narrow_, transcribe_, atSecondLine);
  EXPECT_EQ(byProgress.List3.size(), 3U);
  EXPECT_EQ(byProgress.List31, (std::vector<std::string>{" [kAt]      ", " ", " "}));

  stores_.made.onAsk = [this](std::string_view word) {
    if (word == "lib") monitor_.keepRecognising = false;
  };
  const auto byWord = walkLines({u"cat lib sat", u"sat"}, narrow_, transcribe_, monitor_);
  EXPECT_EQ(byWord.List31, (std::vector<std::string>{" [kAt]  [lib]  ", " "}));
}

TEST_F(LineWalkTest, AFailingLibraryStopsTheWalk) {
  stores_.made.failure = "disk";
  const auto aligned = walkLines({u"cat zzz sat", u"sat"}, narrow_, transcribe_, monitor_);
  EXPECT_EQ(aligned.List31, (std::vector<std::string>{" [kAt]  [   ]  ", " "}));
  EXPECT_TRUE(monitor_.fault);
}

TEST_F(LineWalkTest, ALongLineTellsItsProgressAndCanBeStopped) {
  std::u16string line;
  while (line.size() < 20000) line += u"cat ";
  StoppingMonitor stopping(2);
  const std::string out = putout1(line, narrow_, transcribe_, stopping);
  ASSERT_GE(stopping.reports.size(), 2U);
  EXPECT_GT(out.size(), 0U);
  EXPECT_LT(out.size(), walked(line).size());
}

}  // namespace
}  // namespace voxilane
