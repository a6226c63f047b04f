#include "annotation/selected_word.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/support/made_stores.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

TEST(SelectedWord, NothingButBlanksIsNoSelection) {
  for (const char16_t* selection : {u"", u"   "}) {
    const auto refusal = selectionRefusal(selection);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->text, "当前未选定内容");
    EXPECT_EQ(refusal->icon, MessageIcon::information);
  }
}

TEST(SelectedWord, OnlyWordsNumbersAndTrailingBlanksPass) {
  for (const auto& [good] : tableOf<1>("cat CAT don't 3.14 １２３４５６７８９０ cat__")) {
    EXPECT_FALSE(selectionRefusal(toUtf16(good))) << good;
  }
  // As many characters are looked at as there are without the blanks at both ends.
  for (const auto& [bad] : tableOf<1>("_cat well-known two_words cat, cat¶ 猫 caté ｃａｔ a’s")) {
    const auto refusal = selectionRefusal(toUtf16(bad));
    ASSERT_TRUE(refusal) << bad;
    EXPECT_EQ(refusal->text,
              "选定内容（" + bad + "）中存在空格或非英文字符，选定内容不是英文单词！");
    EXPECT_EQ(refusal->icon, MessageIcon::stop);
  }
}

TEST(SelectedWord, TheTranscriptionStandsBehindTheWordAsItWasTyped) {
  MadeStores stores({{"go", "gEu"}, {"apple", "5Apl"}, {"don't", "dEunt"}},
                    {{"go", "other"}, {"blank", " "}, {"tables", "5teiblz"}});
  for (const auto& [selection, edition, parameters, transcription] : tableOf<4>(R"(
      Apple new canshu2=[ [5Apl]_          GO__ new canshu2=/ /gEJ/_
      go old canshu2=[¶canshu1=mei [gEu]_  go mei canshu2=[¶canshu3=huiche [go]¶
      tables new canshu2=[ [5teIblz]_      Don't new canshu2=[ [dEJnt]_
      going old canshu2=[ [otheriN]_       zzz new canshu2=[ [__]_
      3.14 mei canshu2=| _____             blank mei canshu2=[ [_]_)")) {
    const CanshuSet canshu = parseParameters(parameters);
    const MarkedWord marked =
        markSelection(toUtf16(selection), *editionNamed(edition), canshu, stores.stores());
    EXPECT_EQ(toUtf8(marked.word), selection);
    EXPECT_EQ(marked.transcription, transcription) << selection;
  }
}

}  // namespace
}  // namespace voxilane
