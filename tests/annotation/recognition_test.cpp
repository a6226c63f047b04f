#include "annotation/recognition.h"

#include <algorithm>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "annotation/layouts.h"
#include "core/text.h"
#include "tests/support/made_stores.h"
#include "tests/support/stopping_monitor.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

const std::string twenty = "abcdefghijklmnopqrst";

class RecognitionTest : public testing::Test {
 protected:
  using Scan = Recognition (*)(std::u16string_view, Transcriber&, PassMonitor&);

  static Recognition scanWhole(std::u16string_view text, Transcriber& transcribe,
                               PassMonitor& passMonitor) {
    return recognitionPass(text, transcribe, passMonitor);
  }

  // What a scan finds: each transcription with the position behind its word.
  std::string found(Scan scan, std::u16string_view text) {
    return shown(scan(text, transcribe_, monitor_));
  }
  static std::string shown(const Recognition& recognition) {
    EXPECT_EQ(recognition.List4.size(), recognition.List5.size());
    std::string line;
    for (std::size_t i = 0; i < recognition.List4.size(); ++i) {
      line += recognition.List4[i] + "@" + std::to_string(recognition.List5[i]) + " ";
    }
    return line;
  }

  MadeStores stores_{{{"cat", "kAt"},
                      {"sat", "sAt"},
                      {"don't", "dEunt"},
                      {twenty, "twenti"},
                      {"nd", "nd"},
                      {"a", "E"}},
                     {{"lib", "lib"}, {"blank", "  "}}};
  Transcriber transcribe_{stores_.stores(), dangqianChain, std::nullopt};
  StoppingMonitor monitor_;
};

TEST_F(RecognitionTest, FindsWordsWithTheirPlaces) {
  for (const auto& [text, expected] : tableOf<2>(R"(
      ~ ~  cat_sat kAt@3_sAt@7_  Cat,SAT kAt@3_sAt@7_  cat¶sat¶ kAt@3_sAt@8_
      zzz_cat_zzz_blank kAt@7_   Don't dEunt@5_   'cat'_'lib lib@10_   2nd nd@3_
      cat-sat kAt@3_sAt@7_   cat中sat猫 kAt@3_sAt@7_   🐈cat kAt@5_   ｃａｔ_caté kAt@7_
      cats_lib kAts@4_lib@8_
      abcdefghijklmnopqrst twenti@20_   xABCDEFGHIJKLMNOPQRST twenti@21_
      ABCXYZabcdefghijklmnopqrst_cat twenti@26_kAt@30_   abcdefghijklmnopqrstx ~)")) {
    EXPECT_EQ(found(scanWhole, toUtf16(text)), expected) << text;
  }
}

TEST_F(RecognitionTest, ATextInTwoPiecesGivesTheSameWhereverItIsCut) {
  const std::u16string text = u"a cat's a,cat\r\nsat x" + toUtf16(twenty + twenty + " " + twenty) +
                              u"\u732B'cat don't  lib";
  const std::string whole = found(scanWhole, text);
  for (std::size_t cut = 0; cut <= text.size(); ++cut) {
    SCOPED_TRACE(cut);
    const std::u16string_view known = std::u16string_view(text).substr(0, cut);
    const std::size_t taken = recognisableLength(known);
    ASSERT_LE(taken, cut);
    EXPECT_LE(cut - taken, 20U);
    Recognition pieces =
        recognitionPass(known.substr(0, taken), transcribe_, monitor_, TextEnd::continues);
    const Recognition rest =
        scanWhole(std::u16string_view(text).substr(taken), transcribe_, monitor_);
    for (std::size_t i = 0; i < rest.List4.size(); ++i) {
      pieces.List4.push_back(rest.List4[i]);
      pieces.List5.push_back(rest.List5[i] + taken);
    }
    EXPECT_EQ(shown(pieces), whole);
  }
}

TEST_F(RecognitionTest, ForSelfACandidateBeginsWithWhatEndedTheLast) {
  // Where the reach of 21 characters ends within a word, that word is taken afresh.
  for (const auto& [text, expected] : tableOf<2>(R"(
      ~ ~  cat_sat kAt@3_sAt@7_  cat,sat_cat,_sat kAt@3_kAt@11_sAt@16_  cat¶sat_cat kAt@3_kAt@12_
      CAT__Sat kAt@3_sAt@8_   ,sat sAt@4_
      cat_cat_cat_cat,sat_a     kAt@3_kAt@7_kAt@11_kAt@15_E@21_
      cat_cat_cat_cat_a,sat_a   kAt@3_kAt@7_kAt@11_kAt@15_E@17_sAt@21_E@23_
      cat_cat_cat_cat_cat,sat   kAt@3_kAt@7_kAt@11_kAt@15_kAt@19_sAt@23_
      abcdefghijklmnopqrst twenti@20_   xyzzyabcdefghijklmnopqrst,_cat twenti@25_kAt@30_)")) {
    EXPECT_EQ(found(recogniseForSelf, toUtf16(text)), expected) << text;
  }
}

TEST_F(RecognitionTest, AStopKeepsWhatWasFound) {
  for (const Scan scan : {scanWhole, recogniseForSelf}) {
    StoppingMonitor monitor;
    stores_.made.onAsk = [&](std::string_view word) {
      if (word == "lib") monitor.keepRecognising = false;
    };
    Transcriber transcribe(stores_.stores(), dangqianChain, std::nullopt);
    EXPECT_EQ(shown(scan(u"cat lib sat", transcribe, monitor)), "kAt@3 lib@7 ");
    EXPECT_EQ(shown(scan(u"cat lib sat", transcribe, monitor)), "") << "stopped before it began";
  }
}

TEST_F(RecognitionTest, ProgressIsToldInTimeAndCanStop) {
  std::u16string text;
  while (text.size() < 20000) text += u"cat sat, ";
  for (const Scan scan : {scanWhole, recogniseForSelf}) {
    StoppingMonitor watching;
    const Recognition whole = scan(text, transcribe_, watching);
    ASSERT_GE(watching.reports.size(), 3U);
    std::size_t last = 0;
    for (const auto& [done, total] : watching.reports) {
      EXPECT_GE(done, last);
      EXPECT_LT(done - last, 5000U);
      EXPECT_LE(done, total);
      last = done;
    }
    StoppingMonitor stopping(2);
    const Recognition part = scan(text, transcribe_, stopping);
    EXPECT_EQ(stopping.reports.size(), 2U);
    ASSERT_LT(part.List5.size(), whole.List5.size());
    ASSERT_FALSE(part.List5.empty());
    EXPECT_LE(part.List5.back(), stopping.reports.back().done + 20);
    EXPECT_TRUE(std::equal(part.List5.begin(), part.List5.end(), whole.List5.begin()));
  }
}

TEST_F(RecognitionTest, AFailingLibraryStopsTheReading) {
  stores_.made.failure = "disk";
  EXPECT_EQ(found(scanWhole, u"cat lib sat"), "kAt@3 ");
  ASSERT_TRUE(monitor_.fault);
  EXPECT_EQ(monitor_.fault->why, "disk");
  EXPECT_FALSE(monitor_.keepRecognising);
  EXPECT_TRUE(monitor_.keepWriting);
}

TEST_F(RecognitionTest, ASecondStopWritesNothing) {
  const Recognition recognition = scanWhole(u"cat sat", transcribe_, monitor_);
  monitor_.keepRecognising = false;
  EXPECT_EQ(shown(toWrite(recognition, monitor_)), "kAt@3 sAt@7 ");
  monitor_.keepWriting = false;
  EXPECT_EQ(shown(toWrite(recognition, monitor_)), "");
}

TEST(Layouts, HaveTheirNamesAndOrders) {
  MadeStores stores({{"cat", "list"}, {"dog", "list"}}, {{"cats", "data"}, {"dog", "data"}});
  for (const auto& [name, answers] : tableOf<2>(R"(
      dangqian data_lists  up lists_lists  down lists_lists
      self data_dataz  word1 data_dataz  word2 data_dataz)")) {
    SCOPED_TRACE(name);
    const auto layout = layoutNamed(name);
    ASSERT_TRUE(layout);
    std::string found = lookUp(stores.stores(), chainOf(*layout), "cats").yinbiao;
    found += " " + lookUp(stores.stores(), chainOf(*layout), "dogs").yinbiao;
    EXPECT_EQ(found, answers);
  }
  for (const char* name : {"", "word", "UP"}) EXPECT_FALSE(layoutNamed(name)) << name;
  EXPECT_TRUE(isBlankDocument(u"   "));
  EXPECT_FALSE(isBlankDocument(u" \r\n"));
}

}  // namespace
}  // namespace voxilane
