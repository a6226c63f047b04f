#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text.h"
#include "platform/rtf/rtf.h"
#include "tests/platform/rich_text_check.h"

namespace voxilane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string header =
    R"({\rtf1\ansi\ansicpg936\deff0{\fonttbl{\f0\fnil\fcharset0 Arial;})"
    R"({\f1\fnil\fcharset134 \'cb\'ce\'cc\'e5;}{\f2\fcharset128 Mincho;}{\f3\fcharset204 Lazurski;})"
    R"({\f4\fcharset2 Symbol;}{\f5\fcharset136 Ming;}{\f6\fcharset129 Batang;}{\f7\cpg65001 Noto;}})"
    R"({\colortbl;\red255\green0\blue16;})";

RtfReading reading(const std::string& source) {
  const auto read = readRtf(source);
  EXPECT_TRUE(read.ok());
  if (!read) {
    return {};
  }
  EXPECT_EQ(brokenRule(read.value().document), "") << source;
  return read.value();
}

std::string textOfFile(const std::string& source) {
  std::string text = toUtf8(reading(source).document.text);
  replaceAll(text, {"\r\n", "\n"});
  return text;
}

std::string textOf(const std::string& body) { return textOfFile(header + body + "}"); }

// As described() has it, where the text is in Arial 12.
std::string lookOf(const std::string& body) {
  std::string look = described(reading(header + body + "}").document);
  for (const std::string usual : {"<Arial 24", "[left 0 0 0 0 0 0]"}) {
    replaceAll(look, {usual, usual == "<Arial 24" ? "<" : ""});
  }
  return look;
}

std::string repeated(const std::string& part, std::size_t times) {
  std::string all;
  for (; times > 0; --times) {
    all += part;
  }
  return all;
}

struct Case {
  std::string rtf;
  std::string expected;
};

TEST(RtfReader, ReadsCharacters) {
  const Case cases[] = {
      {R"(a\'e9\'C9b)", "aéÉb"},
      {"a\xE9 b", "aé b"},
      {R"(\\ \{ \})", "\\ { }"},
      {R"(a\~b\_c\-d)", "a\u00A0b\u2011c\u00ADd"},
      {R"(\lquote a\rquote\ldblquote b\rdblquote\emdash\endash\bullet)", "‘a’“b”—–•"},
      {"a\\tab b\tc\\\td", "a\tb\tc\td"},
      {R"(a\line b\'0ac\u8232?d)", "a\vb\vc\vd"},
      {"a\r\nb\0c", "ab"},
      {"a\\par b\\\nc\\\r\nd\\'0de", "a\nb\nc\nd\ne"},
      {R"(a\b b\b0  c)", "ab c"},
      {R"({a}{b{c}})", "abc"},
      {R"(\'01\'00)", "\x01"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(textOf(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, ReadsCodePagesOfFonts) {
  const Case cases[] = {
      {R"(\f1\'d6\'d0\'ce\'c4)", "中文"},
      {"\\f1\\'d6\r\n\\'d0", "中"},
      {"\\f1 \xD6\xD0\xCE\xC4 a", "中文 a"},
      {"\\f1 \x81\\'30\\'81\\'30", "\u0080"},
      {R"(\f1 a\'80\'81\'80)", "a€亐"},
      {R"(\f2\'83e\'83X\'83g\'b1)", "テストｱ"},
      {R"(\f2\'95\\\'83\{x)", "表ボx"},
      {"\\f2 \x95\\\x8E\xA6 \x83{ \x83\\'5c \x95\\\\ \x95\\b x", "表示 ボ ソ 表 \uFFFDx"},
      {R"(\f3\'cf\'f0\'e8)", "При"},
      {R"(\f4\'b7 a)", "· a"},
      {R"(\f5\'a4\'a4\'a4\'e5)", "中文"},
      {R"(\f6\'c7\'d1)", "한"},
      {R"(\f7\'e4\'b8\'ad a)", "中 a"},
      {R"({\f1\'d6\'d0}\'e9)", "中é"},
      {R"(\f99\'e9)", "é"},
      // Bytes that are none.
      {R"(\f1 a\'d6 b\'d6\par\'ff5\'d6\'0d)", "a\uFFFD b\uFFFD\n\uFFFD5\uFFFD"},
      {R"(\f2\'80a)", "\uFFFDa"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(textOf(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, ReadsTheCodePageOfTheDocument) {
  const Case cases[] = {
      {R"({\rtf1 \'e9})", "é"},
      {R"({\rtf1\ansi\ansicpg936 \'d6\'d0})", "中"},
      {R"({\rtf1\ansi\ansicpg1251{\fonttbl\f0 A;\f1\fcharset1 B;}\f0\'cf\f1\'cf})", "ПП"},
      {R"({\rtf1\ansi\ansicpg1{\fonttbl\f0\fcharset99 A;}\f0\'e9})", "é"},
      {R"({\rtf1\mac \'8e})", "é"},
      {R"({\rtf1\pc \'82})", "é"},
      {R"({\rtf1\pca \'9b})", "ø"},
      // Only Cocoa means the code page of the document by the first character set.
      {R"({\rtf1\ansi\ansicpg936\cocoartf1{\fonttbl\f0\fcharset0 A;}\f0 don\'a1\'aft})", "don’t"},
      {R"({\rtf1\ansi\ansicpg936{\fonttbl\f0\fcharset0 A;}\f0 d\'e9j\'e0})", "déjà"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(textOfFile(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, ReadsUnicodeAndLeavesOutItsFallback) {
  const Case cases[] = {
      {R"(\u20013?x)", "中x"},
      {R"(\u-10179?\u-8704?x)", "😀x"},
      {R"(\u128512?x)", "😀x"},
      {R"(\u99999999?\u-99999?x)", "\uFFFD\uFFFDx"},
      {R"(\uc2\u20013\'d6\'d0x)", "中x"},
      {R"(\uc0\u601 \u602 x)", "əɚx"},
      {R"(\uc3\u20013 ab)", "中"},
      {R"({\uc2\u20013 ??}\u25991?x)", "中文x"},
      {R"({\u20013}?)", "中?"},
      {R"(\u8212\emdash x\u160\~x\u123\{x)", "—x\u00A0x{x"},
      {R"(\u20013\par x)", "中\nx"},
      {R"(\u20013\lang5 ?x)", "中x"},
      {R"(\uc-5\u20013 x\uc99999999\u20013 xyz)", "中x中"},
      {R"(\u8217\'92s)", "’s"},
      {R"({\upr{a?}{\*\ud{\u97?\u20013?}}}x)", "a中x"},
      {R"({\info{\upr{a}{\*\ud b}}}x{\*\ud y})", "xy"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(textOf(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, ReadsCharacterFormats) {
  const Case cases[] = {
      {R"(a\b b\b0 c)", "<>a< bold>b<>c"},
      {R"({\i a}{\ul b\ulnone c}{\strike d}{\ulw\striked1 e})",
       "< italic>a< underline>b<>c< strike>d< underline strike>e"},
      {R"({\fs20 a}{\fs99999 b}{\fs0 c}{\fs d}{\fs-7 e})", "<Arial 20>a<Arial 3276>b<>cde"},
      {R"({\cf1 a}{\cf0 b}{\cf2 c}{\cf-1 d})", "< colour 16711696>a<>bcd"},
      {R"({\f3 a}{\f99 b}{\f-1 c})", "<Lazurski 24>a<>bc"},
      {R"(\b\f3\fs30\cf1 a\plain b)", "<Lazurski 30 colour 16711696 bold>a<>b"},
      {R"({\deleted a})", "< strike>a"},
      {R"(a{\v b\par \b c}d\v0 e)", "<>ade"},
      {R"(a\b b{\b0 }\par)", "<>a< bold>b"},
      {R"(\b a\par\b0 b)", "< bold>a\n<>b"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(lookOf(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, GivesChineseItsOwnFormat) {
  const Case cases[] = {
      // Word: the font of the characters that follow goes with \f.
      {R"(\hich\af0\dbch\af1\loch\f0 a\loch\af0\hich\af0\dbch\f1 \'d6\'d0)", "<>a<宋体 24>中"},
      {R"(\loch\af3\hich\af3\dbch\af1{\rtlch\fcs1 \af4 \ltrch\fcs0 a\u20013?})",
       "<Lazurski 24>a<宋体 24>中"},
      {R"(\dbch\af1{\f3 a\u601?})", "<Lazurski 24>aə"},
      {R"(\loch\f0\hich\f0\dbch\f1 \u8220?a)", "<宋体 24>“<>a"},
      {R"(\dbch\af1\ltrch\f3\u20013?\fs30 a)", "<Lazurski 24>中<Lazurski 30>a"},
      // LibreOffice: so do size and weight.
      {R"({\loch\b\fs36\f0\dbch\afs30\ab0\ai\af1\dbch \u20013\'3f}{\loch b})",
       "<宋体 30 italic>中<>b"},
      // For characters from right to left.
      {R"(\rtlch\ab\afs40 \ltrch a\u20013?)", "<>a中"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(lookOf(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, ReadsParagraphFormats) {
  const Case cases[] = {
      {R"(\qc a\par\qr b\par\qj c\par\qd d\par\ql e)",
       "[centre 0 0 0 0 0 0]<>a\n[right 0 0 0 0 0 0]b\n[justified 0 0 0 0 0 0]c\nd\ne"},
      {R"(\li720\ri-10\fi-360\sb120\sa60\sl-400 a)", "[left 720 -10 -360 120 60 -400]<>a"},
      {R"(\sl360\slmult1 a\par\slmult0 b)",
       "[left 0 0 0 0 0 360 multiple]<>a\n[left 0 0 0 0 0 360]b"},
      {R"(\sl0\slmult1 a)", "<>a"},
      {R"(\li2147483647\ri-2147483648 a)", "[left 32767 -32767 0 0 0 0]<>a"},
      {R"(\li5 a\par\pard b)", "[left 5 0 0 0 0 0]<>a\nb"},
      // What holds at the end of a paragraph counts for the whole.
      {R"(a\qc\par\ql{\qr b})", "[centre 0 0 0 0 0 0]<>a\n[right 0 0 0 0 0 0]b"},
      {R"({\qr a\par}b\par\par)", "[right 0 0 0 0 0 0]<>a\nb\n"},
      {R"(\trowd\qc a\cell\qr b\cell\ql\row c)", "[centre 0 0 0 0 0 0]<>a\tb\nc"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(lookOf(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, ReadsTablesAndBreaksAsLines) {
  const Case cases[] = {
      {R"(\trowd a\cell b\cell\row\trowd\cell\cell c\cell\row\pard d)", "a\tb\n\t\tc\nd"},
      {R"(a\par b\cell c\cell\row)", "a\nb\tc\n"},
      {R"(a\par\cell\row)", "a\n\n"},
      {R"(a\nestcell b\nestcell{\*\nesttableprops\trowd\nestrow}{\nonesttables\par}\cell c\cell\row)",
       "a\tb\n\tc\n"},
      {R"(a\cell b)", "a\tb"},
      {R"(a\page b\par\page c\sect\sectd d\column e)", "a\nb\nc\nd\ne"},
      {R"(\page a\page\par b)", "a\n\nb"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(textOf(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, LeavesOutTheMarkOfTheLastParagraph) {
  const Case cases[] = {
      {R"({\rtf1 a\par})", "a"},
      {R"({\rtf1 a\par\par {\*\latentstyles x}})", "a\n"},
      {R"({\rtf1 a\cell\row\pard\par})", "a\n"},
      {R"({\rtf1 \par})", ""},
      {R"({\rtf1{\*\generator Riched20;}a\par})", "a"},
      {R"({\rtf1{\*\generator Voxilane;}a\par})", "a\n"},
      {R"({\rtf1{\*\generator Voxilane 1.0;}\par})", "\n"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(textOfFile(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, KeepsTextOfTheDocumentOnly) {
  const Case cases[] = {
      {R"({\stylesheet{\s0 Normal;}}{\info{\title x}}{\*\listtable x}a)", "a"},
      {R"({\field{\*\fldinst{ HYPERLINK "x"}}{\fldrslt{\ul a}}}b)", "ab"},
      {R"({\field{\*\fldinst{ IF {\field{\*\fldinst x}{\fldrslt y}}}}{\fldrslt a}}b)", "ab"},
      {R"({\listtext 1.\tab}a{\pntext 2.\tab}{\*\pn{\pntxtb x}}b)", "1.\ta2.\tb"},
      {R"({\*\unknown a{\b b}}{\unknown c}\unknown d)", "cd"},
      {R"({\*\bkmkstart x}a{\xe{x}}{\tc x}{\*\xe x}b)", "ab"},
      {R"(a\bin3 }}}b{\*\x\bin2 }}}c)", "abc"},
      {R"(a\bin-3 b)", "ab"},
      {R"(\*a{\*}b\pard\*{c})", "abc"},
      {R"({\fonttbl{\f9 x{\*\falt y};}}{\colortbl x;}a)", "a"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(textOf(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, TellsWhatItLeavesOut) {
  const auto leftOut = [](const std::string& body) {
    const RtfReading read = reading(header + "a" + body + "b}");
    EXPECT_EQ(read.document.text, u"ab") << body;
    return read.leftOut;
  };
  EXPECT_THAT(leftOut(R"({\*\shppict{\pict\pngblip 89504e}}{\nonshppict{\pict 01}}{\pict 01})"),
              ElementsAre(LeftOut::pictures));
  EXPECT_THAT(leftOut(R"({\object{\*\objdata 01}{\result{\pict 01}}})"),
              ElementsAre(LeftOut::objects));
  EXPECT_THAT(leftOut(R"({\shp{\*\shpinst{\sp{\sn x}{\sv 1}}{\shptxt box\par}}{\shprslt x}})"),
              ElementsAre(LeftOut::objects));
  EXPECT_THAT(leftOut(R"({\*\do\dpline}{\*\moMath x})"), ElementsAre(LeftOut::objects));
  EXPECT_THAT(leftOut(R"({\super\chftn}{\*\footnote \pard x\par}{\footnote\ftnalt x})"),
              ElementsAre(LeftOut::footnotes));
  EXPECT_THAT(leftOut(R"({\*\atnid x}\chatn{\*\annotation{\*\atndate 1}x\par})"),
              ElementsAre(LeftOut::comments));
  EXPECT_THAT(leftOut(R"({\header x\par}{\footerf y}{\pict 01})"),
              ElementsAre(LeftOut::headers, LeftOut::pictures));
  EXPECT_THAT(leftOut(R"({\header\pard  \par}{\footerr{\b  }})"), IsEmpty());
  // Characters that stand in an instruction.
  EXPECT_THAT(leftOut(R"({\field{\*\fldinst{ EQ \\o(\\s\\up 9(pin),x)}}{\fldrslt }})"),
              ElementsAre(LeftOut::objects));
  EXPECT_THAT(leftOut(R"({\field{\*\fldinst SYMBOL 74 \\f Wingdings}{\fldrslt}})"),
              ElementsAre(LeftOut::objects));
  EXPECT_THAT(leftOut(R"({\field{\*\fldinst PAGE}{\fldrslt}}{\*\fldinst EQUALS})"), IsEmpty());
}

TEST(RtfReader, ReadsFontTables) {
  const std::pair<const char*, std::vector<std::u16string>> cases[] = {
      {R"({\rtf1{\fonttbl{\f0\froman{\*\panose 02}Times New Roman{\*\falt x};}{\f7 A}}})",
       {u"Times New Roman", u"A"}},
      {R"({\rtf1{\fonttbl\f0\fnil  A B ;\f1 C;}})", {u"A B", u"C"}},
      {R"({\rtf1{\fonttbl{\f0 A;}{\f1\fcharset204 A;}{\f2 ;}{B;}{\f3 C}}})", {u"A", u"C"}},
      {R"({\rtf1{\fonttbl{\f0\fcharset128 \'9e\'b2\'91\'cc;}{\f1 \u26999?\'6a;}}})",
       {u"楷体", u"楷j"}},
      {R"({\rtf1{\fonttbl{\f0 A)", {}},
      {R"({\rtf1 a})", {u"Times New Roman"}},
  };
  for (const auto& [source, fonts] : cases) {
    EXPECT_EQ(reading(source).document.fonts, fonts) << source;
  }
  EXPECT_EQ(described(reading(R"({\rtf1\deff2{\fonttbl{\f1 A;}{\f2 B;}}a\f1 b\f9 c)").document),
            "[left 0 0 0 0 0 0]<B 24>a<A 24>b<B 24>c");
}

TEST(RtfReader, ReadsColourTables) {
  EXPECT_EQ(
      described(reading(R"({\rtf1{\fonttbl\f0 A;}{\colortbl\red1;;\red999\green-5\blue2;\red3})"
                        R"(\cf0 a\cf1 b\cf2 c\cf3 d})")
                    .document),
      "[left 0 0 0 0 0 0]<A 24 colour 65536>a<A 24>b<A 24 colour 16711682>c<A 24>d");
}

TEST(RtfReader, RefusesWhatIsNoRichText) {
  for (const std::string source : {"", "{\\rt", "text", " {\\rtf1 a}", "\\rtf1"}) {
    EXPECT_FALSE(isRtf(source));
    const auto read = readRtf(source);
    ASSERT_FALSE(read.ok());
    EXPECT_THAT(read.error().why, HasSubstr("not rich text"));
  }
  EXPECT_TRUE(isRtf("{\\rtf1 a}"));
}

TEST(RtfReader, ReadsPastDamage) {
  const Case cases[] = {
      {"{\\rtf", ""},
      {"{\\rtf1 a", "a"},
      {"{\\rtf1 a}b}c", "a"},
      {"{\\rtf1 a{b", "ab"},
      {"{\\rtf1 a\\", "a"},
      {"{\\rtf1 a\\'", "a"},
      {"{\\rtf1 a\\'d", "ad"},
      {"{\\rtf1 a\\'zzb", "azzb"},
      {"{\\rtf1 a\\\xE9\\;\\ b",
       "aé"
       "b"},
      {"{\\rtf1 a\\u", "a"},
      {"{\\rtf1 a\\u-x", "a-x"},
      {"{\\rtf1 a\\bin1000000000 b}", "a"},
      {"{\\rtf1 a\\b99999999999999999999 b\\fs-99999999999999999999 c", "abc"},
      {"{\\rtf1 a\\cell", "a"},
      {"{\\rtf1\\ansicpg936 a\\'d6", "a\uFFFD"},
      {"{\\rtf1 a\\" + std::string(100'000, 'x') + " b", "ab"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(textOfFile(test.rtf), test.expected) << test.rtf;
  }
}

TEST(RtfReader, LimitsWhatNoHonestFileReaches) {
  EXPECT_EQ(textOf(repeated("{", 9'000) + "a"), "a");
  const auto deep = readRtf("{\\rtf1" + repeated("{", 100'000) + "a");
  ASSERT_FALSE(deep.ok());
  EXPECT_THAT(deep.error().why, HasSubstr("more than 10000 deep"));

  std::string fonts;
  for (int i = 0; i < 40'000; ++i) {
    fonts += "\\f" + std::to_string(i) + " A" + std::to_string(i) + ";";
  }
  const auto manyFonts = readRtf("{\\rtf1{\\fonttbl" + fonts + "}a}");
  ASSERT_FALSE(manyFonts.ok());
  EXPECT_THAT(manyFonts.error().why, HasSubstr("more fonts"));
}

}  // namespace
}  // namespace voxilane
