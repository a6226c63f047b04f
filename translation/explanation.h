#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/word_library.h"
#include "core/word_list.h"

namespace voxilane {

// The message for a text with nothing to explain in it.
inline constexpr std::string_view nothingToExplainText = "您没有选定单词！";

// The line that an explanation adds to its log, without a line end: the word or phrase without its
// blanks, and its gloss or that there is none. Only whole entries are found. Nothing for a text of
// blanks.
std::optional<std::string> explanationLine(const WordList& list, WordLibrary& library,
                                           std::string_view text);

}  // namespace voxilane
