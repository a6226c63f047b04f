#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "annotation/layouts.h"
#include "annotation/parameters.h"
#include "annotation/transcriber.h"
#include "cli/output_text.h"
#include "cli/spelling.h"

namespace voxilane {

enum class OutputForm { text, html, rtf };

struct AnnotationJob {
  CanshuSet canshu;
  OutputForm form = OutputForm::text;
  Spelling spelling = Spelling::ipa;  // of transcriptions in text
};

// One document on its way from a reader to a sink. What can be written before the rest is known is
// written at once, so in the layouts dangqian, up and down a document need not fit into memory.
class DocumentPass {
 public:
  // No layout leaves the document as it is. The layouts of the word processor are not for this
  // class.
  DocumentPass(const AnnotationJob& job, std::optional<Layout> layout, Transcriber& transcribe,
               PassMonitor& monitor, ByteSink& sink);

  // Takes the next piece of the text.
  void add(std::u16string_view piece);

  // Annotates and writes what does not depend on what is still to come.
  Done writeReady();

  // Annotates and writes the rest.
  Done writeLast();

  bool hasLongParagraph() const { return hasLongParagraph_; }

 private:
  bool mustWait() const;
  std::size_t readyLength();
  std::size_t wholeLinesLength();
  void annotate(std::u16string_view text, TextEnd textEnd);
  void writeDangqian(std::u16string_view text, TextEnd textEnd);
  void writeLines(std::u16string_view text);
  void writeTranscriptionLine(std::u16string_view line);
  void writeSelf(std::u16string_view text);
  void writeEnglish(std::u16string_view text);
  std::vector<std::u16string_view> paragraphs(std::u16string_view text);
  std::string page();

  const AnnotationJob& job_;
  std::optional<Layout> layout_;
  Transcriber& transcribe_;
  PassMonitor& monitor_;
  OutputText out_;
  std::u16string text_;       // added and not yet written
  std::size_t searched_ = 0;  // how much of text_ holds no line end
  bool blank_ = true;
  bool hasLongParagraph_ = false;
};

}  // namespace voxilane
