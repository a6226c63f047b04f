#include "platform/rich_text.h"

#include <random>

#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/platform/rich_text_check.h"

namespace voxilane {
namespace {

constexpr CharacterFormat plain{.halfPoints = 24};
constexpr CharacterFormat bold{.halfPoints = 24, .bold = true};
constexpr CharacterFormat blue{.halfPoints = 18, .colour = 0x0000FF};

// "one" LF "two" (bold) " three" LF "four", the second paragraph centred.
RichText example() {
  RichText document;
  fontIndex(document, u"Arial");
  append(document, u"one\r\n", plain);
  append(document, u"two", bold);
  append(document, u" three\r\nfour", plain);
  document.paragraphFormats.push_back({.alignment = Alignment::centre});
  document.paragraphRuns = {{5, 0}, {16, 1}, {20, 0}};
  return document;
}

const std::string left = "[left 0 0 0 0 0 0]";
const std::string centre = "[centre 0 0 0 0 0 0]";
const std::string arial = "<Arial 24>";
const std::string arialBold = "<Arial 24 bold>";
const std::string arialBlue = "<Arial 18 colour 255>";

TEST(RichText, AppendedTextTakesItsFormatAndTheLastParagraphsFormat) {
  RichText document = example();
  document.paragraphRuns = {{5, 0}, {20, 1}};
  append(document, u"!\r\nfive", blue);
  EXPECT_EQ(brokenRule(document), "");
  EXPECT_EQ(described(document), left + arial + "one\n" + centre + arialBold + "two" + arial +
                                     " three\nfour" + arialBlue + "!\nfive");
}

TEST(RichText, AFontHasOneIndex) {
  RichText document;
  EXPECT_EQ(fontIndex(document, u"Arial"), 0);
  EXPECT_EQ(fontIndex(document, u"宋体"), 1);
  EXPECT_EQ(fontIndex(document, u"Arial"), 0);
  EXPECT_EQ(document.fonts.size(), 2U);
}

struct EditCase {
  const char* name;
  std::vector<RichTextEdit> edits;
  std::string expected;
};

class EditCases : public testing::TestWithParam<EditCase> {};

TEST_P(EditCases, GiveTheDocument) {
  const RichText document = edited(example(), GetParam().edits);
  EXPECT_EQ(brokenRule(document), "");
  EXPECT_EQ(described(document), GetParam().expected);
}

const std::string tail = " three\n" + left + "four";

INSTANTIATE_TEST_SUITE_P(
    RichText, EditCases,
    testing::Values(
        EditCase{"None", {}, left + arial + "one\n" + centre + arialBold + "two" + arial + tail},
        EditCase{"InsertionWithAFormat",
                 {{6, 0, u"+", blue}},
                 left + arial + "one\n" + centre + arialBold + "t" + arialBlue + "+" + arialBold +
                     "wo" + arial + tail},
        EditCase{"InsertionTakesTheFormatAhead",
                 {{5, 0, u"+", {}}, {8, 0, u"-", {}}},
                 left + arial + "one\n" + centre + "+" + arialBold + "two-" + arial + tail},
        EditCase{"InsertionInFrontOfAllTakesTheFormatBehind",
                 {{0, 0, u"+", {}}},
                 left + arial + "+one\n" + centre + arialBold + "two" + arial + tail},
        EditCase{"ReplacementTakesTheFormatOfTheReplaced",
                 {{5, 1, u"Tt", {}}, {8, 1, u"_", {}}},
                 left + arial + "one\n" + centre + arialBold + "Ttwo" + arial + "_three\n" + left +
                     "four"},
        EditCase{"SeveralInsertionsInOnePlaceStandInOrder",
                 {{1, 0, u"1", {}}, {1, 0, u"2", blue}, {1, 0, u"3", {}}},
                 left + arial + "o1" + arialBlue + "2" + arial + "3ne\n" + centre + arialBold +
                     "two" + arial + tail},
        EditCase{"NewLineEndsContinueTheParagraph",
                 {{7, 0, u"\r\n\r\n", {}}},
                 left + arial + "one\n" + centre + arialBold + "tw\n\no" + arial + tail},
        EditCase{"InsertionBehindALineEndBelongsToTheNextParagraph",
                 {{5, 0, u"new\r\n", plain}},
                 left + arial + "one\n" + centre + "new\n" + arialBold + "two" + arial + tail},
        EditCase{"InsertionAtTheEndContinuesTheLastParagraph",
                 {{20, 0, u"\r\nfive", {}}},
                 left + arial + "one\n" + centre + arialBold + "two" + arial + tail + "\nfive"},
        EditCase{"AJoinedParagraphTakesTheFormatOfItsBeginning",
                 {{3, 2, u"", {}}},
                 left + arial + "one" + arialBold + "two" + arial + " three\nfour"},
        EditCase{"AReplacedLineEndKeepsBothParagraphs",
                 {{3, 2, u"\r\n", {}}},
                 left + arial + "one\n" + centre + arialBold + "two" + arial + tail},
        EditCase{"AParagraphThatGoesWhollyLeavesTheNext",
                 {{5, 11, u"", {}}},
                 left + arial + "one\nfour"},
        EditCase{"DeletionOfAll", {{0, 20, u"", {}}}, ""}),
    [](const auto& test) { return test.param.name; });

TEST(RichText, AnEmptyDocumentTakesText) {
  RichText empty;
  const CharacterFormat format{.font = fontIndex(empty, u"Arial")};
  const std::vector<RichTextEdit> edits{{0, 0, u"a\r\nb", format}};
  const RichText document = edited(empty, edits);
  EXPECT_EQ(brokenRule(document), "");
  EXPECT_EQ(described(document), left + arial + "a\nb");
}

// Edits that tear line ends apart, too.
TEST(RichText, NoEditsBreakTheRules) {
  std::mt19937 random(20);
  const auto below = [&random](std::size_t end) { return random() % end; };
  const std::u16string_view texts[] = {u"", u"x", u"\r\n", u"a\r\nb", u"\n", u"\r", u"long text"};
  RichText document;
  for (int round = 0; round < 2000; ++round) {
    document = round % 20 == 0 ? example() : document;
    std::vector<RichTextEdit> edits;
    for (std::size_t at = below(4); at <= document.text.size() && edits.size() < 8;) {
      RichTextEdit edit{at, std::min(below(6), document.text.size() - at),
                        std::u16string(texts[below(std::size(texts))]), std::nullopt};
      if (below(2) == 0) {
        edit.format = below(2) == 0 ? bold : blue;
      }
      at += edit.length + below(9);
      edits.push_back(edit);
    }
    std::u16string text = document.text;
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
      text.replace(edit->position, edit->length, edit->text);
    }
    document = edited(document, edits);
    ASSERT_EQ(brokenRule(document), "");
    ASSERT_EQ(toUtf8(document.text), toUtf8(text));
  }
}

}  // namespace
}  // namespace voxilane
