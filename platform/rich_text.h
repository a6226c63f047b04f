#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// A document with formatting, as the window and the files of word processors have it.

namespace voxilane {

inline constexpr std::uint32_t automaticColour = 0xFF000000;  // what the page makes it: black

struct CharacterFormat {
  std::uint16_t font = 0;                  // index into RichText::fonts
  std::uint16_t halfPoints = 24;           // size
  std::uint32_t colour = automaticColour;  // else 0xRRGGBB
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strike = false;

  bool operator==(const CharacterFormat&) const = default;
};

enum class Alignment : std::uint8_t { left, right, centre, justified };

// Lengths are in twips, a twentieth of a point.
struct ParagraphFormat {
  Alignment alignment = Alignment::left;
  std::int32_t leftIndent = 0;
  std::int32_t rightIndent = 0;
  std::int32_t firstLineIndent = 0;  // relative to the left one; negative hangs
  std::int32_t spaceBefore = 0;
  std::int32_t spaceAfter = 0;
  std::int32_t lineSpacing = 0;        // 0 single; negative exact, positive at least
  bool lineSpacingIsMultiple = false;  // lineSpacing counts 1/240 of a line instead

  bool operator==(const ParagraphFormat&) const = default;
};

// The page that a document is printed on, in twips; what nobody tells is so in all rich text files.
struct PageFormat {
  std::int32_t width = 12240;
  std::int32_t height = 15840;
  std::int32_t leftMargin = 1800;
  std::int32_t rightMargin = 1800;
  std::int32_t topMargin = 1440;
  std::int32_t bottomMargin = 1440;
  bool isLandscape = false;

  bool operator==(const PageFormat&) const = default;
};

// From where the run before ends to `end`, one format: an index into the table of formats.
struct FormatRun {
  std::size_t end = 0;
  std::uint32_t format = 0;

  bool operator==(const FormatRun&) const = default;
};

// Positions count UTF-16 units. A line end is CR LF, two positions; a soft one, which stays within
// the paragraph, is U+000B. The last paragraph has no line end behind it. Runs follow one another
// from 0 to the end of the text, none is empty, and neighbours differ; an empty text has none.
struct RichText {
  std::u16string text;
  std::vector<std::u16string> fonts;
  std::vector<CharacterFormat> characterFormats;
  std::vector<ParagraphFormat> paragraphFormats;
  std::vector<FormatRun> characterRuns;
  std::vector<FormatRun> paragraphRuns;  // each ends behind a line end or at the end of the text
  PageFormat page;
};

// A replacement of `length` units at `position`. Without a format the new text takes that of the
// text it replaces, or of what stands ahead of it where it replaces nothing.
struct RichTextEdit {
  std::size_t position = 0;
  std::size_t length = 0;
  std::u16string text;
  std::optional<CharacterFormat> format;
};

// The document after all edits, whose positions count in the old document. They stand in ascending
// order and do not overlap; several insertions may have one position. Costs one walk, whatever the
// number of edits. New line ends continue the paragraph that they stand in; where a line end goes,
// the paragraph ahead takes in the one behind.
RichText edited(const RichText& document, std::span<const RichTextEdit> edits);

// Goes on with runs as far as `end`, in a format; the run before is lengthened where it has that
// format. Nothing when they reach that far already.
void addRun(std::vector<FormatRun>& runs, std::size_t end, std::uint32_t format);

// The index of a font, which is added when it is new; 0 when the table is full.
std::uint16_t fontIndex(RichText& document, std::u16string_view name);

// Appends text in one format; the last paragraph's format goes on.
void append(RichText& document, std::u16string_view text, const CharacterFormat& format);

}  // namespace voxilane
