#include "tools/backslash_doubling.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

TEST(BackslashDoubling, LeavesOneCharacterAtTheEndUnseenForEachBackslash) {
  for (const auto& [text, expected] : tableOf<2>(R"(
      ~ ~   abc abc   \ \\   a\b a\\b   \\ \\\   \\\ \\\\\   \\\\ \\\\\\   \.\ \\.\   \..\ \\..\
      \..\. \\..\\.   a¶\¶b a¶\\¶b      .....\\\ .....\\\\\)")) {
    RichText document;
    append(document, toUtf16(text), {.bold = true});
    const RichText doubled = edited(document, backslashDoubling(document.text));
    EXPECT_EQ(toUtf8(doubled.text), expected) << text;
    EXPECT_LE(doubled.characterRuns.size(), 1U) << "a backslash has the format of its twin";
  }
}

}  // namespace
}  // namespace voxilane
