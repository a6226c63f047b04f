#pragma once

#include <string>
#include <string_view>

#include "annotation/layouts.h"
#include "annotation/line_walk.h"
#include "annotation/parameters.h"
#include "annotation/recognition.h"

// The page tmpHTML.htm of each layout, as UTF-8 text; it declares "gbk" and is written in the code
// page. Nothing in the English text is escaped.

namespace voxilane {

// The document as it was, each transcription behind its word.
std::string dangqianPage(std::u16string_view document, const Recognition& found,
                         const CanshuSet& canshu);

// Pairs of lines; `layout` is `up` or `down`.
std::string alignedPage(Layout layout, const AlignedLines& lines, const CanshuSet& canshu);

// The document, a rule, and all transcriptions behind it.
std::string selfPage(std::u16string_view document, const Recognition& found,
                     const CanshuSet& canshu);

}  // namespace voxilane
