#include "cli/list_answers.h"

#include "platform/text_reader.h"

namespace voxilane {
namespace {

constexpr std::string_view standardOutput = "standard output";
constexpr std::string_view standardInput = "standard input";

// Lines of standard input. What has been answered is flushed before the input is waited for, so
// that a program on the other side of the pipe is not kept waiting.
Done answerInputLines(Context& context, ByteSink& sink, const Answer& answer) {
  TextReader reader(openStandardInput(), LineEnds::lf);
  std::string rest;
  std::string piece;
  for (;;) {
    if (reader.wouldWait()) {
      if (Done done = sink.flush(); !done) {
        return done;
      }
    }
    const auto more = reader.read(piece);
    if (!more) {
      context.fail(standardInput, more.error().why);
      break;
    }
    if (!more.value()) {
      break;
    }
    std::size_t begin = 0;
    for (auto end = piece.find('\n'); end != std::string::npos; end = piece.find('\n', begin)) {
      rest.append(piece, begin, end - begin);
      if (Done done = sink.write(answer(rest) + "\n"); !done) {
        return done;
      }
      rest.clear();
      begin = end + 1;
    }
    rest.append(piece, begin);
  }
  return rest.empty() ? Done(std::monostate()) : sink.write(answer(rest) + "\n");
}

Done answerArguments(const std::vector<std::string>& items, ByteSink& sink, const Answer& answer) {
  for (const std::string& item : items) {
    if (Done done = sink.write(answer(item) + "\n"); !done) {
      return done;
    }
  }
  return std::monostate();
}

Done committed(ByteSink& sink, Done written) { return written ? sink.commit() : written; }

}  // namespace

void answerItems(Context& context, const std::vector<std::string>& items, const Answer& answer) {
  const auto sink = openStandardOutput();
  const Done done = committed(*sink, items.empty() ? answerInputLines(context, *sink, answer)
                                                   : answerArguments(items, *sink, answer));
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
