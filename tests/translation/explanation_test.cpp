#include "translation/explanation.h"

#include <optional>

#include <gtest/gtest.h>

#include "tests/support/made_stores.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

TEST(Explanation, IsOneLineFromTheFirstStoreThatKnowsTheWord) {
  MadeStores stores({{"cat", "kAt", "猫"}, {"dog", "dRg"}}, {});
  stores.made.glosses = {{"cat", "另一只猫"}, {"dog", "狗\r\n犬"}, {"newyork", "纽约"}};
  for (const auto& [text, line] : tableOf<2>(R"(
      cat cat__:__猫   _Cat_ Cat__:__猫   dog dog__:__狗犬   New_York NewYork__:__纽约
      cats cats__:__没找到！   say"so say"so__:__没找到！)")) {
    EXPECT_EQ(explanationLine(stores.list, stores.library, text), line) << text;
  }
  EXPECT_EQ(explanationLine(stores.list, stores.library, "   "), std::nullopt);
}

}  // namespace
}  // namespace voxilane
