#include "cli/annotator.h"

#include "annotation/rich_layouts.h"
#include "platform/text_reader.h"

namespace voxilane {
namespace {

// That of the swatch when the program starts.
constexpr std::uint32_t transcriptionColour = 0x0000FF;

AnnotationOutcome failure(FailedPart part, const Error& error) {
  return {part, error.why, false, {}};
}

FailedPart partThatFailed(const PassMonitor& monitor) {
  return monitor.fault ? FailedPart::library : FailedPart::output;
}

}  // namespace

Annotator::Annotator(const AnnotationJob& job, const Stores& stores)
    : job_(job),
      layout_(layoutNamed(job.canshu.canshu4)),
      transcribe_(stores, chainOf(layout_.value_or(Layout::dangqian)), job.canshu.edition()) {}

AnnotationOutcome Annotator::annotate(DocumentInput input, ByteSink& sink, ProgressLine& progress) {
  if (input.isRichText || job_.form == OutputForm::rtf) {
    return annotateWhole(std::move(input), sink);
  }
  return annotateStream(std::move(input.source), sink, progress);
}

AnnotationOutcome Annotator::annotateWhole(DocumentInput input, ByteSink& sink) {
  auto reading = readDocument(std::move(input));
  if (!reading) {
    return failure(FailedPart::input, reading.error());
  }
  RichText& document = reading.value().document;
  AnnotationOutcome outcome;
  outcome.leftOut = std::move(reading.value().leftOut);
  PassMonitor monitor;
  Done done = std::monostate();
  if (job_.form != OutputForm::rtf) {
    done = writePlain(document, sink, monitor, outcome.hasLongParagraph);
  } else if (layout_) {
    const LibraryReading held = transcribe_.beginPiece();
    RichTextPass pass = annotatedDocument(document, *layout_, job_.canshu, transcriptionColour,
                                          transcribe_, monitor);
    outcome.hasLongParagraph = pass.hasLongParagraph;
    done = monitor.fault ? Done(*monitor.fault) : saveDocument(pass.document, sink);
  } else {
    done = saveDocument(document, sink);
  }
  if (!done) {
    outcome.failed = partThatFailed(monitor);
    outcome.why = done.error().why;
  }
  return outcome;
}

Done Annotator::writePlain(const RichText& document, ByteSink& sink, PassMonitor& monitor,
                           bool& hasLongParagraph) {
  DocumentPass pass(job_, layout_, transcribe_, monitor, sink);
  pass.add(plainText(document));
  Done done = pass.writeLast();
  hasLongParagraph = pass.hasLongParagraph();
  return done;
}

AnnotationOutcome Annotator::annotateStream(std::unique_ptr<ByteSource> source, ByteSink& sink,
                                            ProgressLine& progress) {
  TextReader reader(std::move(source), LineEnds::crLf);
  PassMonitor monitor;
  DocumentPass pass(job_, layout_, transcribe_, monitor, sink);
  const auto failedWriting = [&](const Done& done) {
    return failure(partThatFailed(monitor), done.error());
  };
  std::u16string piece;
  for (;;) {
    if (reader.wouldWait()) {
      if (const Done done = sink.flush(); !done) {
        return failedWriting(done);
      }
    }
    const auto more = reader.read(piece);
    if (!more) {
      return failure(FailedPart::input, more.error());
    }
    if (!more.value()) {
      break;
    }
    pass.add(piece);
    if (const Done done = pass.writeReady(); !done) {
      return failedWriting(done);
    }
    progress.progress(PassStage::reading, reader.bytesRead(), reader.size());
  }
  if (const Done done = pass.writeLast(); !done) {
    return failedWriting(done);
  }
  return {FailedPart::none, {}, pass.hasLongParagraph(), {}};
}

}  // namespace voxilane
