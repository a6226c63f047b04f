#include "annotation/rich_layouts.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/support/made_stores.h"

namespace voxilane {
namespace {

constexpr std::uint32_t blue = 0x0000FF;

// A document in two formats: "cat" bold and red in SimSun, " sat." plain in Arial.
RichText twoFormats() {
  RichText document;
  CharacterFormat bold;
  bold.font = fontIndex(document, u"SimSun");
  bold.halfPoints = 40;
  bold.colour = 0xFF0000;
  bold.bold = true;
  append(document, u"cat", bold);
  CharacterFormat plain;
  plain.font = fontIndex(document, u"Arial");
  append(document, u" sat.", plain);
  return document;
}

// Each run as "TEXT|FONT SIZE COLOUR b".
std::vector<std::string> runsOf(const RichText& document) {
  std::vector<std::string> runs;
  std::size_t start = 0;
  for (const FormatRun& run : document.characterRuns) {
    const CharacterFormat& format = document.characterFormats[run.format];
    runs.push_back(toUtf8(document.text.substr(start, run.end - start)) + "|" +
                   toUtf8(document.fonts[format.font]) + " " + std::to_string(format.halfPoints) +
                   " " + std::to_string(format.colour) + (format.bold ? " b" : ""));
    start = run.end;
  }
  return runs;
}

std::vector<std::string> annotatedRuns(const RichText& document, Layout layout,
                                       const std::string& parameters) {
  MadeStores made({{"cat", "kAt"}, {"sat", "sAt"}}, {});
  const CanshuSet canshu = parseParameters("canshu1=none\n" + parameters);
  Transcriber transcribe(made.stores(), chainOf(layout), canshu.edition());
  PassMonitor monitor;
  return runsOf(annotatedDocument(document, layout, canshu, blue, transcribe, monitor).document);
}

TEST(RichLayouts, BehindWordsKeepsTheTextAsItIs) {
  const std::vector<std::string> expected{
      "cat|SimSun 40 16711680 b", "[kAt] |TessaraPhonic 30 255 b", " sat|Arial 24 4278190080",
      "[sAt] |TessaraPhonic 30 255", ".|Arial 24 4278190080"};
  EXPECT_EQ(annotatedRuns(twoFormats(), Layout::dangqian, "canshu2=["), expected);
}

TEST(RichLayouts, AllBehindStandsInALineOfItsOwn) {
  const std::vector<std::string> expected{"cat|SimSun 40 16711680 b",
                                          " sat.\r\n|Arial 24 4278190080",
                                          "[kAt][sAt]|TessaraPhonic 40 255"};
  EXPECT_EQ(annotatedRuns(twoFormats(), Layout::self, "canshu2=[\ncanshu9=20"), expected);
}

TEST(RichLayouts, AlignedLinesHaveLooksOfTheirOwn) {
  const std::vector<std::string> up{" [kAt]  [sAt]       \r\n|TessaraPhonic 28 255",
                                    "cat sat.     \r\n|Times New Roman 36 0"};
  EXPECT_EQ(annotatedRuns(twoFormats(), Layout::up, "canshu2=["), up);
  EXPECT_EQ(annotatedRuns(twoFormats(), Layout::down, "canshu2=["),
            std::vector<std::string>({up[1], up[0]}));
}

TEST(RichLayouts, ABlankDocumentIsLeftAlone) {
  EXPECT_EQ(annotatedRuns(plainDocument(u"  "), Layout::self, ""),
            std::vector<std::string>({"  |宋体 24 4278190080"}));
}

}  // namespace
}  // namespace voxilane
