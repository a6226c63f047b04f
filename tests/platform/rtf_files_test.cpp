#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "platform/rtf/rtf.h"
#include "tests/platform/rich_text_check.h"
#include "tests/support/string_sink.h"

// Whole files: of word processors, with what they hold beside them, and those that fuzzing found.

namespace voxilane {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> filesIn(const std::string& directory, const std::string& ending) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(VOXILANE_SOURCE_DIRECTORY + directory)) {
    if (entry.path().extension() == ending) {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  EXPECT_FALSE(files.empty());
  return files;
}

std::string shown(const RtfReading& reading) {
  static constexpr const char* kinds[] = {"pictures", "objects", "footnotes", "headers",
                                          "comments"};
  std::string text = described(reading.document) + "\n";
  for (const LeftOut kind : reading.leftOut) {
    text += std::string("left out: ") + kinds[static_cast<int>(kind)] + "\n";
  }
  return text;
}

void expectSameWhenWrittenAndRead(const RichText& document) {
  StringSink sink;
  ASSERT_TRUE(writeRtf(document, sink).ok());
  const auto again = readRtf(sink.bytes);
  ASSERT_TRUE(again.ok());
  EXPECT_EQ(described(again.value().document), described(document));
}

TEST(RtfFiles, OfWordProcessorsGiveTheirDocuments) {
  for (const fs::path& path : filesIn("/tests/data/rtf", ".rtf")) {
    SCOPED_TRACE(path);
    const auto reading = readRtf(contentOf(path));
    ASSERT_TRUE(reading.ok());
    EXPECT_EQ(brokenRule(reading.value().document), "");
    EXPECT_EQ(shown(reading.value()), contentOf(fs::path(path).replace_extension(".txt")));
    expectSameWhenWrittenAndRead(reading.value().document);
  }
}

TEST(RtfFiles, ThatEndTooEarlyGiveADocument) {
  for (const fs::path& path : filesIn("/tests/data/rtf", ".rtf")) {
    const std::string content = contentOf(path);
    // Steps that meet all kinds of places and take a moment only.
    for (std::size_t size = 5; size < content.size(); size += 1 + content.size() / 1000) {
      const auto reading = readRtf(std::string_view(content).substr(0, size));
      ASSERT_TRUE(reading.ok()) << path << size;
      ASSERT_EQ(brokenRule(reading.value().document), "") << path << size;
    }
  }
}

TEST(RtfFiles, ThatFuzzingFoundGiveADocument) {
  for (const fs::path& path : filesIn("/fuzz/corpus/rtf", "")) {
    SCOPED_TRACE(path);
    const auto reading = readRtf(contentOf(path));
    if (reading) {
      EXPECT_EQ(brokenRule(reading.value().document), "");
      expectSameWhenWrittenAndRead(reading.value().document);
    }
  }
}

}  // namespace
}  // namespace voxilane
