#include <array>
#include <memory>

#include "cli/commands.h"
#include "cli/progress_line.h"
#include "cli/streams.h"
#include "core/field_cipher.h"
#include "core/library_import.h"
#include "core/library_text.h"
#include "core/text.h"
#include "platform/line_reader.h"
#include "platform/sqlite/library_entries.h"
#include "platform/sqlite/sqlite_editor.h"
#include "shell/program_directory.h"

namespace voxilane {
namespace {

void runExport(Context& context, const std::string& output) {
  const std::string library = pathIn(context.home, libraryName);
  if (!fileExists(library)) {
    context.fail(library, "there is no library");
    return;
  }
  if (isSameFile(library, output)) {
    context.fail(output, "is the library");
    return;
  }
  auto sink = openOutput(output);
  if (!sink) {
    context.fail(outputName(output), sink.error().why);
    return;
  }
  Done written = std::monostate();
  std::string line;
  const Done read = eachLibraryEntry(library, [&](const LibraryEntry& entry) {
    line.clear();
    appendLibraryLine(line, entry.word, jiemiField(entry.ipa13), entry.gloss);
    written = sink.value()->write(line);
    return written.ok();
  });
  if (!read) {
    context.fail(library, read.error().why);
    return;
  }
  if (written) {
    written = sink.value()->commit();
  }
  if (!written) {
    context.fail(outputName(output), written.error().why);
  }
}

// What an import prints: refused lines at once, the figures at the end.
class ImportReport {
 public:
  ImportReport() : sink_(openStandardOutput()) {}

  void line(std::size_t number, const LineAnswer& answer) {
    ++counts_[static_cast<std::size_t>(answer.outcome)];
    if (answer.outcome == LineOutcome::refused) {
      std::string text = "refused\t" + std::to_string(number) + "\t";
      appendEscaped(text, answer.reason);
      write(text + "\n");
    }
  }

  std::size_t count(LineOutcome outcome) const {
    return counts_[static_cast<std::size_t>(outcome)];
  }

  void figures() {
    constexpr std::array<std::pair<const char*, LineOutcome>, 4> names{{
        {"added", LineOutcome::added},
        {"changed", LineOutcome::changed},
        {"unchanged", LineOutcome::unchanged},
        {"refused", LineOutcome::refused},
    }};
    for (const auto& [name, outcome] : names) {
      write(std::string(name) + "\t" + std::to_string(count(outcome)) + "\n");
    }
  }

  // The first failure of the output.
  Done finish() { return written_ ? sink_->commit() : written_; }

 private:
  void write(std::string_view text) {
    if (written_) {
      written_ = sink_->write(text);
    }
  }

  std::unique_ptr<ByteSink> sink_;
  Done written_ = std::monostate();
  std::array<std::size_t, 4> counts_{};
};

bool isBlank(std::string_view line) { return line.find_first_not_of(" \t") == line.npos; }

// Takes all lines, without committing. False when that could not be done, which has been reported.
bool takeLines(Context& context, const std::string& input, std::unique_ptr<ByteSource> source,
               LibraryEditor& editor, ImportReport& report) {
  TextReader text(std::move(source), LineEnds::lf);
  LineReader lines(text, longestLibraryLine);
  LibraryImport import(editor);
  ProgressLine progress(inputName(input), context.progress);
  std::string line;
  for (std::size_t number = 1;; ++number) {
    const auto more = lines.read(line);
    if (!more) {
      context.fail(inputName(input), more.error().why);
      return false;
    }
    if (!more.value()) {
      return true;
    }
    if (isBlank(line)) {
      continue;
    }
    const auto answer = import.take(line);
    if (!answer) {
      context.fail(pathIn(context.home, libraryName), answer.error().why);
      return false;
    }
    report.line(number, answer.value());
    progress.progress(PassStage::reading, text.bytesRead(), text.size());
  }
}

void finishImport(Context& context, const std::string& input, LibraryEditor& editor,
                  ImportReport& report) {
  if (report.count(LineOutcome::added) + report.count(LineOutcome::changed) > 0) {
    if (const Done done = editor.commit(); !done) {
      context.fail(pathIn(context.home, libraryName), done.error().why);
      return;
    }
  }
  report.figures();
  if (const std::size_t refused = report.count(LineOutcome::refused); refused > 0) {
    context.fail(inputName(input), "lines refused: " + std::to_string(refused));
  }
}

void runImport(Context& context, const std::string& input) {
  auto source = openInput(input);
  if (!source) {
    context.fail(inputName(input), source.error().why);
    return;
  }
  const std::string library = pathIn(context.home, libraryName);
  auto editor = openSqliteEditor(library);
  if (!editor) {
    context.fail(library, editor.error().why);
    return;
  }
  ImportReport report;
  if (takeLines(context, input, std::move(source.value()), *editor.value(), report)) {
    finishImport(context, input, *editor.value(), report);
  }
  if (const Done done = report.finish(); !done) {
    context.fail(standardOutput, done.error().why);
  }
}

}  // namespace

void addLibraryTextCommands(CLI::App& library, Context& context) {
  const auto input = std::make_shared<std::string>();
  CLI::App* importCommand =
      library.add_subcommand("import", "Takes entries from tab-separated text");
  importCommand->footer(
      "Each line is WORD<TAB>TRANSCRIPTION[<TAB>GLOSS], the transcription in font codes or IPA.\n"
      "Example: voxilane-cli library import my-words.tsv");
  importCommand->add_option("FILE", *input, "A text file; - is standard input")
      ->required()
      ->check(fileName);
  importCommand->callback([&context, input] { runImport(context, *input); });

  const auto output = std::make_shared<std::string>();
  CLI::App* exportCommand =
      library.add_subcommand("export", "Prints all entries as tab-separated text");
  exportCommand->footer("Example: voxilane-cli library export -o words.tsv");
  exportCommand->add_option("-o,--output", *output, "A file; - or none is standard output")
      ->check(fileName);
  exportCommand->callback([&context, output] { runExport(context, *output); });
}

}  // namespace voxilane
