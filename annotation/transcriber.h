#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "annotation/pass_monitor.h"
#include "core/editions.h"
#include "core/lookup_chain.h"

namespace voxilane {

// Words to transcriptions for one pass: the lookup chain and the edition conversion, remembering
// what it has answered. Texts repeat their words, so most answers come from memory.
class Transcriber {
 public:
  Transcriber(const Stores& stores, const LookupChain& chain, std::optional<Edition> edition);

  // The transcription in the pass's edition, empty when the word is unknown. Valid until the next
  // call. When the library fails the answer is empty and the monitor stops the pass.
  const std::string& operator()(std::string_view word, PassMonitor& monitor);

  // Forgets its answers if the library has changed since they were given. Called at the beginning
  // of each piece of a text that comes in pieces.
  void refresh();

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  Stores stores_;
  LookupChain chain_;
  std::optional<Edition> edition_;
  std::unordered_map<std::string, std::string, Hash, std::equal_to<>> answers_;
  std::int64_t libraryVersion_ = 0;
};

// An unknown word's transcription where a layout keeps its place: two blanks.
inline constexpr std::string_view unknownTranscription = "  ";

}  // namespace voxilane
