#include "cli/list_answers.h"

#include "cli/progress_line.h"
#include "cli/streams.h"
#include "platform/text_reader.h"

namespace voxilane {
namespace {

// Answers one item after the other into a sink.
class Answering {
 public:
  Answering(ByteSink& sink, const Answer& answer, WordLibrary* library)
      : sink_(sink), answer_(answer), library_(library) {}

  Done items(const std::vector<std::string>& items) {
    const LibraryReading reading(library_);
    for (const std::string& item : items) {
      if (Done done = write(item); !done) {
        return done;
      }
    }
    return std::monostate();
  }

  // The lines that a piece of text ends; what is behind the last line end waits for the next piece.
  Done lines(std::string_view piece) {
    const LibraryReading reading(library_);
    for (auto end = piece.find('\n'); end != std::string_view::npos; end = piece.find('\n')) {
      rest_.append(piece.substr(0, end));
      if (Done done = write(rest_); !done) {
        return done;
      }
      rest_.clear();
      piece.remove_prefix(end + 1);
    }
    rest_.append(piece);
    return std::monostate();
  }

  // A last line without a line end.
  Done lastLine() { return rest_.empty() ? Done(std::monostate()) : write(rest_); }

 private:
  Done write(std::string_view item) { return sink_.write(answer_(item) + "\n"); }

  ByteSink& sink_;
  const Answer& answer_;
  WordLibrary* library_;
  std::string rest_;
};

// What has been answered is flushed before the input is waited for, so that a program on the other
// side of the pipe is not kept waiting.
Done answerStandardInput(Context& context, ByteSink& sink, Answering& answering) {
  TextReader reader(openStandardInput(), LineEnds::lf);
  ProgressLine progress(standardInput, context.progress);
  std::string piece;
  for (;;) {
    if (reader.wouldWait()) {
      if (Done done = sink.flush(); !done) {
        return done;
      }
    }
    const auto more = reader.read(piece);
    if (!more) {
      // What stands behind the last line end is no whole item.
      context.fail(standardInput, more.error().why);
      return std::monostate();
    }
    if (!more.value()) {
      return answering.lastLine();
    }
    if (Done done = answering.lines(piece); !done) {
      return done;
    }
    progress.progress(PassStage::reading, reader.bytesRead(), reader.size());
  }
}

Done committed(ByteSink& sink, const Done& written) { return written ? sink.commit() : written; }

}  // namespace

void answerItems(Context& context, const std::vector<std::string>& items, const Answer& answer,
                 WordLibrary* library) {
  const auto sink = openStandardOutput();
  Answering answering(*sink, answer, library);
  const Done done = committed(*sink, items.empty() ? answerStandardInput(context, *sink, answering)
                                                   : answering.items(items));
  if (!done) {
    context.fail(standardOutput, done.error().why);
  }
}

void printText(Context& context, std::string_view text) {
  const auto sink = openStandardOutput();
  const Done done = committed(*sink, sink->write(text));
  if (!done) {
    context.fail(standardOutput, done.error().why);
  }
}

}  // namespace voxilane
