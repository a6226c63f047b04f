#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/word_list.h"
#include "lexicon/store_writers.h"

namespace voxilane {
namespace {

TEST(DictionaryText, HoldsTheFrequentFormsBetweenLinesThatNoWordMatches) {
  const std::vector<WordRow> rows{{"are", "B:", "", "ecdict", "", 0, "gk", ""},
                                  {"cat", "kAt", "", "ecdict", "", 9, "", "n. 猫\r\nn. 喵"},
                                  {"cats", "kAts", "", "form", "cat", 0, "", ""},
                                  {"don't", "dEunt", "", "contraction", "", 0, "", ""},
                                  {"gloss only", "", "", "", "", 1, "", "只有解释"},
                                  {"rare", "reE", "", "ecdict", "", 0, "", "稀有"},
                                  {"zoo", "zu:", "", "ecdict", "", 2, "", "a|b"}};
  EXPECT_EQ(
      dictionaryText(rows),
      " !=|-|\r\nare=||B:\r\ncat=|n.猫 n.喵|kAt\r\ncats=||kAts\r\ndon't=||dEunt\r\nzoo=|a/b|zu:\r\n"
      "~ ~=|-|\r\n");
}

TEST(DictionaryText, HasAsManyWordsAsTheListHoldsAndAllAreFound) {
  constexpr std::size_t room = WordList::maxEntries - 2;
  std::vector<std::string> words;
  for (std::size_t i = 0; i <= room; ++i) words.push_back("w" + std::to_string(100000 + i));
  std::vector<WordRow> rows;
  for (std::size_t i = 0; i <= room; ++i) {
    rows.push_back({words[i], "wE:d", "", "ecdict", "", static_cast<std::uint32_t>(i + 1), "", ""});
  }
  // A form of the most frequent word outdoes the rare words, and so does a word of old books; a
  // form that few texts have does not.
  rows.push_back({"x-form", "fR:m", "", "form", words[0], 0, "", ""});
  rows.push_back({"x-old", "Euld", "", "ecdict", "", 99999, "gre classic", ""});
  rows.push_back({"x-rare", "rZE", "", "archaic", words[room / 10], 0, "", ""});
  const WordList list(dictionaryText(rows));
  EXPECT_EQ(list.ListCount(), WordList::maxEntries);
  EXPECT_FALSE(list.truncated());
  for (std::size_t i = 0; i + 2 < room; ++i) {
    ASSERT_EQ(list.Wordlistsearch(words[i]), "wE:d") << words[i];
  }
  EXPECT_EQ(list.Wordlistsearch(words[room - 2]), "");
  EXPECT_EQ(list.Wordlistsearch(words[room]), "");
  EXPECT_EQ(list.Wordlistsearch("x-form"), "fR:m");
  EXPECT_EQ(list.Wordlistsearch("x-old"), "Euld");
  EXPECT_EQ(list.Wordlistsearch("x-rare"), "");
}

TEST(DictionaryText, LosesNoWordWhateverTheSize) {
  std::vector<std::string> words;
  for (char c = 'a'; c <= 'z'; ++c) words.emplace_back(1, c);
  std::vector<WordRow> rows;
  for (const std::string& word : words) {
    rows.push_back({word, "bi:", "", "ecdict", "", 1, "", ""});
    const WordList list(dictionaryText(rows));
    for (const WordRow& row : rows) {
      EXPECT_EQ(list.Wordlistsearch(row.word), "bi:") << row.word << " of " << rows.size();
    }
  }
}

}  // namespace
}  // namespace voxilane
