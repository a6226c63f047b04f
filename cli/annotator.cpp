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

// Output text on its way to a sink, in large parts. Nothing more is written once the library has
// broken the pass off: what follows would look as if no word were known.
class OutputText {
 public:
  OutputText(ByteSink& sink, const PassMonitor& monitor) : sink_(sink), monitor_(monitor) {}

  std::string& text() { return text_; }

  void writeIfLarge() {
    constexpr std::size_t large = std::size_t{1} << 16U;
    if (text_.size() >= large) {
      write();
    }
  }

  void write() {
    if (done_) {
      done_ = monitor_.fault ? Done(*monitor_.fault) : sink_.write(text_);
    }
    text_.clear();
  }

  const Done& done() const { return done_; }

 private:
  ByteSink& sink_;
  const PassMonitor& monitor_;
  std::string text_;
  Done done_ = std::monostate();
};

// One document on its way from a reader to a sink. What can be written before the rest is known is
// written at once, so a document need not fit into memory.
class DocumentPass {
 public:
  DocumentPass(const AnnotationJob& job, std::optional<Layout> layout, Transcriber& transcribe,
               PassMonitor& monitor, ByteSink& sink)
      : job_(job),
        layout_(layout),
        transcribe_(transcribe),
        monitor_(monitor),
        out_(sink, monitor) {}

  void add(std::u16string_view piece) {
    text_ += piece;
    blank_ = blank_ && isBlankDocument(piece);
  }

  // Annotates and writes what does not depend on what is still to come.
  Done writeReady() {
    const std::size_t length = blank_ || job_.form != OutputForm::text ? 0 : readyLength();
    if (length > 0) {
      const LibraryReading reading = transcribe_.beginPiece();
      annotate(std::u16string_view(text_).substr(0, length), TextEnd::continues);
      text_.erase(0, length);
      searched_ = text_.size();
    }
    out_.write();
    return out_.done();
  }

  // Annotates and writes the rest.
  Done writeLast() {
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

  bool isRichText() const {
    return std::u16string_view(text_).substr(0, richTextStart.size()) == richTextStart;
  }
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

  void annotate(std::u16string_view text, TextEnd textEnd) {
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

  void writeDangqian(std::u16string_view text, TextEnd textEnd) {
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

  void writeLines(std::u16string_view text) {
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

  void writeTranscriptionLine(std::u16string_view line) {
    const Brackets brackets = job_.canshu.brackets();
    LineWalk walk(brackets, transcribe_, monitor_);
    std::string columns = " ";
    forEachPart(line, [&](std::u16string_view part) {
      walk.add(part, columns);
      appendSpelled(out_.text(), columns, job_.spelling);
      columns.clear();
    });
    walk.add(lineEndBlanks, columns);
    appendSpelled(out_.text(), columns, job_.spelling);
    out_.text() += '\n';
  }

  void writeSelf(std::u16string_view text) {
    const RunWriter run(selfFrame(job_.canshu), job_.spelling);
    const Recognition found = toWrite(recogniseForSelf(text, transcribe_, monitor_), monitor_);
    writeEnglish(text);
    out_.text() += '\n';
    for (const std::string& yinbiao : found.List4) {
      run.append(out_.text(), yinbiao);
      out_.writeIfLarge();
    }
  }

  void writeEnglish(std::u16string_view text) {
    forEachPart(text, [&](std::u16string_view part) { appendOutputText(out_.text(), part); });
  }

  // A long text in parts, so that its output can leave in parts. No character is split.
  template <typename Take>
  void forEachPart(std::u16string_view text, Take take) {
    constexpr std::size_t partLength = std::size_t{1} << 16U;
    while (!text.empty()) {
      std::size_t length = std::min(partLength, text.size());
      const bool splits = length < text.size() && (text[length] & 0xFC00U) == 0xDC00;
      length += splits ? 1 : 0;
      take(text.substr(0, length));
      text.remove_prefix(length);
      out_.writeIfLarge();
    }
  }

  std::vector<std::u16string_view> paragraphs(std::u16string_view text) {
    DocumentLines document = fenduan1(text);
    hasLongParagraph_ = hasLongParagraph_ || document.hasLongParagraph;
    return std::move(document.lines);
  }

  std::string page() {
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

  const AnnotationJob& job_;
  std::optional<Layout> layout_;
  Transcriber& transcribe_;
  PassMonitor& monitor_;
  OutputText out_;
  std::u16string text_;
  std::size_t searched_ = 0;  // how much of text_ holds no line end
  bool blank_ = true;
  bool hasLongParagraph_ = false;
};

}  // namespace

Annotator::Annotator(const AnnotationJob& job, const Stores& stores)
    : job_(job),
      layout_(layoutNamed(job.canshu.canshu4)),
      transcribe_(stores, chainOf(layout_.value_or(Layout::dangqian)), job.canshu.edition()) {}

Result<AnnotationOutcome> Annotator::annotate(std::unique_ptr<ByteSource> source, ByteSink& sink,
                                              ProgressLine& progress) {
  TextReader reader(std::move(source), LineEnds::crLf);
  PassMonitor monitor;
  DocumentPass pass(job_, layout_, transcribe_, monitor, sink);
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
    if (Done done = pass.writeReady(); !done) {
      return done.error();
    }
    progress.progress(PassStage::reading, reader.bytesRead(), reader.size());
  }
  if (Done done = pass.writeLast(); !done) {
    return done.error();
  }
  return AnnotationOutcome{pass.hasLongParagraph()};
}

}  // namespace voxilane
