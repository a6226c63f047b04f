#include "annotation/transcriber.h"

namespace voxilane {
namespace {

// Enough for the words of any book. A text of endless new words must not fill the memory.
constexpr std::size_t mostAnswers = 100'000;

}  // namespace

Transcriber::Transcriber(const Stores& stores, const LookupChain& chain,
                         std::optional<Edition> edition)
    : stores_(stores), chain_(chain), edition_(edition) {
  refresh();
}

const std::string& Transcriber::operator()(std::string_view word, PassMonitor& monitor) {
  const auto known = answers_.find(word);
  if (known != answers_.end()) {
    return known->second;
  }
  if (answers_.size() >= mostAnswers) {
    answers_.clear();
  }
  std::string answer = inEdition(lookUp(stores_, chain_, word).yinbiao, edition_);
  if (auto fault = stores_.library.takeFault()) {
    monitor.fault = std::move(fault);
    monitor.keepRecognising = false;
  }
  return answers_.emplace(word, std::move(answer)).first->second;
}

void Transcriber::refresh() {
  LibraryDatabase* const database = stores_.library.database();
  const std::int64_t version = database != nullptr ? database->version() : 0;
  if (version != libraryVersion_) {
    answers_.clear();
    libraryVersion_ = version;
  }
}

}  // namespace voxilane
