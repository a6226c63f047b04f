#include "core/storable_yinbiao.h"

#include <gtest/gtest.h>

#include "tests/support/table.h"

namespace voxilane {
namespace {

TEST(StorableYinbiao, IsOfThe13thEditionWhateverIsGiven) {
  // what is given, what is stored; ~ where it cannot be
  for (const auto& [given, stored] : tableOf<2>(R"(
      5Apl 5Apl        _5Apl__ 5Apl     bed bed          i: i:
      ˈæpl 5Apl        'æpəl 5ApEl      dɔg dRg          fɔː fC:
      dɒɡ dRg          ˈlɪtl 5litl      weə wZE          ˈzɪərəʊ 5ziErEu
      nɜːs nE:s        ˈtʃɜːtʃ 5tFE:tF  t͡ʃiːz tFi:z      weE weE
      d2g ~            5lItl ~          kat ~            hot ~
      5kæt ~           /kæt/ ~          kɨt ~            hɑt ~
      ˈkæˈt ~          kA_t ~           ~ ~              _ ~)")) {
    SCOPED_TRACE(given);
    const auto yinbiao = storableYinbiao(given);
    EXPECT_EQ(yinbiao ? yinbiao.value() : "", stored);
  }
  EXPECT_EQ(storableYinbiao("5kæt").error().why, "cannot read '5' at character 1");
}

}  // namespace
}  // namespace voxilane
