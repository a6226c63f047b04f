#pragma once

#include <string>
#include <vector>

#include "platform/rich_text.h"

// Rich text as tests look at it.

namespace voxilane {

// Which of its rules a document breaks; empty when none.
std::string brokenRule(const RichText& document);

// The document in UTF-8, with what its formats say, and each change of format in front of the text
// that it begins at: equal for documents that look the same, whatever their tables hold. A line end
// stands as LF.
std::string described(const RichText& document);

}  // namespace voxilane
