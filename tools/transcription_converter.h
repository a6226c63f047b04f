#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/editions.h"
#include "platform/rich_text.h"

// Takes the transcriptions that stand in a document from one edition to another. Nothing but the
// brackets around it tells a transcription. It is in font codes.

namespace voxilane {

struct BracketPair {
  char16_t left;
  char16_t right;
};

// The pair that a value of canshu2 stands for: "/" slashes, any other square brackets.
BracketPair bracketPairOfStyle(std::string_view style);

// What stands between a left bracket and the first right one behind it, where that is not too far.
struct ChangedSegment {
  std::size_t position = 0;  // of its first character: UTF-16 units from the beginning of the text
  std::u16string before;
  std::u16string after;
};

struct SegmentConversion {
  std::vector<ChangedSegment> changed;  // in the order of the text
  std::size_t found = 0;                // how many segments there are, changed or not

  // Where the text ends, or where a left bracket stands to which a right one could still come if
  // the text went on.
  std::size_t settled = 0;
};

// Converts what stands between brackets, at most 19 units long, line ends included. A bracket
// belongs to one segment only. What is not ASCII is kept.
SegmentConversion convertSegments(std::u16string_view text, BracketPair brackets, Edition to);

// The text with its segments changed.
std::u16string withSegments(std::u16string_view text, std::span<const ChangedSegment> changed);

// The same for a document with formatting. What is alike at both ends of a segment, and a line end
// in it, is not touched, and so keeps its format.
std::vector<RichTextEdit> segmentEdits(std::span<const ChangedSegment> changed);

}  // namespace voxilane
