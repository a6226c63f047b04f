#include "tools/transcription_converter.h"

#include <random>

#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

constexpr BracketPair slashes{u'/', u'/'};
constexpr BracketPair squares{u'[', u']'};

std::string convertedText(const std::u16string& text, BracketPair brackets, Edition to) {
  return toUtf8(withSegments(text, convertSegments(text, brackets, to).changed));
}

TEST(ConvertSegments, RewritesWhatStandsBetweenBrackets) {
  // brackets, edition, text, found, changed, text afterwards
  for (const auto& [style, edition, text, found, changed, expected] : tableOf<6>(R"(
      [ new hit_[hit] 1 1 hit_[hIt]             [ old [h2t]¶[kJk] 2 2 [hRt]¶[kuk]
      [ mei [5ziErEu]! 1 1 [5zIrro]!            / mei /i:/,/u:/ 2 2 /i/,/u/
      / new /hit/_[hit] 1 1 /hIt/_[hit]         [ new /hit/_[hit] 1 1 /hit/_[hIt]
      [ new [] 1 0 []                           / new // 1 0 //
      [ new [kAt] 1 0 [kAt]                     [ new [i[i] 1 1 [I[I]
      [ new [i]i] 1 1 [I]i]                     [ new ]i[ 0 0 ]i[
      / new /a/hit/b/ 2 0 /a/hit/b/             / new /a//hit/ 2 1 /a//hIt/
      [ new [hi¶it] 1 1 [hI¶It]                 [ new ~ 0 0 ~
      [ new [1234567890123456iii] 1 1 [1234567890123456III]
      [ new [1234567890123456iiii] 0 0 [1234567890123456iiii]
      [ new [i.i..i[1234567890123456iii] 1 1 [i.i..i[1234567890123456III]
      [ old [3¶:JJ] 1 1 [3¶:uu]                 [ new i[i]i[i 1 1 i[I]i[i
      / new 1/2/93,_c:/win/i 2 1 1/2/93,_c:/wIn/i)")) {
    SCOPED_TRACE(style + " " + edition + " " + text);
    const std::u16string document = toUtf16(text);
    const auto conversion =
        convertSegments(document, bracketPairOfStyle(style), *editionNamed(edition));
    EXPECT_EQ(conversion.found, std::stoul(found));
    EXPECT_EQ(conversion.changed.size(), std::stoul(changed));
    EXPECT_EQ(toUtf8(withSegments(document, conversion.changed)), expected);
  }
}

TEST(ConvertSegments, KeepsWhatIsNotAscii) {
  EXPECT_EQ(convertedText(u"[i我们i音标C:]", squares, Edition::kk), "[I我们I音标C]");
  EXPECT_EQ(convertedText(u"/eé😀i/", slashes, Edition::fifteenth), "/eé😀I/");
  EXPECT_EQ(convertedText(u"[E：:]", squares, Edition::kk), "[E：:]");
}

TEST(ConvertSegments, TellsPlacesInUtf16UnitsWithLineEndsOfTwo) {
  const auto conversion = convertSegments(u"😀\r\n[hit] [kAt] [hRt]", squares, Edition::fifteenth);
  ASSERT_EQ(conversion.changed.size(), 2U);
  EXPECT_EQ(conversion.changed[0].position, 5U);
  EXPECT_EQ(conversion.changed[0].before, u"hit");
  EXPECT_EQ(conversion.changed[0].after, u"hIt");
  EXPECT_EQ(conversion.changed[1].position, 17U);
}

TEST(ConvertSegments, IsLinearWithBracketsOnly) {
  constexpr std::size_t many = 10'000'000;
  EXPECT_EQ(convertSegments(std::u16string(many, u'['), squares, Edition::kk).found, 0U);
  EXPECT_EQ(convertSegments(std::u16string(many, u'[') + u"]", squares, Edition::kk).found, 1U);
  EXPECT_EQ(convertSegments(std::u16string(many, u'/'), slashes, Edition::kk).found, many / 2);
}

// The rule as a person would follow it: a window of 20 behind each left bracket.
std::u16string convertedByHand(const std::u16string& text, BracketPair brackets) {
  std::u16string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    out += text[i];
    const std::size_t right =
        std::u16string_view(text).substr(0, i + 21).find(brackets.right, i + 1);
    if (text[i] == brackets.left && right != std::u16string_view::npos) {
      out += toUtf16(convert13toKK(toUtf8(text.substr(i + 1, right - i - 1)))) + brackets.right;
      i = right;
    }
  }
  return out;
}

TEST(ConvertSegments, IsTheSameByHandAndPieceByPiece) {
  std::mt19937 random(1);
  for (int round = 0; round < 2000; ++round) {
    std::u16string text(random() % 120, u' ');
    for (char16_t& c : text) c = u"[/]ieE:utst...."[random() % 15];
    for (const BracketPair brackets : {slashes, squares}) {
      const std::u16string expected = convertedByHand(text, brackets);
      std::u16string pending;
      std::u16string out;
      const std::size_t pieceLength = 1 + random() % 30;
      for (std::size_t at = 0; at < text.size(); at += pieceLength) {
        pending += text.substr(at, pieceLength);
        const auto conversion = convertSegments(pending, brackets, Edition::kk);
        ASSERT_LE(pending.size() - conversion.settled, 20U);
        out += withSegments(pending.substr(0, conversion.settled), conversion.changed);
        pending.erase(0, conversion.settled);
      }
      ASSERT_EQ(toUtf8(out + pending), toUtf8(expected)) << toUtf8(text);
    }
  }
}

TEST(SegmentEdits, TouchOnlyWhatDiffers) {
  // text, then each edit as position,length,new text
  for (const auto& [text, expected] : tableOf<2>(R"(
      [5hit] 3,1,I;     [i:t] 2,1,;     [kAt] ~     [ii] 1,2,II;     [5ziErEu] 3,5,Irro;
      [hit¶kut] 2,1,I;7,1,J;            [i:¶¶i] 2,1,;7,1,I;)")) {
    SCOPED_TRACE(text);
    const auto conversion = convertSegments(toUtf16(text), squares, Edition::kk);
    std::string edits;
    for (const RichTextEdit& edit : segmentEdits(conversion.changed)) {
      EXPECT_FALSE(edit.format);
      edits += std::to_string(edit.position) + "," + std::to_string(edit.length) + "," +
               toUtf8(edit.text) + ";";
    }
    EXPECT_EQ(edits, expected);
  }
}

TEST(SegmentEdits, KeepTheFormats) {
  RichText document;
  append(document, u"an [h", {.bold = true});
  append(document, u"i:", {.italic = true});
  append(document, u"t\r\nu", {.colour = 0xFF});
  append(document, u"] end", {});
  document.paragraphFormats = {{}, {.alignment = Alignment::centre}};
  document.paragraphRuns = {{10, 0}, {document.text.size(), 1}};
  const auto conversion = convertSegments(document.text, squares, Edition::kk);
  const RichText after = edited(document, segmentEdits(conversion.changed));
  EXPECT_EQ(toUtf8(after.text), "an [hit\r\nJ] end");
  EXPECT_EQ(after.characterRuns, (std::vector<FormatRun>{{5, 0}, {6, 1}, {10, 2}, {15, 3}}));
  EXPECT_EQ(after.paragraphRuns, (std::vector<FormatRun>{{9, 0}, {15, 1}}));
}

}  // namespace
}  // namespace voxilane
