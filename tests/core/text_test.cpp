#include "core/text.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace voxilane {
namespace {

TEST(Text, OnlyTheBlankIsTrimmedAndOnlyTheLettersAreLowered) {
  EXPECT_EQ(trimBlanks("  \tcat\r\n "), "\tcat\r\n");
  EXPECT_EQ(trimBlanks("   "), "");
  EXPECT_EQ(lowerCased("AZ[@Éａ"), "az[@Éａ");
}

TEST(Text, UnitsOfBothEncodingsMeet) {
  const std::u16string all = u"a\u00E9\u4E2D\U0001F408z";
  EXPECT_EQ(toUtf8(all), "aé中🐈z");
  EXPECT_EQ(toUtf16("aé中🐈z"), all);
  EXPECT_EQ(utf16Length("aé中🐈z"), 6U);
  EXPECT_EQ(withoutLast("aé中🐈z", 3), "aé中");
  EXPECT_EQ(withoutLast("aé中🐈z", 2), std::nullopt) << "would cut a character";
  EXPECT_NE(toUtf8(u"\xD800"), toUtf8(u"\xDC00"));
  EXPECT_EQ(toUtf16("a\xFF\xC3"), u"a\uFFFD\uFFFD");
}

TEST(Text, Utf8IsCheckedStrictly) {
  EXPECT_TRUE(isUtf8("plain ascii, then 中文 and 🐈"));
  for (const char* bytes : {"eight or more then \xFF", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                            "\xF4\x90\x80\x80", "\x80", "cut \xE4\xB8", "\xC3("}) {
    EXPECT_FALSE(isUtf8(bytes)) << bytes;
  }
}

}  // namespace
}  // namespace voxilane
