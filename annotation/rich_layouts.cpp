#include "annotation/rich_layouts.h"

#include <algorithm>
#include <utility>

#include "annotation/line_walk.h"
#include "annotation/recognition.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::u16string_view lineEnd = u"\r\n";
constexpr std::uint32_t black = 0;
constexpr int halfPointsOfPoint = 2;
constexpr int plainTextPoints = 12;

// The aligned layouts set the two lines of a pair apart by their size.
constexpr int englishIsLargerBy = 3;
constexpr int transcriptionIsSmallerBy = 1;

std::uint16_t halfPoints(int points) {
  return static_cast<std::uint16_t>(std::max(points, 1) * halfPointsOfPoint);
}

// Gives for ascending positions the format of the character ahead of each.
class FormatAhead {
 public:
  explicit FormatAhead(const RichText& document) : document_(document) {}

  CharacterFormat at(std::size_t position) {
    const auto& runs = document_.characterRuns;
    while (run_ + 1 < runs.size() && runs[run_].end < position) {
      ++run_;
    }
    return runs.empty() ? CharacterFormat{} : document_.characterFormats[runs[run_].format];
  }

 private:
  const RichText& document_;
  std::size_t run_ = 0;
};

// Insertions of transcriptions, each in its frame; what the look leaves open goes on from the text.
std::vector<RichTextEdit> insertions(RichText& document, const Recognition& found,
                                     const RunFrame& frame, const CanshuSet& canshu,
                                     std::uint32_t colour) {
  const std::uint16_t font = fontIndex(document, toUtf16(phoneticFont));
  FormatAhead ahead(document);
  std::vector<RichTextEdit> edits;
  edits.reserve(found.List4.size());
  for (std::size_t i = 0; i < found.List4.size(); ++i) {
    CharacterFormat look = ahead.at(found.List5[i]);
    look.font = font;
    look.colour = colour;
    look.halfPoints = halfPoints(canshu.canshu9);
    edits.push_back(
        {found.List5[i], 0, toUtf16(frame.before + found.List4[i] + frame.after), look});
  }
  return edits;
}

RichText withBehindWords(RichText document, const CanshuSet& canshu, std::uint32_t colour,
                         Transcriber& transcribe, PassMonitor& monitor) {
  const Recognition found = toWrite(recognitionPass(document.text, transcribe, monitor), monitor);
  const auto edits = insertions(document, found, dangqianFrame(canshu), canshu, colour);
  return edited(document, edits);
}

RichText withAllBehind(RichText document, const CanshuSet& canshu, std::uint32_t colour,
                       Transcriber& transcribe, PassMonitor& monitor) {
  Recognition found = toWrite(recogniseForSelf(document.text, transcribe, monitor), monitor);
  const std::size_t end = document.text.size();
  found.List5.assign(found.List4.size(), end);
  auto edits = insertions(document, found, selfFrame(canshu), canshu, colour);
  edits.insert(edits.begin(), RichTextEdit{end, 0, std::u16string(lineEnd), std::nullopt});
  return edited(document, edits);
}

RichText withAlignedLines(const AlignedLines& lines, const PageFormat& page, Layout layout,
                          const CanshuSet& canshu, std::uint32_t colour) {
  RichText document;
  document.page = page;
  const int points = canshu.canshu9;
  CharacterFormat english;
  english.font = fontIndex(document, toUtf16(englishFont));
  english.halfPoints = halfPoints(points + englishIsLargerBy);
  english.colour = black;
  CharacterFormat transcription;
  transcription.font = fontIndex(document, toUtf16(phoneticFont));
  transcription.halfPoints = halfPoints(points - transcriptionIsSmallerBy);
  transcription.colour = colour;
  for (std::size_t i = 0; i < lines.List3.size(); ++i) {
    const std::u16string columns = toUtf16(lines.List31[i]).append(lineEnd);
    const std::u16string line = lines.List3[i] + std::u16string(lineEnd);
    if (layout == Layout::up) {
      append(document, columns, transcription);
    }
    append(document, line, english);
    if (layout == Layout::down) {
      append(document, columns, transcription);
    }
  }
  return document;
}

}  // namespace

RichText plainDocument(std::u16string_view text) {
  RichText document;
  CharacterFormat format;
  format.font = fontIndex(document, toUtf16(plainTextFont));
  format.halfPoints = halfPoints(plainTextPoints);
  append(document, text, format);
  return document;
}

RichTextPass annotatedDocument(const RichText& document, Layout layout, const CanshuSet& canshu,
                               std::uint32_t colour, Transcriber& transcribe,
                               PassMonitor& monitor) {
  if (isBlankDocument(document.text)) {
    return {document};
  }
  switch (layout) {
    case Layout::dangqian:
      return {withBehindWords(document, canshu, colour, transcribe, monitor)};
    case Layout::self:
      return {withAllBehind(document, canshu, colour, transcribe, monitor)};
    case Layout::up:
    case Layout::down: {
      const DocumentLines paragraphs = fenduan1(document.text);
      const AlignedLines lines =
          walkLines(paragraphs.lines, canshu.brackets(), transcribe, monitor);
      return {withAlignedLines(lines, document.page, layout, canshu, colour),
              paragraphs.hasLongParagraph};
    }
    case Layout::word1:
    case Layout::word2:
      break;
  }
  return {document};
}

}  // namespace voxilane
