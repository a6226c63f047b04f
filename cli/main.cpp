#include <cstdio>

#include "cli/commands.h"
#include "version.h"

namespace {

// Help and version are asked for; anything else that stops the parsing is a call we cannot follow.
int explainParse(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    return app.exit(error);
  }
  const auto unknown = app.remaining();
  const std::string why = app.get_subcommands().empty() && !unknown.empty()
                              ? "not understood: " + unknown.front()
                              : std::string(error.what());
  std::fprintf(stderr, "voxilane-cli: %s; see voxilane-cli --help\n", why.c_str());
  return voxilane::exitUsage;
}

}  // namespace

int main(int argc, char** argv) {
  voxilane::Context context;
  context.home = voxilane::executableDirectory();

  CLI::App app("Annotates English text with phonetic transcription.", "voxilane-cli");
  app.footer("Example: voxilane-cli annotate story.txt --layout dangqian -o annotated.txt");
  app.set_version_flag("--version", "voxilane-cli " VOXILANE_VERSION);
  app.add_option("--home", context.home,
                 "The program directory, with dictionary.txt, data.dat and canshushezhi.txt")
      ->option_text("DIR");
  app.add_flag("--codes", context.codes, "Transcriptions in font codes instead of IPA");
  app.require_subcommand(1);
  app.fallthrough();

  voxilane::addAnnotateCommand(app, context);
  voxilane::addWordCommands(app, context);
  voxilane::addNotationCommands(app, context);
  voxilane::addNumberCommands(app, context);
  voxilane::addLibraryCommands(app, context);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return explainParse(app, error);
  }
  return context.exitStatus();
}
