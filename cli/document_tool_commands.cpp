#include <memory>

#include "cli/commands.h"
#include "cli/document_input.h"
#include "cli/output_text.h"
#include "cli/progress_line.h"
#include "cli/rich_document.h"
#include "cli/streams.h"
#include "core/library_text.h"
#include "core/text.h"
#include "platform/rtf/rtf.h"
#include "platform/text_reader.h"
#include "shell/program_directory.h"
#include "tools/font_converter.h"
#include "tools/transcription_converter.h"

namespace voxilane {
namespace {

struct ReconvertOptions {
  std::string input;
  std::string output;
  std::string edition;
  std::string brackets;
  bool report = false;
};

struct RefontOptions {
  std::string input;
  std::string output;
  std::string from;
  std::string to;
};

// The list of what a conversion changed. Positions count from 1.
class SegmentReport {
 public:
  // Appends the lines of a part of the text that begins `start` units behind its beginning.
  void append(std::string& out, const SegmentConversion& conversion, std::size_t start) {
    found_ += conversion.found;
    changed_ += conversion.changed.size();
    for (const ChangedSegment& segment : conversion.changed) {
      out.append(std::to_string(start + segment.position + 1)).append("\t");
      appendEscaped(out, toUtf8(segment.before));
      out += '\t';
      appendEscaped(out, toUtf8(segment.after));
      out += '\n';
    }
  }

  void appendCounts(std::string& out) const {
    out.append("found ").append(std::to_string(found_));
    out.append(" changed ").append(std::to_string(changed_)).append("\n");
  }

 private:
  std::size_t found_ = 0;
  std::size_t changed_ = 0;
};

// One call of reconvert. What fails is reported; nothing is then committed.
class Reconversion {
 public:
  Reconversion(Context& context, const ReconvertOptions& options)
      : context_(context), options_(options), to_(*editionNamed(options.edition)) {
    CanshuSet canshu = loadParameters(context.home);
    setBracketsNamed(canshu, options.brackets);
    brackets_ = bracketPairOfStyle(canshu.canshu2);
  }

  void run() {
    auto input = openDocument(options_.input);
    if (!input) {
      failInput(input.error());
      return;
    }
    auto sink = openOutput(options_.output);
    if (!sink) {
      failOutput(sink.error());
      return;
    }
    sink_ = std::move(sink.value());
    const bool converted = input.value().isRichText
                               ? convertRichText(std::move(input.value()))
                               : convertPlainText(std::move(input.value().source));
    if (converted) {
      keepReplacedInput(context_, options_.input, options_.output);
      if (const Done done = sink_->commit(); !done) {
        failOutput(done.error());
      }
    }
  }

 private:
  // A part of the text is written as soon as no segment can reach beyond it.
  bool convertPlainText(std::unique_ptr<ByteSource> source) {
    TextReader reader(std::move(source), LineEnds::crLf);
    ProgressLine progress(inputName(options_.input), context_.progress);
    SegmentReport report;
    std::u16string text;
    std::u16string piece;
    std::size_t start = 0;
    for (bool more = true; more;) {
      const auto read = reader.read(piece);
      if (!read) {
        return failInput(read.error());
      }
      more = read.value();
      text += piece;
      const SegmentConversion conversion = convertSegments(text, brackets_, to_);
      const std::size_t length = more ? conversion.settled : text.size();
      std::string out;
      if (options_.report) {
        report.append(out, conversion, start);
      } else {
        const auto part = std::u16string_view(text).substr(0, length);
        appendOutputText(out, withSegments(part, conversion.changed));
      }
      if (!write(out)) {
        return false;
      }
      text.erase(0, length);
      start += length;
      progress.progress(PassStage::reading, reader.bytesRead(), reader.size());
    }
    return !options_.report || writeCounts(report);
  }

  bool convertRichText(DocumentInput input) {
    const auto reading = readDocument(std::move(input));
    if (!reading) {
      return failInput(reading.error());
    }
    if (const auto& leftOut = reading.value().leftOut; !leftOut.empty()) {
      context_.note(inputName(options_.input), "left out: " + namesOf(leftOut));
    }
    const RichText& document = reading.value().document;
    const SegmentConversion conversion = convertSegments(document.text, brackets_, to_);
    if (options_.report) {
      SegmentReport report;
      std::string out;
      report.append(out, conversion, 0);
      return write(out) && writeCounts(report);
    }
    const RichText converted = edited(document, segmentEdits(conversion.changed));
    const Done done = writeRtf(converted, *sink_);
    return done || failOutput(done.error());
  }

  bool writeCounts(const SegmentReport& report) {
    std::string counts;
    report.appendCounts(counts);
    return write(counts);
  }

  bool write(std::string_view bytes) {
    const Done done = sink_->write(bytes);
    return done || failOutput(done.error());
  }

  bool failInput(const Error& error) {
    context_.fail(inputName(options_.input), error.why);
    return false;
  }

  bool failOutput(const Error& error) {
    context_.fail(outputName(options_.output), error.why);
    return false;
  }

  Context& context_;
  const ReconvertOptions& options_;
  Edition to_;
  BracketPair brackets_{};
  std::unique_ptr<ByteSink> sink_;
};

// The source text with the font renamed; nothing when that failed, which has been reported.
std::optional<std::string> renamedSource(Context& context, const RefontOptions& options) {
  const auto failed = [&](std::string_view why) {
    context.fail(inputName(options.input), why);
    return std::nullopt;
  };
  const auto from = chosenFont(options.from);
  const auto to = chosenFont(options.to);
  if (const auto refusal = fontChoiceRefusal(from, to)) {
    context.fail("refont", *refusal);
    return std::nullopt;
  }
  auto input = openDocument(options.input);
  if (!input) {
    return failed(input.error().why);
  }
  if (!input.value().isRichText) {
    return failed("is no rich text");
  }
  auto source = readAll(*input.value().source);
  if (!source) {
    return failed(source.error().why);
  }
  if (!renameFont(source.value(), from, to)) {
    return failed(fontNotUsedText);
  }
  return std::move(source.value());
}

void runRefont(Context& context, const RefontOptions& options) {
  const auto source = renamedSource(context, options);
  if (!source) {
    return;
  }
  auto sink = openOutput(options.output);
  Done done = sink ? sink.value()->write(*source) : Done(sink.error());
  if (done) {
    keepReplacedInput(context, options.input, options.output);
    done = sink.value()->commit();
  }
  if (!done) {
    context.fail(outputName(options.output), done.error().why);
  }
}

const CLI::Validator fontName(
    [](const std::string& name) {
      return isUtf8(name) && isFontName(name) ? std::string() : "not the name of a font";
    },
    "");

void addReconvert(CLI::App& app, Context& context) {
  const auto options = std::make_shared<ReconvertOptions>();
  CLI::App* reconvert =
      app.add_subcommand("reconvert", "Rewrites the transcriptions that stand in a document");
  reconvert->footer(
      "Transcriptions are font codes between brackets, at most 19 characters.\n"
      "Example: voxilane-cli reconvert lesson.txt --to mei --brackets slash -o lesson-kk.txt");
  reconvert->add_option("INPUT", options->input, "A document; - or none is standard input");
  reconvert->add_option("--to", options->edition, "From the 13th edition; old: from the 15th")
      ->required()
      ->check(editionNames);
  reconvert->add_option("--brackets", options->brackets, "Around transcriptions")
      ->check(CLI::IsMember({"slash", "square"}));
  reconvert->add_option("-o,--output", options->output, "A file; - or none is standard output")
      ->check(fileName);
  reconvert->add_flag("--report", options->report, "What changes, instead of the document");
  reconvert->callback([&context, options] { Reconversion(context, *options).run(); });
}

void addRefont(CLI::App& app, Context& context) {
  const auto options = std::make_shared<RefontOptions>();
  CLI::App* refont = app.add_subcommand("refont", "Renames a font of a rich text document");
  refont->footer("Example: voxilane-cli refont lesson.rtf --from 宋体 --to 楷体 -o new.rtf");
  refont->add_option("INPUT", options->input, "Rich text; - or none is standard input");
  refont->add_option("--from", options->from, "The font to rename")->required()->check(fontName);
  refont->add_option("--to", options->to, "Its new name")->required()->check(fontName);
  refont->add_option("-o,--output", options->output, "A file; - or none is standard output")
      ->check(fileName);
  refont->callback([&context, options] { runRefont(context, *options); });
}

}  // namespace

void addDocumentToolCommands(CLI::App& app, Context& context) {
  addReconvert(app, context);
  addRefont(app, context);
}

}  // namespace voxilane
