#include "lexicon/short_gloss.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "core/text.h"

namespace voxilane {
namespace {

std::string repeated(std::string_view text, int times) {
  std::string out;
  for (; times > 0; --times) out += text;
  return out;
}

TEST(ShortGloss, HasTheFirstSensesOfTheFirstLines) {
  for (const auto& [gloss, expected] : std::vector<std::pair<std::string, std::string>>{
           {"", ""},
           {"猫", "猫"},
           {"n. 猫；猫科动物", "n.猫，猫科动物"},
           {"n. 一,二;三、四\r\nv. 五， 六", "n.一，二，三 v.五，六"},
           {"v. 覆盖(马,鹰等)；给（人、物）戴", "v.覆盖(马,鹰等)，给（人、物）戴"},
           {"[医] 肺炎\r\nn. 肺", "n.肺"},
           {"[医] 肺炎\r\n[化] 铅", "肺炎 铅"},
           {"[网络]", ""},
           {"n. ,,\r\n\r\nv. 跑", "v.跑"},
           {"v. [法律]驳回，[计] 拒绝\r\nn. [网络]", "v.驳回，拒绝"},
           {"abbr. 后台服务（" + repeated("long ", 9) + "）", "abbr.后台服务"},
           {"a|b", "a/b"},
           {"n. " + repeated("长", 40), "n." + repeated("长", 28)},
           {"n. " + repeated("长", 20) + "，" + repeated("短", 20) + "，尾",
            "n." + repeated("长", 20)}}) {
    EXPECT_EQ(shortGloss(gloss), expected) << gloss;
  }
}

TEST(ShortGloss, IsShortAndSafeForALineOfTheList) {
  for (const auto& gloss :
       std::vector<std::string>{repeated("n. 一|二\r\n", 50), repeated("很长的解释", 30),
                                repeated("(", 100), repeated("[a", 60), "x\r\r\n\ny"}) {
    const std::string brief = shortGloss(gloss);
    EXPECT_LE(utf16Length(brief), 30U) << gloss;
    EXPECT_EQ(brief.find_first_of("|\r\n"), std::string::npos) << gloss;
  }
}

TEST(ShortGloss, ACutLeavesCharactersWhole) {
  EXPECT_TRUE(isUtf8(shortGloss(repeated("长", 29) + "𠀀")));
}

}  // namespace
}  // namespace voxilane
