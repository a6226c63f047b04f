#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "annotation/answer_cache.h"
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
  // call. When the library fails the monitor is told and stops the pass; the answer is
  // then what the list alone gives.
  std::string_view operator()(std::string_view word, PassMonitor& monitor);

  // To be held while a text, or a piece of one, is transcribed. Answers that the library has
  // overtaken meanwhile are forgotten at its beginning.
  LibraryReading beginPiece();

 private:
  Stores stores_;
  LookupChain chain_;
  std::optional<Edition> edition_;
  AnswerCache answers_;
  std::string lastAnswer_;
  std::int64_t libraryVersion_ = 0;
};

// An unknown word's transcription where a layout keeps its place: two blanks.
inline constexpr std::string_view unknownTranscription = "  ";

}  // namespace voxilane
