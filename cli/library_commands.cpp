#include <memory>

#include "cli/commands.h"
#include "cli/list_answers.h"
#include "cli/opened_stores.h"

namespace voxilane {
namespace {

void runInfo(Context& context) {
  auto opened = openedStores(context, LibraryTables::both);
  if (!opened) {
    return;
  }
  std::string text;
  const auto line = [&](std::string_view name, const std::string& file,
                        const Result<std::size_t>& count) {
    if (!count) {
      context.fail(file, count.error().why);
      return;
    }
    text.append(name).append("\t").append(std::to_string(count.value())).append("\n");
  };
  LibraryDatabase* const database = opened->library.database();
  const std::string library = pathIn(context.home, libraryName);
  line("list_entries", pathIn(context.home, dictionaryName), opened->list.ListCount());
  line("library_words", library, database != nullptr ? database->wordCount() : std::size_t{0});
  line("library_glosses", library, database != nullptr ? database->glossCount() : std::size_t{0});
  line("own_entries", pathIn(context.home, ownEntriesName), countOwnEntries(context.home));
  printText(context, text);
}

void runGet(Context& context, const std::string& word) {
  auto library = openedLibrary(context, LibraryTables::words);
  if (!library) {
    return;
  }
  const std::string yinbiao = library->entryOf(word);
  if (const auto fault = library->takeFault()) {
    context.fail(pathIn(context.home, libraryName), fault->why);
  } else if (yinbiao.empty()) {
    context.fail(word, "not in the library");
  } else {
    printText(context, spelled(yinbiao, context.spelling()) + "\n");
  }
}

// Collects a line for each row that breaks a rule of the notation.
class RowCheck {
 public:
  explicit RowCheck(Spelling spelling) : spelling_(spelling) {}

  void row(std::string_view store, std::string_view word, std::string_view yinbiao) {
    const auto fault = notationFault(yinbiao);
    if (!fault) {
      return;
    }
    ++faults_;
    lines_.append(store).append("\t").append(word).append("\t");
    lines_.append(spelled(yinbiao, spelling_)).append("\t").append(*fault).append("\n");
  }

  std::size_t faults() const { return faults_; }
  const std::string& lines() const { return lines_; }

 private:
  Spelling spelling_;
  std::size_t faults_ = 0;
  std::string lines_;
};

void runCheck(Context& context) {
  auto opened = openedStores(context, LibraryTables::both);
  if (!opened) {
    return;
  }
  RowCheck check(context.spelling());
  for (std::size_t i = 0; i < opened->list.ListCount(); ++i) {
    const auto [word, yinbiao] = opened->list.entryAt(i);
    // The lines at both ends of the list have no transcription on purpose.
    if (!yinbiao.empty()) {
      check.row("list", word, yinbiao);
    }
  }
  if (LibraryDatabase* const database = opened->library.database()) {
    const Done read = database->eachWord([&](std::string_view word, std::string_view ipa13) {
      check.row("data", word, yinbiaoOfRow(ipa13));
    });
    if (!read) {
      context.fail(pathIn(context.home, libraryName), read.error().why);
    }
  }
  printText(context, check.lines());
  if (check.faults() > 0) {
    context.fail("library check", "rows that break a rule: " + std::to_string(check.faults()));
  }
}

}  // namespace

void addLibraryCommands(CLI::App& app, Context& context) {
  CLI::App* library = app.add_subcommand("library", "Looks at the word library and keeps it");
  library->footer("Example: voxilane-cli library info");
  library->require_subcommand(1);

  CLI::App* info = library->add_subcommand("info", "How many entries the stores have");
  info->footer("Example: voxilane-cli library info");
  info->callback([&context] { runInfo(context); });

  const auto word = std::make_shared<std::string>();
  CLI::App* get = library->add_subcommand("get", "The stored transcription of a word");
  get->footer("Example: voxilane-cli library get apple");
  get->add_option("WORD", *word)->required()->check(utf8Text);
  get->callback([&context, word] { runGet(context, *word); });

  CLI::App* check = library->add_subcommand("check", "Prints rows that break the notation");
  check->footer("Example: voxilane-cli library check");
  check->callback([&context] { runCheck(context); });

  addLibraryTextCommands(*library, context);
}

}  // namespace voxilane
