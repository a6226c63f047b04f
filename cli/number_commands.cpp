#include <memory>

#include "cli/commands.h"
#include "cli/list_answers.h"
#include "core/numbers.h"
#include "shell/program_directory.h"

namespace voxilane {
namespace {

using Reader = NumberReading (*)(std::string_view text, const Brackets& brackets);

struct NumberOptions {
  std::string text;
  std::string brackets;
  bool runs = false;
};

std::string_view colorName(RunColor color) {
  switch (color) {
    case RunColor::blue:
      return "blue";
    case RunColor::red:
      return "red";
    case RunColor::black:
      break;
  }
  return "black";
}

void runReading(Context& context, std::string_view command, Reader read,
                const NumberOptions& options) {
  CanshuSet canshu = loadParameters(context.home);
  setBracketsNamed(canshu, options.brackets);
  const NumberReading reading = read(options.text, canshu.brackets());
  if (reading.refusal) {
    context.fail(command, *reading.refusal);
    return;
  }
  std::string text;
  for (const ColoredRun& run : reading.runs) {
    if (options.runs) {
      text.append(colorName(run.color)).append("\t");
    }
    text.append(spelled(run.text, context.spelling())).append(options.runs ? "\n" : "");
  }
  printText(context, options.runs ? text : text + "\n");
}

void addReading(CLI::App& app, Context& context, const std::string& name, const std::string& what,
                const std::string& example, Reader read) {
  const auto options = std::make_shared<NumberOptions>();
  CLI::App* command = app.add_subcommand(name, "Reads " + what + " out");
  command->footer("Example: voxilane-cli " + name + " " + example);
  command->add_option("TEXT", options->text)->required()->check(utf8Text);
  command->add_option("--brackets", options->brackets, "Around each piece of the reading")
      ->check(bracketNames);
  command->add_flag("--runs", options->runs, "One line for each run of one colour");
  command->callback([&context, name, read, options] { runReading(context, name, read, *options); });
}

}  // namespace

void addNumberCommands(CLI::App& app, Context& context) {
  addReading(app, context, "number", "a number", "1005.5 --brackets square", readNumber);
  addReading(app, context, "year", "a year", "1984", readYear);
  addReading(app, context, "phone", "a telephone number", "13800138000", readPhone);
}

}  // namespace voxilane
