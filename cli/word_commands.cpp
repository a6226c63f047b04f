#include <array>
#include <memory>
#include <vector>

#include "annotation/selected_word.h"
#include "cli/commands.h"
#include "cli/list_answers.h"
#include "cli/opened_stores.h"
#include "core/text.h"
#include "core/word_forms.h"
#include "translation/explanation.h"

namespace voxilane {
namespace {

struct WordOptions {
  std::vector<std::string> words;
  std::string chain = "dangqian";
  std::string edition;
  std::string against;
  std::string brackets;
  std::string separator;
};

struct NamedChain {
  std::string_view name;
  const LookupChain& chain;
};

constexpr std::array<NamedChain, 7> namedChains{{
    {"selected", libraryFirstChain},
    {"dangqian", dangqianChain},
    {"self", libraryFirstChain},
    {"word", libraryFirstChain},
    {"aligned", alignedChain},
    {"list", listChain},
    {"data", dataChain},
}};

const LookupChain& chainNamed(std::string_view name) {
  for (const NamedChain& named : namedChains) {
    if (named.name == name) {
      return named.chain;
    }
  }
  return dangqianChain;
}

std::string_view sourceName(LookupStep source) {
  switch (source) {
    case LookupStep::list:
      return "list";
    case LookupStep::data:
      return "data";
    case LookupStep::ruleList:
      return "rule-list";
    case LookupStep::ruleData:
      return "rule-data";
    case LookupStep::none:
      break;
  }
  return "-";
}

void runLookup(Context& context, const WordOptions& options) {
  auto opened = openedStores(context, LibraryTables::words);
  if (!opened) {
    return;
  }
  const LookupChain& chain = chainNamed(options.chain);
  const auto edition = editionNamed(options.edition);
  answerItems(
      context, options.words,
      [&](std::string_view word) {
        const LookupResult found = lookUp(opened->stores(), chain, word);
        reportFault(context, opened->library);
        return std::string(word)
            .append("\t")
            .append(spelled(inEdition(found.yinbiao, edition), context.spelling()))
            .append("\t")
            .append(sourceName(found.source));
      },
      &opened->library);
}

// The answer of one of the four variants of the word-form chain.
std::string inferred(OpenedStores& opened, std::string_view against, std::string_view word,
                     Spelling spelling) {
  if (against == "list") return spelled(inferYinbiaolist(opened.list, word), spelling);
  if (against == "data") return spelled(inferYinbiaodata(opened.library, word), spelling);
  if (against == "gloss") return inferJieshi(opened.list, word);
  return inferWordbase(opened.library, word);
}

void runInfer(Context& context, const WordOptions& options) {
  auto opened = openedStores(context, LibraryTables::words);
  if (!opened) {
    return;
  }
  answerItems(
      context, options.words,
      [&](std::string_view word) {
        const std::string result = inferred(*opened, options.against, word, context.spelling());
        reportFault(context, opened->library);
        return std::string(word).append("\t").append(result);
      },
      &opened->library);
}

void runMark(Context& context, const WordOptions& options) {
  const std::u16string selection = toUtf16(options.words.front());
  if (const auto refusal = selectionRefusal(selection)) {
    context.fail("mark", refusal->text);
    return;
  }
  auto opened = openedStores(context, LibraryTables::words);
  if (!opened) {
    return;
  }
  CanshuSet canshu = loadParameters(context.home);
  setBracketsNamed(canshu, options.brackets);
  if (!options.separator.empty()) {
    canshu.canshu3 = options.separator;
  }
  // The commands on a word always have an edition, whatever the parameters say.
  const Edition edition = editionNamed(options.edition.empty() ? canshu.canshu1 : options.edition)
                              .value_or(Edition::fifteenth);
  const MarkedWord marked = markSelection(selection, edition, canshu, opened->stores());
  if (const auto fault = opened->library.takeFault()) {
    context.fail(pathIn(context.home, libraryName), fault->why);
    return;
  }
  std::string text = toUtf8(marked.word) + spelled(marked.transcription, context.spelling());
  replaceAll(text, {"\r\n", "\n"});
  printText(context, text);
}

void runExplain(Context& context, const WordOptions& options) {
  auto opened = openedStores(context, LibraryTables::glosses);
  if (!opened) {
    return;
  }
  std::string text;
  for (const std::string& word : options.words) {
    const auto line = explanationLine(opened->list, opened->library, word);
    reportFault(context, opened->library);
    if (line) {
      text.append(*line).append("\n");
    } else {
      context.fail("explain", nothingToExplainText);
    }
  }
  printText(context, text);
}

}  // namespace

void addWordCommands(CLI::App& app, Context& context) {
  const auto options = std::make_shared<WordOptions>();

  CLI::App* mark = app.add_subcommand(
      "mark", "What the command on a selected word writes: word, transcription, separator");
  mark->footer("Example: voxilane-cli mark apple --brackets slash --edition old");
  mark->add_option("WORD", options->words)->required()->expected(1)->check(utf8Text);
  mark->add_option("--edition", options->edition, "Notation: 15th edition, 13th, K.K.")
      ->check(editionNames);
  mark->add_option("--brackets", options->brackets, "Around the transcription")
      ->check(bracketNames);
  mark->add_option("--separator", options->separator, "Behind it: a blank or a line end")
      ->check(separatorNames);
  mark->callback([&context, options] { runMark(context, *options); });

  CLI::App* lookup =
      app.add_subcommand("lookup", "The transcription of each word and where it came from");
  lookup->footer("Example: voxilane-cli lookup apple running --edition new");
  lookup->add_option("WORD", options->words, "Words; without any, the lines of standard input")
      ->check(utf8Text);
  lookup->add_option("--chain", options->chain, "The order of the stores, by its user")
      ->check(CLI::IsMember({"selected", "dangqian", "self", "word", "aligned", "list", "data"}));
  lookup->add_option("--edition", options->edition, "Notation; without, as stored")
      ->check(editionNames);
  lookup->callback([&context, options] { runLookup(context, *options); });

  CLI::App* infer = app.add_subcommand("infer", "The word-form chain alone");
  infer->footer("Example: voxilane-cli infer --against list running");
  infer->add_option("--against", options->against, "The store that is asked for stems")
      ->required()
      ->check(CLI::IsMember({"list", "data", "gloss", "base"}));
  infer->add_option("WORD", options->words, "Words; without any, the lines of standard input")
      ->check(utf8Text);
  infer->callback([&context, options] { runInfer(context, *options); });

  CLI::App* explain = app.add_subcommand("explain", "The Chinese gloss of words or phrases");
  explain->footer("Example: voxilane-cli explain apple");
  explain->add_option("WORD", options->words)->required()->check(utf8Text);
  explain->callback([&context, options] { runExplain(context, *options); });
}

}  // namespace voxilane
