#include "cli/annotator.h"

#include <algorithm>

#include "annotation/web_page.h"
#include "core/text.h"
#include "platform/code_page.h"
#include "platform/text_reader.h"

namespace voxilane {
namespace {

constexpr std::u16string_view lineEnd = u"\r\n";
constexpr std::u16string_view richTextStart = u"{\\rtf";

// Document text as output text: UTF-8, line ends LF.
void appendOutputText(std::string& out, std::u16string_view text) {
  for (auto end = text.find(u'\r'); end != std::u16string_view::npos; end = text.find(u'\r')) {
    appendUtf8(out, text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  appendUtf8(out, text);
}

// Writes transcriptions in their frame as output text. Brackets and separators are the same in
// every spelling, but for the line end.
class RunWriter {
 public:
  RunWriter(RunFrame frame, Spelling spelling) : frame_(std::move(frame)), spelling_(spelling) {
    replaceAll(frame_.after, {"\r\n", "\n"});
  }

  void append(std::string& out, std::string_view yinbiao) const {
    out += frame_.before;
    appendSpelled(out, yinbiao, spelling_);
    out += frame_.after;
  }

 private:
  RunFrame frame_;
  Spelling spelling_;
};

// One document on its way from a reader to a sink. What can be written before the rest is known is
// written at once, so a document need not fit into memory.
class DocumentPass {
 public:
  DocumentPass(const AnnotationJob& job, std::optional<Layout> layout, Transcriber& transcribe,
               PassMonitor& monitor)
      : job_(job), layout_(layout), transcribe_(transcribe), monitor_(monitor) {}

  void add(std::u16string_view piece) {
    text_ += piece;
    blank_ = blank_ && isBlankDocument(piece);
  }

  // Annotates what does not depend on what is still to come; gives the output, which may be empty.
  std::string takeReady() {
    if (blank_ || job_.form != OutputForm::text) {
      return {};
    }
    const std::size_t length = readyLength();
    if (length == 0) {
      return {};
    }
    const LibraryReading reading = transcribe_.beginPiece();
    std::string out = annotated(std::u16string_view(text_).substr(0, length), TextEnd::continues);
    text_.erase(0, length);
    searched_ = text_.size();
    return out;
  }

  // Annotates the rest: everything that was added and not taken.
  std::string takeLast() {
    if (blank_) {
      return toUtf8(text_);
    }
    const LibraryReading reading = transcribe_.beginPiece();
    return job_.form == OutputForm::html && layout_ ? toCodePage(page())
                                                    : annotated(text_, TextEnd::whole);
  }

  bool isRichText() const { return std::u16string_view(text_).substr(0, 5) == richTextStart; }
  bool hasLongParagraph() const { return hasLongParagraph_; }

 private:
  std::size_t readyLength() {
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

  std::size_t wholeLinesLength() {
    // Only what is new is searched; a line may be very long.
    const auto unsearched = std::u16string_view(text_).substr(searched_);
    const auto last = unsearched.rfind(lineEnd);
    const std::size_t length =
        last == std::u16string_view::npos ? 0 : searched_ + last + lineEnd.size();
    searched_ = text_.size();
    return length;
  }

  std::string annotated(std::u16string_view text, TextEnd textEnd) {
    std::string out;
    if (!layout_) {
      appendOutputText(out, text);
      return out;
    }
    switch (*layout_) {
      case Layout::dangqian:
        appendDangqian(out, text, textEnd);
        break;
      case Layout::up:
      case Layout::down:
        appendLines(out, text);
        break;
      case Layout::self:
        appendSelf(out, text);
        break;
      case Layout::word1:
      case Layout::word2:
        break;
    }
    return out;
  }

  void appendDangqian(std::string& out, std::u16string_view text, TextEnd textEnd) {
    const RunWriter run(dangqianFrame(job_.canshu), job_.spelling);
    const Recognition found =
        toWrite(recognitionPass(text, transcribe_, monitor_, textEnd), monitor_);
    std::size_t written = 0;
    for (std::size_t i = 0; i < found.List4.size(); ++i) {
      appendOutputText(out, text.substr(written, found.List5[i] - written));
      run.append(out, found.List4[i]);
      written = found.List5[i];
    }
    appendOutputText(out, text.substr(written));
  }

  AlignedLines walkedLines(std::u16string_view text) {
    const DocumentLines paragraphs = fenduan1(text);
    hasLongParagraph_ = hasLongParagraph_ || paragraphs.hasLongParagraph;
    return walkLines(paragraphs.lines, job_.canshu.brackets(), transcribe_, monitor_);
  }

  void appendLines(std::string& out, std::u16string_view text) {
    const RunWriter run({"", "\n"}, job_.spelling);
    const AlignedLines lines = walkedLines(text);
    for (std::size_t i = 0; i < lines.List3.size(); ++i) {
      if (*layout_ == Layout::up) {
        run.append(out, lines.List31[i]);
      }
      appendOutputText(out, lines.List3[i]);
      out += '\n';
      if (*layout_ == Layout::down) {
        run.append(out, lines.List31[i]);
      }
    }
  }

  void appendSelf(std::string& out, std::u16string_view text) {
    const RunWriter run(selfFrame(job_.canshu), job_.spelling);
    const Recognition found = toWrite(recogniseForSelf(text, transcribe_, monitor_), monitor_);
    appendOutputText(out, text);
    out += '\n';
    for (const std::string& yinbiao : found.List4) {
      run.append(out, yinbiao);
    }
  }

  std::string page() {
    switch (*layout_) {
      case Layout::dangqian:
        return dangqianPage(text_, recognitionPass(text_, transcribe_, monitor_), job_.canshu);
      case Layout::up:
      case Layout::down:
        return alignedPage(*layout_, walkedLines(text_), job_.canshu);
      case Layout::self:
        return selfPage(text_, recogniseForSelf(text_, transcribe_, monitor_), job_.canshu);
      case Layout::word1:
      case Layout::word2:
        break;
    }
    return {};
  }

  const AnnotationJob& job_;
  std::optional<Layout> layout_;
  Transcriber& transcribe_;
  PassMonitor& monitor_;
  std::u16string text_;
  std::size_t searched_ = 0;  // how much of text_ holds no line end
  bool blank_ = true;
  bool hasLongParagraph_ = false;
};

Done writeChecked(ByteSink& sink, std::string_view out, const PassMonitor& monitor) {
  // A pass that the library broke off must not look like one that found nothing.
  return monitor.fault ? Done(*monitor.fault) : sink.write(out);
}

}  // namespace

Annotator::Annotator(const AnnotationJob& job, const Stores& stores)
    : job_(job),
      layout_(layoutNamed(job.canshu.canshu4)),
      transcribe_(stores, chainOf(layout_.value_or(Layout::dangqian)), job.canshu.edition()) {}

Result<AnnotationOutcome> Annotator::annotate(std::unique_ptr<ByteSource> source, ByteSink& sink,
                                              ProgressLine& progress) {
  TextReader reader(std::move(source), LineEnds::crLf);
  PassMonitor monitor;
  DocumentPass pass(job_, layout_, transcribe_, monitor);
  std::u16string piece;
  bool atBeginning = true;
  for (;;) {
    if (reader.wouldWait()) {
      if (Done done = sink.flush(); !done) {
        return done.error();
      }
    }
    const auto more = reader.read(piece);
    if (!more) {
      return more.error();
    }
    if (!more.value()) {
      break;
    }
    pass.add(piece);
    if (std::exchange(atBeginning, false) && pass.isRichText()) {
      return Error{"rich text cannot be read by this version"};
    }
    if (Done done = writeChecked(sink, pass.takeReady(), monitor); !done) {
      return done.error();
    }
    progress.progress(PassStage::reading, reader.bytesRead(), reader.size());
  }
  if (Done done = writeChecked(sink, pass.takeLast(), monitor); !done) {
    return done.error();
  }
  return AnnotationOutcome{pass.hasLongParagraph()};
}

}  // namespace voxilane
