#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "annotation/parameters.h"
#include "core/editions.h"
#include "core/lookup_chain.h"

namespace voxilane {

enum class MessageIcon { information, stop };

struct Message {
  std::string text;  // UTF-8
  MessageIcon icon;
};

// What takes the place of a selection: the word as it was, then the transcription in the phonetic
// font.
struct MarkedWord {
  std::u16string word;
  std::string transcription;  // font codes, with brackets and separator
};

// Why a selection cannot be marked, if so. The characters are looked at from the selection's
// beginning, as many as the trimmed selection has: a leading blank is refused, trailing ones pass.
std::optional<Message> selectionRefusal(std::u16string_view selection);

// The three commands on a selected word, one for each edition. An unknown word gets two blanks.
// The selection must have passed selectionRefusal.
MarkedWord markSelection(std::u16string_view selection, Edition edition, const CanshuSet& canshu,
                         const Stores& stores);

}  // namespace voxilane
