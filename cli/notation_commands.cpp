#include <memory>
#include <vector>

#include "cli/commands.h"
#include "cli/list_answers.h"
#include "core/editions.h"
#include "core/syllables.h"

namespace voxilane {
namespace {

// The codes of IPA that could be read; else the failure is reported and the item has no answer.
std::string readableCodes(Context& context, std::string_view item, const IpaReading& reading) {
  if (!reading.fault) {
    return reading.codes;
  }
  context.fail(item, faultText(*reading.fault));
  return {};
}

std::string converted(Context& context, std::string_view target, std::string_view item) {
  if (const auto edition = editionNamed(target)) {
    return spelled(inEdition(item, edition), context.spelling());
  }
  if (target == "unicode") return codeToUnicode(item);
  if (target == "entities") return codeToEntities(item);
  if (target == "ipa") return codeToIpa(item);
  return readableCodes(context, item, ipaToCode(item));
}

std::string syllablesOf(Context& context, std::string_view item) {
  if (context.codes) {
    return std::to_string(getYinjieCount(item));
  }
  const IpaReading reading = codesFromEither(item);
  const std::string codes = readableCodes(context, item, reading);
  return reading.fault ? std::string() : std::to_string(getYinjieCount(codes));
}

}  // namespace

void addNotationCommands(CLI::App& app, Context& context) {
  const auto items = std::make_shared<std::vector<std::string>>();
  const auto target = std::make_shared<std::string>();

  CLI::App* convert = app.add_subcommand("convert", "One conversion of font codes, line by line");
  convert->footer("Example: voxilane-cli convert --to ipa 5ApEl");
  convert->add_option("--to", *target, "Font codes of an edition, text, or codes from IPA")
      ->required()
      ->check(CLI::IsMember({"new", "old", "mei", "unicode", "entities", "ipa", "codes"}));
  convert->add_option("TEXT", *items, "Texts; without any, the lines of standard input")
      ->check(utf8Text);
  convert->callback([&context, items, target] {
    answerItems(context, *items,
                [&](std::string_view item) { return converted(context, *target, item); });
  });

  CLI::App* syllables = app.add_subcommand("syllables", "The number of syllables, line by line");
  syllables->footer("Example: voxilane-cli syllables 5ziErEu");
  syllables
      ->add_option("YINBIAO", *items, "Transcriptions; without any, the lines of standard input")
      ->check(utf8Text);
  syllables->callback([&context, items] {
    answerItems(context, *items, [&](std::string_view item) { return syllablesOf(context, item); });
  });
}

}  // namespace voxilane
