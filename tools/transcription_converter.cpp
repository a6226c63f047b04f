#include "tools/transcription_converter.h"

#include <algorithm>

namespace voxilane {
namespace {

constexpr std::size_t farthestRightBracket = 20;  // units from the left one
constexpr auto none = std::u16string_view::npos;

std::size_t asciiLength(std::u16string_view text) {
  const auto* const end =
      std::find_if(text.begin(), text.end(), [](char16_t unit) { return unit >= 0x80; });
  return static_cast<std::size_t>(end - text.begin());
}

// No step of a conversion looks across a character that is not ASCII, so each stretch of ASCII can
// go by itself. The whole could not: K.K. has Chinese characters of its own on the way.
std::u16string converted(std::u16string_view segment, Edition to) {
  std::u16string out;
  while (!segment.empty()) {
    const std::size_t length = asciiLength(segment);
    const std::string codes(segment.begin(), segment.begin() + length);
    const std::string text = inEdition(codes, to);
    out.append(text.begin(), text.end());
    segment.remove_prefix(length);
    while (!segment.empty() && segment.front() >= 0x80) {
      out += segment.front();
      segment.remove_prefix(1);
    }
  }
  return out;
}

// A left bracket behind which no right one stands: settled if a right one would come too late.
std::size_t settledLength(std::u16string_view text, std::size_t left, BracketPair brackets) {
  const std::size_t undecided =
      text.size() > farthestRightBracket ? text.size() - farthestRightBracket : 0;
  return std::min(text.find(brackets.left, std::max(left, undecided)), text.size());
}

void appendEdit(std::vector<RichTextEdit>& edits, std::size_t position, std::u16string_view before,
                std::u16string_view after) {
  const auto front = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto alike = static_cast<std::size_t>(front.first - before.begin());
  before.remove_prefix(alike);
  after.remove_prefix(alike);
  const auto back = std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend());
  const auto behind = static_cast<std::size_t>(back.first - before.rbegin());
  before.remove_suffix(behind);
  after.remove_suffix(behind);
  if (!before.empty() || !after.empty()) {
    edits.push_back({position + alike, before.size(), std::u16string(after), std::nullopt});
  }
}

}  // namespace

BracketPair bracketPairOfStyle(std::string_view style) {
  return style == "/" ? BracketPair{u'/', u'/'} : BracketPair{u'[', u']'};
}

SegmentConversion convertSegments(std::u16string_view text, BracketPair brackets, Edition to) {
  SegmentConversion conversion;
  std::size_t left = text.find(brackets.left);
  std::size_t right = 0;  // the first one behind `left`: it is looked for once, not once a left one
  while (left != none) {
    if (right <= left) {
      right = text.find(brackets.right, left + 1);
    }
    if (right == none) {
      break;
    }
    if (right - left > farthestRightBracket) {
      left = text.find(brackets.left, left + 1);
      continue;
    }
    ++conversion.found;
    const auto before = text.substr(left + 1, right - left - 1);
    std::u16string after = converted(before, to);
    if (after != before) {
      conversion.changed.push_back({left + 1, std::u16string(before), std::move(after)});
    }
    left = text.find(brackets.left, right + 1);
  }
  conversion.settled = left == none ? text.size() : settledLength(text, left, brackets);
  return conversion;
}

std::u16string withSegments(std::u16string_view text, std::span<const ChangedSegment> changed) {
  std::u16string out;
  out.reserve(text.size());  // no conversion makes a text longer
  std::size_t copied = 0;
  for (const ChangedSegment& segment : changed) {
    out.append(text.substr(copied, segment.position - copied)).append(segment.after);
    copied = segment.position + segment.before.size();
  }
  return out.append(text.substr(copied));
}

std::vector<RichTextEdit> segmentEdits(std::span<const ChangedSegment> changed) {
  std::vector<RichTextEdit> edits;
  for (const ChangedSegment& segment : changed) {
    // A line end keeps its paragraph's format only if it is not replaced. Conversions leave line
    // ends alone, so the lines before and after are in step.
    std::u16string_view before = segment.before;
    std::u16string_view after = segment.after;
    std::size_t position = segment.position;
    for (auto end = before.find(u'\n'); end != none; end = before.find(u'\n')) {
      const std::size_t endAfter = after.find(u'\n');
      appendEdit(edits, position, before.substr(0, end), after.substr(0, endAfter));
      before.remove_prefix(end + 1);
      after.remove_prefix(endAfter + 1);
      position += end + 1;
    }
    appendEdit(edits, position, before, after);
  }
  return edits;
}

}  // namespace voxilane
