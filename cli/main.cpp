#include <cstdio>
#include <sstream>

#include "cli/commands.h"
#include "cli/list_answers.h"
#include "version.h"

namespace {

// Help and version are asked for; anything else that stops the parsing is a call we cannot follow.
int explainParse(voxilane::Context& context, const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    std::ostringstream text;
    app.exit(error, text, text);
    voxilane::printText(context, text.str());
    return context.exitStatus();
  }
  std::string why = error.what();
  if (app.get_subcommands().empty()) {
    const auto unknown = app.remaining();
    why = unknown.empty() ? "no command" : "not understood: " + unknown.front();
  }
  std::fprintf(stderr, "voxilane-cli: %s; see voxilane-cli --help\n", why.c_str());
  return voxilane::exitUsage;
}

}  // namespace

int main(int argc, char** argv) {
  voxilane::guardProgram();
  voxilane::Context context;
  context.home = voxilane::executableDirectory();
  context.progress = voxilane::standardErrorIsTerminal();

  CLI::App app("Annotates English text with phonetic transcription.", "voxilane-cli");
  app.footer("Example: voxilane-cli annotate story.txt --layout dangqian -o annotated.txt");
  app.set_version_flag("--version", "voxilane-cli " VOXILANE_VERSION);
  app.add_option(
         "--home", context.home,
         "The program directory, with dictionary.txt, data.dat and canshushezhi.txt; default: "
         "that of the executable")
      ->option_text("DIR");
  app.add_flag("--codes", context.codes, "Transcriptions in font codes instead of IPA");
  app.add_flag("--progress,!--no-progress", context.progress,
               "A progress line for anything over a second; the default on a terminal");
  app.require_subcommand(1);
  app.fallthrough();

  voxilane::addAnnotateCommand(app, context);
  voxilane::addWordCommands(app, context);
  voxilane::addNotationCommands(app, context);
  voxilane::addNumberCommands(app, context);
  voxilane::addDocumentToolCommands(app, context);
  voxilane::addLibraryCommands(app, context);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return explainParse(context, app, error);
  }
  return context.exitStatus();
}
