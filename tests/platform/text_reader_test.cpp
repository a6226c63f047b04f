#include "platform/text_reader.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "core/text.h"
#include "platform/code_page.h"

namespace voxilane {
namespace {

// Gives prepared parts, one a read. As a pipe it can neither go back nor tell its size.
class PartsSource : public ByteSource {
 public:
  PartsSource(std::vector<std::string> parts, bool seekable)
      : parts_(std::move(parts)), seekable_(seekable) {}

  Result<std::size_t> read(std::span<char> buffer) override {
    while (part_ < parts_.size() && at_ == parts_[part_].size()) {
      ++part_;
      at_ = 0;
    }
    if (part_ == parts_.size()) {
      return std::size_t{0};
    }
    const std::size_t count = std::min(buffer.size(), parts_[part_].size() - at_);
    std::copy_n(parts_[part_].begin() + static_cast<std::ptrdiff_t>(at_), count, buffer.begin());
    at_ += count;
    return count;
  }
  bool rewind() override {
    part_ = at_ = 0;
    return seekable_;
  }
  bool waitForInput(int /*milliseconds*/) override { return !pauses; }
  std::optional<std::uint64_t> size() override { return std::nullopt; }

  bool pauses = false;

 private:
  std::vector<std::string> parts_;
  bool seekable_;
  std::size_t part_ = 0;
  std::size_t at_ = 0;
};

std::string readAll(TextReader& reader, std::string& failure) {
  std::string text;
  std::string piece;
  for (;;) {
    const auto more = reader.read(piece);
    if (!more) {
      failure = more.error().why;
      return text;
    }
    if (!more.value()) {
      return text;
    }
    text += piece;
  }
}

std::string readParts(std::vector<std::string> parts, bool seekable, bool pauses = false) {
  auto source = std::make_unique<PartsSource>(std::move(parts), seekable);
  source->pauses = pauses;
  TextReader reader(std::move(source), LineEnds::lf);
  std::string failure;
  const std::string text = readAll(reader, failure);
  return failure.empty() ? text : "error: " + failure;
}

std::string utf16Bytes(std::u16string_view text, bool bigEndian) {
  std::string bytes;
  for (const char16_t unit : text) {
    const auto high = static_cast<char>(unit >> 8U);
    const auto low = static_cast<char>(unit & 0xFFU);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes;
}

const std::string sample = "a\r\n\xE4\xB8\xAD\xE6\x96\x87 \xF0\x9F\x98\x80\rz\n";
const std::string expected = "a\n\xE4\xB8\xAD\xE6\x96\x87 \xF0\x9F\x98\x80\nz\n";

// Every encoding, from a file and through a pipe, split between any two bytes.
TEST(TextReaderTest, ASplitAnywhereChangesNothing) {
  const std::vector<std::string> encodings{sample, "\xEF\xBB\xBF" + sample, toCodePage(sample),
                                           "\xFF\xFE" + utf16Bytes(toUtf16(sample), false),
                                           "\xFE\xFF" + utf16Bytes(toUtf16(sample), true)};
  for (const std::string& bytes : encodings) {
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
      SCOPED_TRACE(::testing::PrintToString(bytes) + " cut at " + std::to_string(cut));
      EXPECT_EQ(readParts({bytes.substr(0, cut), bytes.substr(cut)}, false), expected);
      EXPECT_EQ(readParts({bytes.substr(0, cut), bytes.substr(cut)}, true), expected);
    }
  }
}

TEST(TextReaderTest, SingleBytesAreEnough) {
  for (const std::string& bytes :
       {sample, toCodePage(sample), "\xFF\xFE" + utf16Bytes(toUtf16(sample), false),
        "\xFE\xFF" + utf16Bytes(toUtf16(sample), true)}) {
    std::vector<std::string> parts;
    for (const char byte : bytes) {
      parts.emplace_back(1, byte);
    }
    EXPECT_EQ(readParts(parts, false), expected);
  }
}

TEST(TextReaderTest, WhatComesBeforeAFaultIsGiven) {
  for (const std::string& fault : {std::string("\0", 1), std::string("\xFF\xFF")}) {
    TextReader reader(
        std::make_unique<PartsSource>(std::vector<std::string>{"cat\n" + fault + "dog\n"}, false),
        LineEnds::lf);
    std::string failure;
    EXPECT_EQ(readAll(reader, failure), "cat\n");
    EXPECT_NE(failure, "");
  }
}

TEST(TextReaderTest, AFileIsRecognisedWholeAndAPipeByItsBeginning) {
  const std::string ascii(100'000, 'a');
  const std::string chinese = toCodePage("\xE4\xB8\xAD");
  EXPECT_EQ(readParts({ascii, chinese}, true), ascii + "\xE4\xB8\xAD");
  EXPECT_EQ(readParts({ascii, chinese}, false).substr(0, 6), "error:");
  EXPECT_EQ(readParts({ascii.substr(0, 1000), chinese, ascii}, false),
            ascii.substr(0, 1000) + "\xE4\xB8\xAD" + ascii);
}

TEST(TextReaderTest, APausingPipeIsJudgedByWhatHasCome) {
  EXPECT_EQ(readParts({"caf\xC3\xA9\n", "\xD6\xD0"}, false, true).substr(0, 6), "error:");
  EXPECT_EQ(readParts({"\xD6\xD0\n", "abc"}, false, true), "\xE4\xB8\xAD\nabc");
}

TEST(TextReaderTest, WhatIsNoTextIsAnErrorWithItsPlace) {
  EXPECT_EQ(readParts({"abc\xFFzz"}, true),
            "error: not UTF-8 or GB18030 text: bytes FF before byte 5");
  EXPECT_NE(readParts({std::string("ab\0c", 4)}, true).find("NUL"), std::string::npos);
  EXPECT_NE(readParts({"abc\xD6"}, true).find("GB18030"), std::string::npos);
}

TEST(TextReaderTest, DocumentsGetLongLineEnds) {
  TextReader reader(
      std::make_unique<PartsSource>(std::vector<std::string>{"a\r", "\nb\n\rc"}, true),
      LineEnds::crLf);
  std::string failure;
  EXPECT_EQ(readAll(reader, failure), "a\r\nb\r\n\r\nc");
}

TEST(CodePageTest, HoldsEveryCharacter) {
  const std::string text = "word=|\xE5\x90\x8D\xE8\xAF\x8D|5w\xF0\x9F\x98\x80";
  EXPECT_EQ(fromCodePage(toCodePage(text)), text);
  EXPECT_EQ(toCodePage("\xE4\xB8\xAD"), "\xD6\xD0");
  EXPECT_EQ(fromCodePage("a\xFF|b"), "a\xEF\xBF\xBD|b");
}

}  // namespace
}  // namespace voxilane
