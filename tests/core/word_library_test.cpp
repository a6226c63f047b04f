#include "core/word_library.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/field_cipher.h"
#include "tests/support/made_stores.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

using Asked = std::vector<std::string>;

TEST(YinbiaoOfRow, IsTextWhateverTheRowHolds) {
  EXPECT_EQ(yinbiaoOfRow(jiamiField("kAt")), "kAt");
  EXPECT_EQ(yinbiaoOfRow(jiamiField("k\xFFt")), "k\xEF\xBF\xBDt");
}

TEST(FieldCipher, FirstCharacterMeetsTheSecondLetterOfTheKey) {
  EXPECT_EQ(jiamiField("abcd"), "\x0C\x14\x12\x09");
  EXPECT_EQ(jiamiField("mvqm"), std::string(4, '\0'));
  EXPECT_EQ(jiamiField(""), "");
}

TEST(FieldCipher, IsItsOwnInverseForEveryByteAtEveryPlace) {
  std::string bytes;
  for (int repeat = 0; repeat < 3; ++repeat) {
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  }
  EXPECT_NE(jiamiField(bytes), bytes);
  EXPECT_EQ(jiemiField(jiamiField(bytes)), bytes);
}

TEST(WordLibrary, WordsArePreparedBeforeTheyAreAsked) {
  // a word, what the headwords and what the glosses are asked for, if at all
  for (const auto& [word, headword, gloss] : tableOf<3>(R"(
      __New__York_ newyork newyork   'Cause cause 'cause   ''cause 'cause ''cause
      don't don't don't              _'_ ~ '               '_' ~ ''
      NAÏVE naÏve naÏve              ¶cat ¶cat ¶cat        say"so ~ ~)")) {
    SCOPED_TRACE(word);
    MadeStores stores({}, {});
    EXPECT_EQ(stores.library.Yinbiaofromdata(word) + stores.library.Wordfromdata(word), "");
    EXPECT_EQ(stores.made.asked, headword.empty() ? Asked() : Asked(2, headword));
    stores.made.asked.clear();
    EXPECT_EQ(stores.library.Jieshifromdata(word), "");
    EXPECT_EQ(stores.made.asked, gloss.empty() ? Asked() : Asked{gloss});
    EXPECT_FALSE(stores.library.takeFault());
  }
}

TEST(WordLibrary, AnswersAreDecipheredOrTakenAsTheyStand) {
  MadeStores stores({}, {{"Cat", "kAt"}, {"new york", "nju:5jR:k"}, {"'cause", "kRz"}});
  stores.made.glosses = {{"cat", "猫\r\n雄猫\n"}};
  EXPECT_EQ(stores.library.Yinbiaofromdata("CAT"), "kAt");
  EXPECT_EQ(stores.library.Wordfromdata("cat"), "Cat");
  EXPECT_EQ(stores.library.Jieshifromdata("c at"), "猫雄猫");
  EXPECT_EQ(stores.library.Yinbiaofromdata("new york"), "");
  EXPECT_EQ(stores.library.entryOf(" New York "), "nju:5jR:k");
  EXPECT_EQ(stores.library.entryOf("'cause"), "kRz");
}

TEST(WordLibrary, TheFirstFaultIsKeptUntilItIsTaken) {
  MadeStores stores({}, {{"cat", "kAt"}});
  stores.made.failure = "first";
  EXPECT_EQ(stores.library.Yinbiaofromdata("cat"), "");
  stores.made.failure = "second";
  EXPECT_EQ(stores.library.Wordfromdata("cat"), "");
  EXPECT_EQ(stores.library.Jieshifromdata("cat"), "");
  stores.made.failure.reset();
  EXPECT_EQ(stores.library.Yinbiaofromdata("cat"), "kAt");
  const auto fault = stores.library.takeFault();
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->why, "first");
  EXPECT_FALSE(stores.library.takeFault());
}

TEST(WordLibrary, WithoutADatabaseEveryWordIsAMiss) {
  WordLibrary library;
  const LibraryReading reading(&library);
  EXPECT_EQ(library.Yinbiaofromdata("cat") + library.Wordfromdata("cat"), "");
  EXPECT_EQ(library.Jieshifromdata("cat") + library.entryOf("cat"), "");
  EXPECT_FALSE(library.takeFault());
}

}  // namespace
}  // namespace voxilane
