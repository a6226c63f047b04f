#pragma once

#include <memory>
#include <optional>
#include <string>

#include "cli/document_pass.h"
#include "cli/progress_line.h"
#include "platform/files.h"

namespace voxilane {

enum class FailedPart { none, input, library, output };

struct AnnotationOutcome {
  FailedPart failed = FailedPart::none;
  std::string why;  // of the failure
  bool hasLongParagraph = false;
};

// Annotates documents, one after the other, on one thread.
class Annotator {
 public:
  // An unknown layout in the parameters leaves documents as they are. The layouts of the word
  // processor are not for this class.
  Annotator(const AnnotationJob& job, const Stores& stores);

  // Reads a document and writes it annotated. Text in the layouts dangqian, up and down is written
  // while it is read; everything else needs the whole document first. Nothing is committed.
  AnnotationOutcome annotate(std::unique_ptr<ByteSource> source, ByteSink& sink,
                             ProgressLine& progress);

 private:
  AnnotationJob job_;
  std::optional<Layout> layout_;
  Transcriber transcribe_;
};

}  // namespace voxilane
