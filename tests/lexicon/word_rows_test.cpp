#include "lexicon/word_rows.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace voxilane {
namespace {

const std::string header = "word\tyinbiao\treadings\tsource\tlemma\trank\tlevels\tgloss\n";
const std::string cat = "cat\tkAt\tn kAt; v kB:t\tecdict\t\t7\tzk\tn. 猫\n";

TEST(WordRows, AreReadFieldByField) {
  const std::string text =
      header + cat + "cats\tkAts\t\tform\tcat\t\t\ta\\nb\\\\n\ndog\t\t\t\t\t\t\t狗";
  const auto rows = parseWordRows(text);
  ASSERT_TRUE(rows) << rows.error().why;
  ASSERT_EQ(rows.value().size(), 3U);
  const auto& [first, form, last] = std::tie(rows.value()[0], rows.value()[1], rows.value()[2]);
  EXPECT_EQ(first.word, "cat");
  EXPECT_EQ(first.yinbiao, "kAt");
  EXPECT_EQ(first.readings, "n kAt; v kB:t");
  EXPECT_EQ(first.source, "ecdict");
  EXPECT_EQ(first.rank, 7U);
  EXPECT_EQ(first.gloss, "n. 猫");
  EXPECT_EQ(form.lemma, "cat");
  EXPECT_EQ(form.rank, 0U);
  EXPECT_EQ(form.gloss, "a\r\nb\\n");
  EXPECT_EQ(last.yinbiao, "");
  EXPECT_EQ(last.gloss, "狗");
}

TEST(WordRows, FaultsAreRefusedWithTheirLine) {
  for (const auto& [text, line] : std::vector<std::pair<std::string, std::string>>{
           {"", "line 1:"},
           {cat, "line 1:"},
           {header + cat + "dog\tdRg\t\tx\t\t\t\n", "line 3:"},
           {header + cat + "dog\tdRg\t\tx\t\t\t\t狗\tmore\n", "line 3:"},
           {header + "\n" + cat, "line 2:"},
           {header + "cat\tkAt\t\t\t\tseven\t\t\n", "line 2:"},
           {header + "cat\tkAt\t\t\t\t7x\t\t\n", "line 2:"},
           {header + "cat\tkAt\t\t\t\t-1\t\t\n", "line 2:"},
           {header + "cat\tkAt\t\t\t\t99999999999\t\t\n", "line 2:"},
           {header + "\tkAt\t\t\t\t\t\t\n", "line 2:"},
           {header + cat + cat, "line 3:"},
           {header + cat + "bat\tbAt\t\t\t\t\t\t\n", "line 3:"},
           {header + cat + "dog\tdɒg\t\t\t\t\t\t\n", "line 3:"},
           {header + cat + "dog\td2g\t\t\t\t\t\t\n", "line 3:"},
           {header + cat + "dog\t\t\tx\t\t\t\t\n", "line 3:"}}) {
    const auto rows = parseWordRows(text);
    ASSERT_FALSE(rows) << text;
    EXPECT_EQ(rows.error().why.substr(0, line.size()), line) << text;
  }
}

}  // namespace
}  // namespace voxilane
