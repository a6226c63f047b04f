#include <random>

#include <gtest/gtest.h>

#include "platform/rtf/rtf.h"
#include "tests/platform/rich_text_check.h"
#include "tests/support/string_sink.h"

namespace voxilane {
namespace {

constexpr std::u16string_view fonts[] = {
    u"宋体", u"SimSun", u"Times New Roman", u"TessaraPhonic", u"楷体_GB2312",
    u"Füße", u"바탕",   u"ＭＳ 明朝",       u"{a}\\b",        u"𠀀体",
};

constexpr std::u16string_view texts[] = {
    u"word",      u" ",        u"  ",        u"\r\n",
    u"\r\n\r\n",  u"\t",       u"\v",        u"课文",
    u"，。“”",    u"—…·",      u"ɔːˈbʊk",    u"é€ü",
    u"ΩЖя",       u"日本語",   u"한글",      u"臺灣",
    u"丂龥",      u"𠀀😀",      u"\\par {x}", u"\\'cb;}",
    u"0 -1 u8?",  u"\u00A0",   u"\u00AD",    u"\u2011",
    u"\u200D‍", u"\uE000豈", u"\uFFFD",    u"\x01\x0C\x1F\x7F\x85",
};

// A document of random runs, its formats and paragraphs in every combination.
RichText randomDocument(std::mt19937& random) {
  const auto below = [&random](std::uint32_t end) {
    return static_cast<std::uint32_t>(random() % end);
  };
  const auto twips = [&] { return below(2) == 0 ? 0 : static_cast<int>(below(3000)) - 1000; };
  RichText document;
  for (std::uint32_t runs = below(30); runs > 0; --runs) {
    CharacterFormat format{.font = fontIndex(document, fonts[below(std::size(fonts))])};
    format.halfPoints = static_cast<std::uint16_t>(below(2) == 0 ? 24 : 1 + below(3000));
    format.colour = below(2) == 0 ? automaticColour : below(0x1000000);
    format.bold = below(4) == 0;
    format.italic = below(4) == 0;
    format.underline = below(4) == 0;
    format.strike = below(4) == 0;
    for (std::uint32_t parts = below(4); parts > 0; --parts) {
      append(document, texts[below(std::size(texts))], format);
    }
  }
  if (below(2) == 0) {
    document.page = {.width = 1 + static_cast<int>(below(30'000)),
                     .topMargin = static_cast<int>(below(3000)),
                     .isLandscape = below(2) == 0};
  }
  document.paragraphRuns.clear();
  for (std::size_t at = 0; at < document.text.size();) {
    const std::size_t lineEnd = document.text.find(u"\r\n", at);
    at = lineEnd == document.text.npos ? document.text.size() : lineEnd + 2;
    ParagraphFormat format{.alignment = Alignment{static_cast<std::uint8_t>(below(4))},
                           .leftIndent = twips(),
                           .rightIndent = twips(),
                           .firstLineIndent = twips(),
                           .spaceBefore = static_cast<int>(below(500)),
                           .spaceAfter = static_cast<int>(below(500)),
                           .lineSpacing = twips()};
    format.lineSpacingIsMultiple = format.lineSpacing > 0 && below(2) == 0;
    document.paragraphFormats.push_back(format);
    addRun(document.paragraphRuns, at,
           static_cast<std::uint32_t>(document.paragraphFormats.size() - 1));
  }
  return document;
}

std::string describedAfterRoundTrip(const RichText& document) {
  StringSink sink;
  EXPECT_TRUE(writeRtf(document, sink).ok());
  EXPECT_TRUE(isRtf(sink.bytes));
  const Result<RtfReading> reading = readRtf(sink.bytes);
  if (!reading) {
    return reading.error().why;
  }
  EXPECT_TRUE(reading.value().leftOut.empty());
  EXPECT_EQ(brokenRule(reading.value().document), "");
  return described(reading.value().document);
}

TEST(RtfRoundTrip, GivesTheSameDocument) {
  std::mt19937 random(1);
  for (int round = 0; round < 1000; ++round) {
    const RichText document = randomDocument(random);
    ASSERT_EQ(describedAfterRoundTrip(document), described(document)) << "round " << round;
  }
}

// All but those that end lines in other ways than a document does.
TEST(RtfRoundTrip, GivesEveryCharacterInAnyFont) {
  const std::u16string lineEnds = u"\r\n\u2028";
  std::u16string text;
  for (char16_t unit = 1; unit != 0; ++unit) {
    if (lineEnds.find(unit) == lineEnds.npos) {
      text += unit;
    }
  }
  for (const std::u16string_view font : {u"SimSun", u"Arial"}) {
    RichText document;
    append(document, text, {.font = fontIndex(document, font)});
    EXPECT_TRUE(describedAfterRoundTrip(document) == described(document));
  }
}

TEST(RtfRoundTrip, GivesAnEmptyDocument) { EXPECT_EQ(describedAfterRoundTrip({}), ""); }

}  // namespace
}  // namespace voxilane
