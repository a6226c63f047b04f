#include "cli/document_pass.h"

#include <algorithm>
#include <utility>

#include "annotation/web_page.h"
#include "platform/code_page.h"

namespace voxilane {
namespace {

constexpr std::u16string_view lineEnd = u"\r\n";

// A long text in parts, so that what a part adds to the output can leave before the next one. No
// character is split.
template <typename Take>
void forEachPart(std::u16string_view text, OutputText& out, Take take) {
  constexpr std::size_t partLength = std::size_t{1} << 16U;
  while (!text.empty()) {
    std::size_t length = std::min(partLength, text.size());
    const bool splits = length < text.size() && (text[length] & 0xFC00U) == 0xDC00;
    length += splits ? 1 : 0;
    take(text.substr(0, length));
    text.remove_prefix(length);
    out.writeIfLarge();
  }
}

}  // namespace

DocumentPass::DocumentPass(const AnnotationJob& job, std::optional<Layout> layout,
                           Transcriber& transcribe, PassMonitor& monitor, ByteSink& sink)
    : job_(job), layout_(layout), transcribe_(transcribe), monitor_(monitor), out_(sink, monitor) {}

void DocumentPass::add(std::u16string_view piece) {
  text_ += piece;
  blank_ = blank_ && isBlankDocument(piece);
}

Done DocumentPass::writeReady() {
  const std::size_t length = mustWait() ? 0 : readyLength();
  if (length > 0) {
    const LibraryReading reading = transcribe_.beginPiece();
    annotate(std::u16string_view(text_).substr(0, length), TextEnd::continues);
    text_.erase(0, length);
    searched_ = text_.size();
  }
  out_.write();
  return out_.done();
}

Done DocumentPass::writeLast() {
  const LibraryReading reading = transcribe_.beginPiece();
  if (blank_ || !layout_) {
    appendOutputText(out_.text(), text_);
  } else if (job_.form == OutputForm::html) {
    out_.text() = toCodePage(page());
  } else {
    annotate(text_, TextEnd::whole);
  }
  out_.write();
  return out_.done();
}

bool DocumentPass::mustWait() const {
  if (job_.form != OutputForm::text) {
    return true;
  }
  // As long as there are only blanks the document may turn out to be one that no pass touches;
  // where blanks come out as they are that makes no difference.
  return blank_ && layout_ != Layout::dangqian;
}

std::size_t DocumentPass::readyLength() {
  if (!layout_) {
    return text_.size();
  }
  switch (*layout_) {
    case Layout::dangqian:
      return recognisableLength(text_);
    case Layout::up:
    case Layout::down:
      return wholeLinesLength();
    case Layout::self:
    case Layout::word1:
    case Layout::word2:
      break;
  }
  return 0;
}

std::size_t DocumentPass::wholeLinesLength() {
  // Only what is new is searched; a line may be very long.
  const auto unsearched = std::u16string_view(text_).substr(searched_);
  const auto last = unsearched.rfind(lineEnd);
  const std::size_t length =
      last == std::u16string_view::npos ? 0 : searched_ + last + lineEnd.size();
  searched_ = text_.size();
  return length;
}

void DocumentPass::annotate(std::u16string_view text, TextEnd textEnd) {
  if (!layout_) {
    appendOutputText(out_.text(), text);
    return;
  }
  switch (*layout_) {
    case Layout::dangqian:
      writeDangqian(text, textEnd);
      break;
    case Layout::up:
    case Layout::down:
      writeLines(text);
      break;
    case Layout::self:
      writeSelf(text);
      break;
    case Layout::word1:
    case Layout::word2:
      break;
  }
}

void DocumentPass::writeDangqian(std::u16string_view text, TextEnd textEnd) {
  const RunWriter run(dangqianFrame(job_.canshu), job_.spelling);
  const Recognition found =
      toWrite(recognitionPass(text, transcribe_, monitor_, textEnd), monitor_);
  std::size_t written = 0;
  for (std::size_t i = 0; i < found.List4.size(); ++i) {
    appendOutputText(out_.text(), text.substr(written, found.List5[i] - written));
    run.append(out_.text(), found.List4[i]);
    written = found.List5[i];
    out_.writeIfLarge();
  }
  writeEnglish(text.substr(written));
}

void DocumentPass::writeLines(std::u16string_view text) {
  for (const std::u16string_view line : paragraphs(text)) {
    if (!isWalked(line)) {
      continue;
    }
    if (*layout_ == Layout::up) {
      writeTranscriptionLine(line);
    }
    writeEnglish(line);
    appendOutputText(out_.text(), lineEndBlanks);
    out_.text() += '\n';
    if (*layout_ == Layout::down) {
      writeTranscriptionLine(line);
    }
  }
}

void DocumentPass::writeTranscriptionLine(std::u16string_view line) {
  const Brackets brackets = job_.canshu.brackets();
  LineWalk walk(brackets, transcribe_, monitor_);
  std::string columns = " ";
  forEachPart(line, out_, [&](std::u16string_view part) {
    walk.add(part, columns);
    appendSpelled(out_.text(), columns, job_.spelling);
    columns.clear();
  });
  walk.add(lineEndBlanks, columns);
  appendSpelled(out_.text(), columns, job_.spelling);
  out_.text() += '\n';
}

void DocumentPass::writeSelf(std::u16string_view text) {
  const RunWriter run(selfFrame(job_.canshu), job_.spelling);
  const Recognition found = toWrite(recogniseForSelf(text, transcribe_, monitor_), monitor_);
  writeEnglish(text);
  out_.text() += '\n';
  for (const std::string& yinbiao : found.List4) {
    run.append(out_.text(), yinbiao);
    out_.writeIfLarge();
  }
}

void DocumentPass::writeEnglish(std::u16string_view text) {
  forEachPart(text, out_, [&](std::u16string_view part) { appendOutputText(out_.text(), part); });
}

std::vector<std::u16string_view> DocumentPass::paragraphs(std::u16string_view text) {
  DocumentLines document = fenduan1(text);
  hasLongParagraph_ = hasLongParagraph_ || document.hasLongParagraph;
  return std::move(document.lines);
}

std::string DocumentPass::page() {
  switch (*layout_) {
    case Layout::dangqian:
      return dangqianPage(text_, recognitionPass(text_, transcribe_, monitor_), job_.canshu);
    case Layout::up:
    case Layout::down:
      return alignedPage(
          *layout_, walkLines(paragraphs(text_), job_.canshu.brackets(), transcribe_, monitor_),
          job_.canshu);
    case Layout::self:
      return selfPage(text_, recogniseForSelf(text_, transcribe_, monitor_), job_.canshu);
    case Layout::word1:
    case Layout::word2:
      break;
  }
  return {};
}

}  // namespace voxilane
