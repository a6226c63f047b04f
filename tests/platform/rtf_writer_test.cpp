#include <gtest/gtest.h>

#include "platform/rtf/rtf.h"
#include "tests/support/string_sink.h"

namespace voxilane {
namespace {

class FullSink : public StringSink {
 public:
  Done write(std::string_view /*part*/) override {
    ++writes;
    return Error{"full"};
  }

  int writes = 0;
};

std::string written(const RichText& document) {
  StringSink sink;
  EXPECT_TRUE(writeRtf(document, sink).ok());
  return sink.bytes;
}

std::string writtenText(std::u16string_view font, std::u16string_view text) {
  RichText document;
  append(document, text, {.font = fontIndex(document, font)});
  const std::string bytes = written(document);
  const std::string_view begin = "\\plain\\f0\\fs24\\pard ";
  const std::size_t at = bytes.find(begin);
  return at == bytes.npos ? "no text" : bytes.substr(at + begin.size());
}

std::string writtenFont(std::u16string_view name) {
  RichText document;
  fontIndex(document, name);
  const std::string bytes = written(document);
  const std::size_t begin = bytes.find("\\fonttbl") + 8;
  return bytes.substr(begin, bytes.find("{\\colortbl") - 3 - begin);
}

TEST(RtfWriter, WritesTheWholeFile) {
  RichText document;
  const std::uint16_t chinese = fontIndex(document, u"宋体");
  const std::uint16_t latin = fontIndex(document, u"Times New Roman");
  append(document, u"书 book", {.font = chinese});
  append(document, u" [buk]", {.font = latin, .halfPoints = 21, .colour = 0x0000FF});
  append(document, u"\r\n书", {.font = chinese});
  document.paragraphFormats.push_back({.alignment = Alignment::centre, .firstLineIndent = -420});
  document.paragraphRuns = {{14, 0}, {15, 1}};
  EXPECT_EQ(written(document),
            "{\\rtf1\\ansi\\ansicpg936\\deff0\\uc1{\\fonttbl{\\f0\\fnil\\fcharset134 "
            "\\'cb\\'ce\\'cc\\'e5;}{\\f1\\fnil\\fcharset0 Times New Roman;}}\r\n"
            "{\\colortbl ;\\red0\\green0\\blue255;}\r\n"
            "{\\*\\generator Voxilane;}\r\n"
            "\\plain\\f0\\fs24\\pard \\'ca\\'e9 book\\f1\\fs21\\cf1  [buk]\\f0\\fs24\\cf0 \\par\r\n"
            "\\pard\\qc\\fi-420 \\'ca\\'e9}\r\n");
}

TEST(RtfWriter, WritesAnEmptyDocument) {
  EXPECT_EQ(written({}),
            "{\\rtf1\\ansi\\ansicpg936\\deff0\\uc1{\\fonttbl{\\f0\\fnil\\fcharset0 Times New "
            "Roman;}}\r\n{\\colortbl ;}\r\n{\\*\\generator Voxilane;}\r\n}\r\n");
}

struct TextCase {
  std::u16string_view text;
  const char* inLatinFont;
  const char* inChineseFont;
};

TEST(RtfWriter, EscapesText) {
  const TextCase cases[] = {
      {u"a\\b {c}", "a\\\\b \\{c\\}", "a\\\\b \\{c\\}"},
      {u"a\tb\vc", "a\\tab b\\line c", "a\\tab b\\line c"},
      {u"\x01\x7F", "\\u1?\\u127?", "\\u1?\\u127?"},
      {u"书", "\\u20070?", "\\'ca\\'e9"},
      {u"龥，", "\\u-24667?\\u-244?", "\\'fd\\'9b\\'a3\\'ac"},
      {u"“”—…", "\\u8220?\\u8221?\\u8212?\\u8230?", "\\'a1\\'b0\\'a1\\'b1\\'a1\\'aa\\'a1\\'ad"},
      {u"ɔːé", "\\u596?\\u720?\\u233?", "\\u596?\\u720?\\'a8\\'a6"},
      // One byte in Windows, two in GB18030.
      {u"€", "\\u8364?", "\\u8364?"},
      // For private use in Windows, another character in GB18030.
      {u"\uE76C", "\\u-6292?", "\\u-6292?"},
      {u"\U0001F600", "\\u-10179?\\u-8704?", "\\u-10179?\\u-8704?"},
      {u"a\r\nb\r\n", "a\\par\r\nb\\par\r\n", "a\\par\r\nb\\par\r\n"},
      {u"a\rb\n", "a\\line b\\line ", "a\\line b\\line "},
  };
  for (const TextCase& test : cases) {
    EXPECT_EQ(writtenText(u"Arial", test.text), test.inLatinFont + std::string("}\r\n"));
    EXPECT_EQ(writtenText(u"SimSun", test.text), test.inChineseFont + std::string("}\r\n"));
  }
}

TEST(RtfWriter, NamesFonts) {
  const std::pair<std::u16string_view, const char*> cases[] = {
      {u"Courier New", "{\\f0\\fnil\\fcharset0 Courier New;}"},
      {u"Microsoft YaHei", "{\\f0\\fnil\\fcharset134 Microsoft YaHei;}"},
      {u"楷体_GB2312", "{\\f0\\fnil\\fcharset134 \\'bf\\'ac\\'cc\\'e5_GB2312;}"},
      {u"바탕", "{\\f0\\fnil\\fcharset0 \\u-17388?\\u-12075?;}"},
      {u"a{b}", "{\\f0\\fnil\\fcharset0 a\\{b\\};}"},
  };
  for (const auto& [name, entry] : cases) {
    EXPECT_EQ(writtenFont(name), entry);
  }
}

TEST(RtfWriter, ListsEachColourOnce) {
  RichText document;
  fontIndex(document, u"Arial");
  append(document, u"a", {.colour = 0x0000FF});
  append(document, u"b", {.colour = 0x0000FF, .bold = true});
  append(document, u"c", {.colour = 0});
  append(document, u"d", {});
  const std::string bytes = written(document);
  EXPECT_EQ(bytes.substr(bytes.find("{\\colortbl")),
            "{\\colortbl ;\\red0\\green0\\blue255;\\red0\\green0\\blue0;}\r\n"
            "{\\*\\generator Voxilane;}\r\n"
            "\\plain\\f0\\fs24\\pard\\cf1 a\\b b\\cf2\\b0 c\\cf0 d}\r\n");
}

TEST(RtfWriter, TurnsLooksOnAndOff) {
  RichText document;
  fontIndex(document, u"Arial");
  append(document, u"a", {.bold = true, .italic = true, .underline = true, .strike = true});
  append(document, u"b", {});
  const std::string bytes = written(document);
  EXPECT_EQ(bytes.substr(bytes.find("\\plain")),
            "\\plain\\f0\\fs24\\pard\\b\\i\\ul\\strike a\\b0\\i0\\ulnone\\strike0 b}\r\n");
}

TEST(RtfWriter, WritesParagraphFormats) {
  const std::pair<ParagraphFormat, const char*> cases[] = {
      {{}, "\\pard"},
      {{.alignment = Alignment::right, .leftIndent = 420, .rightIndent = -100},
       "\\pard\\qr\\li420\\ri-100"},
      {{.alignment = Alignment::justified, .spaceBefore = 120, .spaceAfter = 60},
       "\\pard\\qj\\sb120\\sa60"},
      {{.lineSpacing = 360, .lineSpacingIsMultiple = true}, "\\pard\\sl360\\slmult1"},
      {{.lineSpacing = -400}, "\\pard\\sl-400\\slmult0"},
  };
  for (const auto& [format, expected] : cases) {
    RichText document;
    fontIndex(document, u"Arial");
    append(document, u"a", {});
    document.paragraphFormats[0] = format;
    const std::string bytes = written(document);
    EXPECT_EQ(bytes.substr(bytes.find("\\pard")), expected + std::string(" a}\r\n"));
  }
}

TEST(RtfWriter, TellsThePageWhereItIsNoCommonOne) {
  RichText document;
  EXPECT_EQ(written(document).find("\\paperw"), std::string::npos);
  document.page = {.width = 16838, .height = 11906, .bottomMargin = 0, .isLandscape = true};
  EXPECT_NE(written(document).find("\\paperw16838\\paperh11906\\margl1800\\margr1800\\margt1440"
                                   "\\margb0\\landscape\r\n"),
            std::string::npos);
}

TEST(RtfWriter, WritesLongTextInParts) {
  RichText document;
  fontIndex(document, u"Arial");
  std::u16string text;
  std::string expected;
  while (text.size() < 1'000'000) {
    text += u"line\r\n";
    expected += "line\\par\r\n";
  }
  append(document, text, {});
  const std::string bytes = written(document);
  EXPECT_EQ(bytes.substr(bytes.find("\\pard ") + 6), expected + "}\r\n");
}

TEST(RtfWriter, StopsWhenTheSinkFails) {
  RichText document;
  fontIndex(document, u"Arial");
  append(document, std::u16string(10'000'000, u'a'), {});
  FullSink sink;
  const Done done = writeRtf(document, sink);
  ASSERT_FALSE(done.ok());
  EXPECT_EQ(done.error().why, "full");
  EXPECT_EQ(sink.writes, 1);
}

}  // namespace
}  // namespace voxilane
