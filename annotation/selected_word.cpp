#include "annotation/selected_word.h"

#include <algorithm>

#include "annotation/alphabets.h"
#include "annotation/transcriber.h"
#include "core/text.h"

namespace voxilane {

std::optional<Message> selectionRefusal(std::u16string_view selection) {
  const std::size_t length = trimBlanks(selection).size();
  if (length == 0) {
    return Message{"当前未选定内容", MessageIcon::information};
  }
  const auto looked = selection.substr(0, length);
  if (!std::all_of(looked.begin(), looked.end(), isSelectionCharacter)) {
    return Message{
        "选定内容（" + toUtf8(selection) + "）中存在空格或非英文字符，选定内容不是英文单词！",
        MessageIcon::stop};
  }
  return std::nullopt;
}

MarkedWord markSelection(std::u16string_view selection, Edition edition, const CanshuSet& canshu,
                         const Stores& stores) {
  const std::string word = lowerCased(toUtf8(trimBlanks(selection)));
  std::string yinbiao = inEdition(lookUp(stores, libraryFirstChain, word).yinbiao, edition);
  if (yinbiao.empty()) {
    yinbiao = unknownTranscription;
  }
  return {std::u16string(selection),
          canshu.leftBracket + yinbiao + canshu.rightBracket + std::string(canshu.separator())};
}

}  // namespace voxilane
