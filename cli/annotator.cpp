#include "cli/annotator.h"

#include "platform/text_reader.h"

namespace voxilane {

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
