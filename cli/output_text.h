#pragma once

#include <string>
#include <string_view>

#include "annotation/layouts.h"
#include "annotation/pass_monitor.h"
#include "cli/spelling.h"
#include "platform/files.h"

// Documents as the command line writes them: UTF-8, line ends LF.

namespace voxilane {

// Appends document text, whose line ends are CR LF.
void appendOutputText(std::string& out, std::u16string_view text);

// Writes transcriptions in their frame as output text. Brackets and separators are the same in
// every spelling, but for the line end.
class RunWriter {
 public:
  RunWriter(RunFrame frame, Spelling spelling);

  void append(std::string& out, std::string_view yinbiao) const;

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

  void writeIfLarge();
  void write();

  // The first failure, if there was one.
  const Done& done() const { return done_; }

 private:
  ByteSink& sink_;
  const PassMonitor& monitor_;
  std::string text_;
  Done done_ = std::monostate();
};

}  // namespace voxilane
