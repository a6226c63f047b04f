#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <thread>
#include <vector>

#include "cli/annotator.h"
#include "cli/commands.h"
#include "cli/opened_stores.h"
#include "cli/streams.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr int smallestSize = 2;
constexpr int largestSize = 72;
constexpr int mostJobs = 64;

struct AnnotateOptions {
  std::vector<std::string> inputs;
  std::string output;
  std::string layout;
  std::string edition;
  std::string brackets;
  std::string separator;
  std::string font;
  std::string form;
  int size = 0;
  int jobs = 1;
};

// One document: where it comes from and where it goes.
struct Document {
  std::string input;
  std::string output;
};

std::string formByEnding(const std::string& output) {
  const std::string ending = lowerCased(std::filesystem::path(output).extension().string());
  if (ending == ".htm" || ending == ".html") return "html";
  if (ending == ".rtf" || ending == ".docx") return ending.substr(1);
  return "text";
}

AnnotationJob jobOf(const AnnotateOptions& options, const Context& context) {
  AnnotationJob job;
  job.canshu = loadParameters(context.home);
  const auto set = [](std::string& parameter, const std::string& option) {
    if (!option.empty()) {
      parameter = option;
    }
  };
  set(job.canshu.canshu1, options.edition);
  set(job.canshu.canshu3, options.separator);
  set(job.canshu.canshu4, options.layout);
  setBracketsNamed(job.canshu, options.brackets);
  if (!options.font.empty()) {
    job.canshu.canshu8 = options.font == "phonetic" ? phoneticFont : unicodeFont;
  }
  if (options.size != 0) {
    job.canshu.canshu9 = static_cast<std::int16_t>(options.size);
  }
  job.form = options.form == "html"  ? OutputForm::html
             : options.form == "rtf" ? OutputForm::rtf
                                     : OutputForm::text;
  job.spelling = options.form == "unicode" ? Spelling::unicode : context.spelling();
  return job;
}

// What this version cannot write yet; empty when it can.
std::string missingPart(const AnnotateOptions& options, const AnnotationJob& job) {
  const auto layout = layoutNamed(job.canshu.canshu4);
  if (layout == Layout::word1 || layout == Layout::word2 || job.canshu.canshu4 == "ruby") {
    return "the layout " + job.canshu.canshu4 + " is not part of this version";
  }
  if (options.form == "docx") {
    return "docx is not part of this version";
  }
  return {};
}

// Where each input goes. Throws for calls that cannot be followed.
std::vector<Document> documentsOf(const AnnotateOptions& options) {
  std::vector<std::string> inputs = options.inputs;
  if (inputs.empty()) {
    inputs.emplace_back("-");
  }
  const bool toFolder = inputs.size() > 1 || isDirectory(options.output);
  if (toFolder && options.output.empty()) {
    throw CLI::ValidationError("several inputs need -o with a folder");
  }
  std::vector<Document> documents;
  std::set<std::string> outputs;
  for (const std::string& input : inputs) {
    if (!toFolder) {
      return {{input, options.output}};
    }
    if (input == "-") {
      throw CLI::ValidationError("standard input has no name to take into a folder");
    }
    const bool isText = options.form == "text" || options.form == "unicode";
    const std::string ending = isText ? ".txt" : "." + options.form;
    auto name = std::filesystem::path(input).filename().replace_extension(ending);
    std::string output = (std::filesystem::path(options.output) / name).string();
    if (!outputs.insert(output).second) {
      throw CLI::ValidationError("two inputs would both go to " + output);
    }
    documents.push_back({input, std::move(output)});
  }
  return documents;
}

// Writes a document annotated, whole or not at all. The first failure is reported.
void annotateDocument(Context& context, Annotator& annotator, const Document& document,
                      bool toFolder) {
  // A single document may be told to take its own place; in a folder that would be an accident.
  if (toFolder && isSameFile(document.input, document.output)) {
    context.fail(document.output, "is the input");
    return;
  }
  auto input = openDocument(document.input);
  if (!input) {
    context.fail(inputName(document.input), input.error().why);
    return;
  }
  auto sink = openOutput(document.output);
  if (!sink) {
    context.fail(outputName(document.output), sink.error().why);
    return;
  }
  ProgressLine progress(inputName(document.input), context.progress);
  const auto outcome = annotator.annotate(std::move(input.value()), *sink.value(), progress);
  switch (outcome.failed) {
    case FailedPart::input:
      context.fail(inputName(document.input), outcome.why);
      return;
    case FailedPart::library:
      context.fail(pathIn(context.home, libraryName), outcome.why);
      return;
    case FailedPart::output:
      context.fail(outputName(document.output), outcome.why);
      return;
    case FailedPart::none:
      break;
  }
  keepReplacedInput(context, document.input, document.output);
  if (const Done done = sink.value()->commit(); !done) {
    context.fail(outputName(document.output), done.error().why);
    return;
  }
  if (!outcome.leftOut.empty()) {
    context.note(inputName(document.input), "left out: " + namesOf(outcome.leftOut));
  }
  if (outcome.hasLongParagraph) {
    context.note(inputName(document.input), longParagraphText);
  }
}

// Each worker has a library of its own; the word list is shared.
void annotateAll(Context& context, const AnnotateOptions& options, const AnnotationJob& job,
                 const std::vector<Document>& documents) {
  const auto list = loadedWordList(context);
  if (!list) {
    return;
  }
  const std::size_t count =
      std::min<std::size_t>(static_cast<std::size_t>(options.jobs), documents.size());
  std::vector<WordLibrary> libraries;
  while (libraries.size() < count) {
    auto library = openedLibrary(context, LibraryTables::words);
    if (!library) {
      return;
    }
    libraries.push_back(std::move(*library));
  }
  std::atomic<std::size_t> next = 0;
  const auto work = [&](WordLibrary& library) {
    Annotator annotator(job, {*list, library});
    for (std::size_t i = next++; i < documents.size(); i = next++) {
      annotateDocument(context, annotator, documents[i], isDirectory(options.output));
    }
  };
  std::vector<std::thread> workers;
  while (workers.size() + 1 < count) {
    workers.emplace_back(work, std::ref(libraries[workers.size() + 1]));
  }
  work(libraries.front());
  for (std::thread& worker : workers) {
    worker.join();
  }
}

void runAnnotate(Context& context, AnnotateOptions options) {
  if (options.form.empty()) {
    options.form = formByEnding(options.output);
  }
  const std::vector<Document> documents = documentsOf(options);
  const AnnotationJob job = jobOf(options, context);
  if (const std::string missing = missingPart(options, job); !missing.empty()) {
    context.fail("annotate", missing);
    return;
  }
  if (!layoutNamed(job.canshu.canshu4)) {
    context.note(pathIn(context.home, parametersName),
                 "no layout " + job.canshu.canshu4 + ": documents come out as they are");
  }
  if (documents.size() > 1 && !isDirectory(options.output)) {
    if (const Done made = makeDirectory(options.output); !made) {
      context.fail(options.output, made.error().why);
      return;
    }
  }
  annotateAll(context, options, job, documents);
}

}  // namespace

void addAnnotateCommand(CLI::App& app, Context& context) {
  const auto options = std::make_shared<AnnotateOptions>();
  CLI::App* annotate = app.add_subcommand("annotate", "Annotates whole documents");
  annotate->footer(
      "What is not given comes from canshushezhi.txt.\n"
      "Example: voxilane-cli annotate story.txt --layout up --edition old -o story-ipa.txt");
  annotate->add_option("INPUT", options->inputs, "Text files; - or none is standard input");
  annotate->add_option("-o,--output", options->output, "A file, or a folder for several inputs")
      ->check(fileName);
  annotate->add_option("--layout", options->layout, "Where transcriptions go")
      ->check(CLI::IsMember({"dangqian", "up", "down", "self", "word1", "word2", "ruby"}));
  annotate
      ->add_option("--edition", options->edition, "Notation: 15th edition, 13th, K.K., as stored")
      ->check(CLI::IsMember({"new", "old", "mei", "none"}));
  annotate->add_option("--brackets", options->brackets, "Around transcriptions")
      ->check(bracketNames);
  annotate->add_option("--separator", options->separator, "Behind them: a blank or a line end")
      ->check(separatorNames);
  annotate->add_option("--size", options->size, "Points of the transcription")
      ->check(CLI::Range(smallestSize, largestSize));
  annotate->add_option("--font", options->font, "Font of transcriptions in web pages")
      ->check(CLI::IsMember({"unicode", "phonetic"}));
  annotate->add_option("--to", options->form, "Default: by the ending of the output, else text")
      ->check(CLI::IsMember({"text", "unicode", "rtf", "html", "docx"}));
  annotate->add_option("--jobs", options->jobs, "How many documents at once")
      ->check(CLI::Range(1, mostJobs));
  annotate->callback([&context, options] { runAnnotate(context, *options); });
}

}  // namespace voxilane
