#include "cli/annotator.h"

#include "platform/text_reader.h"

namespace voxilane {
namespace {

AnnotationOutcome failure(FailedPart part, const Error& error) { return {part, error.why, false}; }

}  // namespace

Annotator::Annotator(const AnnotationJob& job, const Stores& stores)
    : job_(job),
      layout_(layoutNamed(job.canshu.canshu4)),
      transcribe_(stores, chainOf(layout_.value_or(Layout::dangqian)), job.canshu.edition()) {}

AnnotationOutcome Annotator::annotate(std::unique_ptr<ByteSource> source, ByteSink& sink,
                                      ProgressLine& progress) {
  TextReader reader(std::move(source), LineEnds::crLf);
  PassMonitor monitor;
  DocumentPass pass(job_, layout_, transcribe_, monitor, sink);
  const auto failedWriting = [&](const Done& done) {
    return failure(monitor.fault ? FailedPart::library : FailedPart::output, done.error());
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
    if (const Done done = pass.add(piece); !done) {
      return failure(FailedPart::input, done.error());
    }
    if (const Done done = pass.writeReady(); !done) {
      return failedWriting(done);
    }
    progress.progress(PassStage::reading, reader.bytesRead(), reader.size());
  }
  if (const Done done = pass.writeLast(); !done) {
    return failedWriting(done);
  }
  return {FailedPart::none, {}, pass.hasLongParagraph()};
}

}  // namespace voxilane
