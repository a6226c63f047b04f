#include "translation/explanation.h"

#include "core/text.h"

namespace voxilane {

std::optional<std::string> explanationLine(const WordList& list, WordLibrary& library,
                                           std::string_view text) {
  const std::string word = withoutBlanks(text);
  if (word.empty()) {
    return std::nullopt;
  }
  std::string gloss = list.Jieshifromlist(word);
  if (gloss.empty()) {
    gloss = library.Jieshifromdata(word);
  }
  return word + "  :  " + (gloss.empty() ? "没找到！" : gloss);
}

}  // namespace voxilane
