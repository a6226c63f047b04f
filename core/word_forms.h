#pragma once

#include <string>
#include <string_view>

#include "core/word_library.h"
#include "core/word_list.h"

// The word-form chain: a word that no store holds is tried as an inflected or derived form. Nine
// rules in a fixed order each strip an ending and ask the store for the stem; the first stem known
// ends the chain. The rules are crude by design (tables ends in `s`, running in `iN`).

namespace voxilane {

// The stem's Yinbiao with the sound of the ending behind it; empty when no rule fits.
std::string inferYinbiaolist(const WordList& list, std::string_view word);
std::string inferYinbiaodata(WordLibrary& library, std::string_view word);

// The stem's gloss, from the list.
std::string inferJieshi(const WordList& list, std::string_view word);

// The stem itself as the rule rebuilt it, when the library has it.
std::string inferWordbase(WordLibrary& library, std::string_view word);

}  // namespace voxilane
