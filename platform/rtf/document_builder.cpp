#include "platform/rtf/document_builder.h"

#include <tuple>

namespace voxilane {
namespace {

constexpr std::u16string_view lineEnd = u"\r\n";
constexpr std::u16string_view cellEnd = u"\t";

}  // namespace

bool ordered(const CharacterFormat& a, const CharacterFormat& b) {
  const auto fields = [](const CharacterFormat& f) {
    return std::tie(f.font, f.halfPoints, f.colour, f.bold, f.italic, f.underline, f.strike);
  };
  return fields(a) < fields(b);
}

bool ordered(const ParagraphFormat& a, const ParagraphFormat& b) {
  const auto fields = [](const ParagraphFormat& f) {
    return std::tie(f.alignment, f.leftIndent, f.rightIndent, f.firstLineIndent, f.spaceBefore,
                    f.spaceAfter, f.lineSpacing, f.lineSpacingIsMultiple);
  };
  return fields(a) < fields(b);
}

void DocumentBuilder::endParagraph(const CharacterFormat& format,
                                   const ParagraphFormat& paragraph) {
  settleMark();
  mark_ = Mark::paragraph;
  markFormat_ = format;
  paragraph_ = paragraph;
}

void DocumentBuilder::endCell(const CharacterFormat& format, const ParagraphFormat& paragraph) {
  settleMark();
  mark_ = Mark::cell;
  markFormat_ = format;
  paragraph_ = paragraph;
  if (!cellsParagraph_) {
    cellsParagraph_ = paragraph;
  }
}

void DocumentBuilder::endRow(const CharacterFormat& format, const ParagraphFormat& paragraph) {
  if (mark_ == Mark::paragraph) {
    settleMark();
  }
  mark_ = Mark::none;
  paragraph_ = paragraph;
  endLine(format);
}

bool DocumentBuilder::isAtLineBegin() const {
  return mark_ == Mark::paragraph ||
         (mark_ == Mark::none && (document_.text.empty() || document_.text.ends_with(lineEnd)));
}

void DocumentBuilder::settleMark() {
  const Mark mark = std::exchange(mark_, Mark::none);
  if (mark == Mark::cell) {
    append(cellEnd, markFormat_);
  } else if (mark == Mark::paragraph) {
    endLine(markFormat_);
  }
}

void DocumentBuilder::endLine(const CharacterFormat& format) {
  append(lineEnd, format);
  addRun(document_.paragraphRuns, document_.text.size(),
         paragraphFormats_.indexOf(cellsParagraph_.value_or(paragraph_)));
  cellsParagraph_.reset();
}

RichText DocumentBuilder::finish(bool keepsLastMark) {
  if (mark_ == Mark::paragraph && keepsLastMark) {
    settleMark();
  }
  const std::size_t size = document_.text.size();
  if (size > 0 && !document_.text.ends_with(lineEnd)) {
    addRun(document_.paragraphRuns, size,
           paragraphFormats_.indexOf(cellsParagraph_.value_or(paragraph_)));
  }
  document_.characterFormats = characterFormats_.take();
  document_.paragraphFormats = paragraphFormats_.take();
  return std::move(document_);
}

}  // namespace voxilane
