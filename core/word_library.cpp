#include "core/word_library.h"

#include "core/field_cipher.h"
#include "core/text.h"

namespace voxilane {
namespace {

std::string preparedWord(std::string_view word) { return withoutBlanks(lowerCased(word)); }

// The word as the table `word` is asked for it; nothing when it is only an apostrophe or two.
std::optional<std::string> askedHeadword(std::string_view word) {
  std::string asked = preparedWord(word);
  if (asked == "'" || asked == "''") {
    return std::nullopt;
  }
  if (!asked.empty() && asked.front() == '\'') {
    asked.erase(0, 1);
  }
  return asked;
}

}  // namespace

std::string yinbiaoOfRow(std::string_view ipa13) {
  std::string yinbiao = jiemiField(ipa13);
  return isUtf8(yinbiao) ? yinbiao : toUtf8(toUtf16(yinbiao));
}

WordLibrary::WordLibrary(std::unique_ptr<LibraryDatabase> database)
    : database_(std::move(database)) {}

std::string WordLibrary::ask(Query query, const std::string& word) {
  if (database_ == nullptr || word.find('"') != std::string::npos) {
    return {};
  }
  auto answer = (database_.get()->*query)(word);
  if (!answer) {
    if (!fault_) {
      fault_ = answer.error();
    }
    return {};
  }
  return std::move(answer.value());
}

std::string WordLibrary::Yinbiaofromdata(std::string_view word) {
  const auto asked = askedHeadword(word);
  return asked ? yinbiaoOfRow(ask(&LibraryDatabase::ipa13Of, *asked)) : std::string();
}

std::string WordLibrary::Wordfromdata(std::string_view word) {
  const auto asked = askedHeadword(word);
  return asked ? ask(&LibraryDatabase::wordOf, *asked) : std::string();
}

std::string WordLibrary::Jieshifromdata(std::string_view word) {
  return withoutLineEnds(ask(&LibraryDatabase::glossOf, preparedWord(word)));
}

std::string WordLibrary::entryOf(std::string_view word) {
  return yinbiaoOfRow(ask(&LibraryDatabase::ipa13Of, lowerCased(trimBlanks(word))));
}

std::optional<Error> WordLibrary::takeFault() { return std::exchange(fault_, std::nullopt); }

}  // namespace voxilane
