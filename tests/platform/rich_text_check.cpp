#include "tests/platform/rich_text_check.h"

#include <algorithm>

#include "core/text.h"

namespace voxilane {
namespace {

std::string brokenRuns(const std::vector<FormatRun>& runs, std::size_t size, std::size_t formats) {
  std::size_t end = 0;
  for (std::size_t i = 0; i < runs.size(); ++i) {
    if (runs[i].end <= end) {
      return "a run is empty";
    }
    if (runs[i].format >= formats) {
      return "a run has no format";
    }
    if (i > 0 && runs[i].format == runs[i - 1].format) {
      return "neighbours are equal";
    }
    end = runs[i].end;
  }
  return end == size ? "" : "runs do not end with the text";
}

std::string described(const RichText& document, const CharacterFormat& format) {
  const std::string font =
      format.font < document.fonts.size() ? toUtf8(document.fonts[format.font]) : "no font";
  std::string text = "<" + font + " " + std::to_string(format.halfPoints);
  if (format.colour != automaticColour) {
    text += " colour " + std::to_string(format.colour);
  }
  text += format.bold ? " bold" : "";
  text += format.italic ? " italic" : "";
  text += format.underline ? " underline" : "";
  text += format.strike ? " strike" : "";
  return text + ">";
}

// Empty for a page of which nothing is told.
std::string described(const PageFormat& page) {
  if (page == PageFormat{}) {
    return "";
  }
  std::string text = page.isLandscape ? "<landscape" : "<page";
  for (const std::int32_t length : {page.width, page.height, page.leftMargin, page.rightMargin,
                                    page.topMargin, page.bottomMargin}) {
    text += " " + std::to_string(length);
  }
  return text + ">";
}

std::string described(const ParagraphFormat& format) {
  static constexpr const char* alignments[] = {"left", "right", "centre", "justified"};
  std::string text = "[";
  text += alignments[static_cast<int>(format.alignment)];
  for (const auto length : {format.leftIndent, format.rightIndent, format.firstLineIndent,
                            format.spaceBefore, format.spaceAfter, format.lineSpacing}) {
    text += " " + std::to_string(length);
  }
  text += format.lineSpacingIsMultiple ? " multiple" : "";
  return text + "]";
}

}  // namespace

std::string brokenRule(const RichText& document) {
  for (const std::string& broken :
       {brokenRuns(document.characterRuns, document.text.size(), document.characterFormats.size()),
        brokenRuns(document.paragraphRuns, document.text.size(),
                   document.paragraphFormats.size())}) {
    if (!broken.empty()) {
      return broken;
    }
  }
  for (const FormatRun& run : document.paragraphRuns) {
    if (run.end != document.text.size() &&
        !std::u16string_view(document.text).substr(0, run.end).ends_with(u"\r\n")) {
      return "a paragraph run ends within a paragraph";
    }
  }
  for (const CharacterFormat& format : document.characterFormats) {
    if (format.font >= document.fonts.size()) {
      return "a format has no font";
    }
  }
  return "";
}

std::string described(const RichText& document) {
  std::string text = described(document.page);
  std::string paragraph;
  std::string character;
  auto paragraphRun = document.paragraphRuns.begin();
  auto characterRun = document.characterRuns.begin();
  std::size_t at = 0;
  while (at < document.text.size()) {
    const std::string newParagraph = described(document.paragraphFormats[paragraphRun->format]);
    const std::string newCharacter =
        described(document, document.characterFormats[characterRun->format]);
    text += newParagraph == paragraph ? "" : newParagraph;
    text += newCharacter == character ? "" : newCharacter;
    paragraph = newParagraph;
    character = newCharacter;
    const std::size_t end = std::min(paragraphRun->end, characterRun->end);
    appendUtf8(text, std::u16string_view(document.text).substr(at, end - at));
    paragraphRun += paragraphRun->end == end ? 1 : 0;
    characterRun += characterRun->end == end ? 1 : 0;
    at = end;
  }
  replaceAll(text, {"\r\n", "\n"});
  return text;
}

}  // namespace voxilane
