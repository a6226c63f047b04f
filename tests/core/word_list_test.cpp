#include "core/word_list.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/table.h"

namespace voxilane {
namespace {

std::string numberedWord(std::size_t number) {
  const std::string digits = std::to_string(number);
  return "w" + std::string(5 - digits.size(), '0') + digits;
}

std::string numberedLine(std::size_t number) {
  return numberedWord(number) + "=|gloss|y" + std::to_string(number) + "\r\n";
}

TEST(WordList, SearchLosesTheFirstEntryAndTheLastOneOfMostEvenLists) {
  const std::vector<std::pair<std::size_t, std::set<std::size_t>>> lostBySize{
      {0, {}},  {1, {0}}, {2, {0}}, {3, {0}},    {4, {0, 3}}, {5, {0}},
      {6, {0}}, {7, {0}}, {9, {0}}, {8, {0, 7}}, {10, {0, 9}}};
  for (const auto& [size, lost] : lostBySize) {
    SCOPED_TRACE(size);
    std::string text;
    for (std::size_t i = 0; i < size; ++i) text += numberedLine(i);
    const WordList list(text);
    for (std::size_t i = 0; i < size; ++i) {
      EXPECT_EQ(list.Wordlistsearch(numberedWord(i)),
                lost.contains(i) ? "" : "y" + std::to_string(i));
    }
    EXPECT_EQ(list.Wordlistsearch("a"), "") << "before all entries";
    EXPECT_EQ(list.Wordlistsearch("z"), "") << "behind all entries";
  }
}

TEST(WordList, MidpointGoesToTheEvenNeighbourWhichDecidesBetweenDuplicates) {
  const WordList upwards("cat=|first|1\n !=||\ncat=|second|2\n");
  EXPECT_EQ(upwards.Wordlistsearch("cat"), "2");
  const WordList downwards("!=||\na=||\ncat=|first|1\ncat=|second|2\nz=||\n");
  EXPECT_EQ(downwards.Wordlistsearch("cat"), "1");
  EXPECT_EQ(upwards.Jieshifromlist("cat"), "first");
}

TEST(WordList, KeysAreOrderedWithoutCaseAndByCodePoint) {
  const WordList list(
      "élan=||eilB:n\nzoo=||zu:\nApple=||5Apl\n!=||\nnaïve=||nB:5i:v\nabacuses=||l\nabacus=||s\n");
  EXPECT_EQ(list.entryAt(1).first, "abacus");
  EXPECT_EQ(list.entryAt(3).first, "apple");
  for (const auto& [word, yinbiao] :
       tableOf<2>("APPLE 5Apl  naïve nB:5i:v  élan eilB:n  zoo zu:  NAÏVE ~  abacus s  abacuses l  "
                  "abacuse ~  _apple ~")) {
    EXPECT_EQ(list.Wordlistsearch(word), yinbiao) << word;
  }
  const std::string longWord(100, 'Q');
  EXPECT_EQ(WordList("a=||\n" + longWord + "=||long\n").Wordlistsearch(longWord), "long");
}

TEST(WordList, LinesAreTakenApartAtEqualsAndBars) {
  const WordList list(
      "no bar=x\rno equals|x|y\n\n a=||\n"
      "cat=kAt|猫|  kAt \r\n"
      "dog=|狗|dRg|more\n"
      "one bar=|只有解释 \n"
      "pig=a=b|猪|pig\n");
  ASSERT_EQ(list.ListCount(), 5U);
  EXPECT_EQ(list.Wordlistsearch("cat"), "  kAt");
  EXPECT_EQ(list.Wordlistsearch("dog"), "dRg");
  EXPECT_EQ(list.Wordlistsearch("one bar"), "");
  EXPECT_EQ(list.Wordlistsearch("pig"), "pig");
  EXPECT_EQ(list.Jieshifromlist("DOG"), "狗");
  EXPECT_EQ(list.Jieshifromlist("one bar"), "只有解释");
  EXPECT_EQ(list.Jieshifromlist(" dog"), "");
  EXPECT_EQ(WordList("only=|唯一|x").Jieshifromlist("only"), "唯一") << "a scan finds index 0";
}

TEST(WordList, OfALongFileTheFirst32767ValidLinesCount) {
  std::string text = "not an entry\r\n";
  for (std::size_t i = 32767; i > 0; --i) text += numberedLine(i);
  const WordList full(text);
  EXPECT_EQ(full.ListCount(), 32767U);
  EXPECT_FALSE(full.truncated());
  const WordList longer(text + numberedLine(0));
  EXPECT_EQ(longer.ListCount(), 32767U);
  EXPECT_TRUE(longer.truncated());
  EXPECT_EQ(longer.Wordlistsearch(numberedWord(1)), "");
  EXPECT_EQ(longer.Wordlistsearch(numberedWord(2)), "y2");
  EXPECT_EQ(longer.Wordlistsearch(numberedWord(32767)), "y32767");
  EXPECT_EQ(longer.Jieshifromlist(numberedWord(0)), "");
}

}  // namespace
}  // namespace voxilane
