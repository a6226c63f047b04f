#include "annotation/transcriber.h"

namespace voxilane {

Transcriber::Transcriber(const Stores& stores, const LookupChain& chain,
                         std::optional<Edition> edition)
    : stores_(stores), chain_(chain), edition_(edition) {}

std::string_view Transcriber::operator()(std::string_view word, PassMonitor& monitor) {
  if (const auto known = answers_.find(word)) {
    return *known;
  }
  lastAnswer_ = inEdition(lookUp(stores_, chain_, word).yinbiao, edition_);
  if (auto fault = stores_.library.takeFault()) {
    monitor.fault = std::move(fault);
    monitor.keepRecognising = false;
  } else {
    answers_.add(word, lastAnswer_);
  }
  return lastAnswer_;
}

LibraryReading Transcriber::beginPiece() {
  LibraryDatabase* const database = stores_.library.database();
  const std::int64_t version = database != nullptr ? database->version() : 0;
  if (version != libraryVersion_) {
    answers_.clear();
    libraryVersion_ = version;
  }
  return LibraryReading(&stores_.library);
}

}  // namespace voxilane
