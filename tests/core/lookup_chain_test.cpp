#include "core/lookup_chain.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/made_stores.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

TEST(LookupChain, EveryOrderGivesItsOwnAnswers) {
  // Each step knows another transcription of the words, so the answer tells the step.
  MadeStores stores({{"in", "list"}, {"cat", "ruleList"}, {"dog", "ruleList"}},
                    {{"in", "data"}, {"cats", "data"}, {"dog", "ruleData"}, {"pig", "ruleData"}});
  const std::map<std::string, LookupChain> chains{{"libraryFirst", libraryFirstChain},
                                                  {"dangqian", dangqianChain},
                                                  {"aligned", alignedChain},
                                                  {"list", listChain},
                                                  {"data", dataChain}};
  for (const auto& [name, in, cats, dogs, pigs] : tableOf<5>(R"(
      libraryFirst  list  data       ruleDataz  ruleDataz
      dangqian      list  data       ruleLists  ruleDataz
      aligned       list  ruleLists  ruleLists  ruleDataz
      list          list  ruleLists  ruleLists  ~
      data          data  data       ruleDataz  ruleDataz)")) {
    SCOPED_TRACE(name);
    const LookupChain& chain = chains.at(name);
    EXPECT_EQ(lookUp(stores.stores(), chain, "in").yinbiao, in);
    EXPECT_EQ(lookUp(stores.stores(), chain, "Cats").yinbiao, cats);
    EXPECT_EQ(lookUp(stores.stores(), chain, "dogs").yinbiao, dogs);
    EXPECT_EQ(lookUp(stores.stores(), chain, "pigs").yinbiao, pigs);
  }
  EXPECT_EQ(lookUp(stores.stores(), dangqianChain, "dogs").source, LookupStep::ruleList);
  EXPECT_EQ(lookUp(stores.stores(), dangqianChain, "pigs").source, LookupStep::ruleData);
  EXPECT_EQ(lookUp(stores.stores(), dangqianChain, "zzz").source, LookupStep::none);
}

TEST(LookupChain, OnlyTheAlignedOrderKeepsBlanksForTheList) {
  MadeStores stores({{"cat", "kAt"}}, {});
  EXPECT_EQ(lookUp(stores.stores(), dangqianChain, " cat ").yinbiao, "kAt");
  EXPECT_EQ(lookUp(stores.stores(), libraryFirstChain, " cat ").yinbiao, "kAt");
  EXPECT_EQ(lookUp(stores.stores(), alignedChain, " cat ").yinbiao, "");
}

TEST(LookupChain, ATranscriptionOfBlanksEndsIt) {
  MadeStores stores({}, {{"cats", "  "}, {"cat", "kAt"}});
  EXPECT_EQ(lookUp(stores.stores(), dangqianChain, "cats").yinbiao, "  ");
}

}  // namespace
}  // namespace voxilane
