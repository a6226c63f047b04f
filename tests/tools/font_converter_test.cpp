#include "tools/font_converter.h"

#include <gtest/gtest.h>

#include "tests/support/table.h"

namespace voxilane {
namespace {

TEST(FontCode, WritesNamesAsFontTablesDo) {
  for (const auto& [name, code] : tableOf<2>(R"(
      宋体 \'cb\'ce\'cc\'e5      Times_New_Roman Times_New_Roman    ~ ~
      _宋体_GB2312_ \'cb\'ce\'cc\'e5_GB2312       方正A-乙 \'b7\'bd\'d5\'fdA-\'d2\'d2
      맑은 \u-17967?\u-14528?   é \'a8\'a6   ñ \u241?   😀 \u-10179?\u-8704?)")) {
    EXPECT_EQ(getcode1(name), code) << name;
  }
}

TEST(FontCode, HexTakesDigitsInPairs) {
  EXPECT_EQ(gethexcode("宋A体"), R"(\'cb\'ce\'41\'cc\'e5)");
  EXPECT_EQ(gethexcode("\tAB"), R"(\'94\'14)");
  EXPECT_EQ(gethexcode("\t"), "");
  EXPECT_EQ(gethexcode(""), "");
}

TEST(RenameFont, ReplacesEntriesThatEndInTheName) {
  // source, from, to, found, source afterwards
  for (const auto& [source, from, to, found, expected] : tableOf<5>(R"(
      {\f0_Arial;}\colortbl  Arial Calibri  1  {\f0_Calibri;}\colortbl
      {\f0_Arial;}{\f1_Arial;}{\colortbl}  Arial B  1  {\f0_B;}{\f1_B;}{\colortbl}
      {\f0_My_Arial;}{\colortbl}  Arial B  1  {\f0_My_B;}{\colortbl}
      {\f0_Arial_Narrow;}{\colortbl}  Arial B  0  {\f0_Arial_Narrow;}{\colortbl}
      {\f0_arial;}{\colortbl}  Arial B  0  {\f0_arial;}{\colortbl}
      {\f0_C;}{\colortbl}Arial;}  Arial B  0  {\f0_C;}{\colortbl}Arial;}
      {\f0_Arial;}{\colortbl}Arial;}  Arial B  1  {\f0_B;}{\colortbl}B;}
      {\f1_\'cb\'ce\'cc\'e5;}{\colortbl}  宋体 楷体  1  {\f1_\'bf\'ac\'cc\'e5;}{\colortbl}
      {\f1_\'CB\'CE\'CC\'E5;}{\colortbl}  宋体 楷体  0  {\f1_\'CB\'CE\'CC\'E5;}{\colortbl}
      {\f0_Arial;}}  Arial B  1  {\f0_B;}}
      {\f0_Arial;}  Arial B  0  {\f0_Arial;}
      ~  Arial B  0  ~)")) {
    SCOPED_TRACE(source + " " + from);
    std::string text = source;
    EXPECT_EQ(renameFont(text, from, to), found == "1");
    EXPECT_EQ(text, expected);
  }
}

TEST(RenameFont, IsRefusedInOrder) {
  for (const auto& [from, to, refusal] : tableOf<3>(R"(
      宋体 Arial ~   Arial arial ~    ~ Arial 请选择好要转换的字体!   __ ~ 请选择好要转换的字体!
      Arial _ 请选择转换后的字体!     Arial Arial 您选择的是同一种字体，无需转换！)")) {
    EXPECT_EQ(fontChoiceRefusal(from, to).value_or(""), refusal) << from << " " << to;
  }
}

TEST(RenameFont, TakesTheVerticalKindForTheFont) {
  EXPECT_EQ(chosenFont("@宋体"), "宋体");
  EXPECT_EQ(chosenFont("A@B"), "A@B");
  EXPECT_EQ(chosenFont("@"), "");
}

TEST(RenameFont, KnowsWhatWouldBreakAFontTable) {
  for (const std::string_view name : {"Arial", "宋体", "B & H-@.(1)"}) {
    EXPECT_TRUE(isFontName(name)) << name;
  }
  for (const std::string_view name : {"A;", "A}", "{A", "A\\b", "A\n", "A\x7F"}) {
    EXPECT_FALSE(isFontName(name)) << name;
  }
}

}  // namespace
}  // namespace voxilane
