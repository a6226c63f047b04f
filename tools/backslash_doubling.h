#pragma once

#include <string_view>
#include <vector>

#include "platform/rich_text.h"

namespace voxilane {

// A second backslash behind each one, as a document gets them ahead of every saving. The walk ends
// after as many characters as the text had at first, so that at its end one character stays unseen
// for each backslash.
std::vector<RichTextEdit> backslashDoubling(std::u16string_view text);

}  // namespace voxilane
