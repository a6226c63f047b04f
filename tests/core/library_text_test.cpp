#include "core/library_text.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "core/text.h"

namespace voxilane {
namespace {

using namespace std::string_literals;

TEST(LibraryText, AnyBytesGoThroughALine) {
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte) everyByte += static_cast<char>(byte);
  const std::vector<std::pair<std::string, std::string>> cases{
      {"n. 猫\r\nv. 跑", R"(n. 猫\nv. 跑)"},
      {"\r\r\n\n", R"(\r\n\x0A)"},
      {"a\tb\\n\\", R"(a\tb\\n\\)"},
      {"\0 \x7F"s, R"(\x00 \x7F)"},
      {"é\xFF", R"(\xC3\xA9\xFF)"},
      {"\uFEFFa", R"(\xEF\xBB\xBFa)"},
      {everyByte, ""},
  };
  for (const auto& [bytes, written] : cases) {
    SCOPED_TRACE(written);
    std::string line;
    appendLibraryLine(line, bytes, bytes, bytes);
    EXPECT_TRUE(isUtf8(line));
    EXPECT_EQ(line.find_first_of("\r\0"s), std::string::npos);
    ASSERT_EQ(line.find('\n'), line.size() - 1);
    line.pop_back();
    if (!written.empty()) {
      EXPECT_EQ(line, written + "\t" + written + "\t" + written);
    }
    const auto parsed = parseLibraryLine(line);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed.value().word, bytes);
    EXPECT_EQ(parsed.value().transcription, bytes);
    EXPECT_EQ(parsed.value().gloss, bytes);
  }
}

TEST(LibraryText, ALineHasTwoFieldsOrThree) {
  EXPECT_TRUE(parseLibraryLine("cat\tkAt"));
  EXPECT_TRUE(parseLibraryLine("cat\tkAt\t"));
  EXPECT_TRUE(parseLibraryLine("cat\t\t猫"));
  EXPECT_TRUE(parseLibraryLine("\tkAt"));
  const std::vector<std::string> bad{
      "",
      "cat",
      "cat\t",
      "cat\t\t",
      "a\tb\tc\td",
      "cat\tkAt\t\t",
      "cat\tkAt\t\\q",
      "cat\tkAt\t\\x4",
      "cat\\\tkAt",
      "cat\\x+1\tkAt",
      "cat\tkAt\t" + std::string(longestLibraryLine, 'a'),
  };
  for (const std::string& line : bad) {
    EXPECT_FALSE(parseLibraryLine(line)) << line.substr(0, 40);
  }
}

}  // namespace
}  // namespace voxilane
