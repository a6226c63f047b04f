#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/document_pass.h"
#include "cli/progress_line.h"
#include "cli/rich_document.h"
#include "platform/files.h"

namespace voxilane {

enum class FailedPart { none, input, library, output };

struct AnnotationOutcome {
  FailedPart failed = FailedPart::none;
  std::string why;  // of the failure
  bool hasLongParagraph = false;
  std::vector<LeftOut> leftOut;  // of a rich text document
};

// Annotates documents, one after the other, on one thread.
class Annotator {
 public:
  // An unknown layout in the parameters leaves documents as they are. The layouts of the word
  // processor are not for this class.
  Annotator(const AnnotationJob& job, const Stores& stores);

  // Reads a document and writes it annotated. Plain text in the layouts dangqian, up and down is
  // written while it is read; everything else needs the whole document first. Nothing is committed.
  AnnotationOutcome annotate(DocumentInput input, ByteSink& sink, ProgressLine& progress);

 private:
  AnnotationOutcome annotateStream(std::unique_ptr<ByteSource> source, ByteSink& sink,
                                   ProgressLine& progress);
  AnnotationOutcome annotateWhole(DocumentInput input, ByteSink& sink);
  Done writePlain(const RichText& document, ByteSink& sink, PassMonitor& monitor,
                  bool& hasLongParagraph);

  AnnotationJob job_;
  std::optional<Layout> layout_;
  Transcriber transcribe_;
};

}  // namespace voxilane
