#include "core/lookup_chain.h"

#include "core/text.h"
#include "core/word_forms.h"

namespace voxilane {
namespace {

std::string askStep(const Stores& stores, LookupStep step, std::string_view word) {
  switch (step) {
    case LookupStep::list:
      return std::string(stores.list.Wordlistsearch(word));
    case LookupStep::data:
      return stores.library.Yinbiaofromdata(word);
    case LookupStep::ruleList:
      return inferYinbiaolist(stores.list, word);
    case LookupStep::ruleData:
      return inferYinbiaodata(stores.library, word);
    case LookupStep::none:
      break;
  }
  return {};
}

}  // namespace

LookupResult lookUp(const Stores& stores, const LookupChain& chain, std::string_view word) {
  const std::string_view asked = chain.trimsWord ? trimBlanks(word) : word;
  for (const LookupStep step : chain.steps) {
    std::string yinbiao = askStep(stores, step, asked);
    if (!yinbiao.empty()) {
      return {std::move(yinbiao), step};
    }
  }
  return {};
}

}  // namespace voxilane
