#include "annotation/transcriber.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "annotation/answer_cache.h"
#include "tests/support/made_stores.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

TEST(Transcriber, ConvertsForItsEdition) {
  MadeStores stores({}, {{"go", "gEu"}});
  PassMonitor monitor;
  for (const auto& [name, expected] : tableOf<2>("new gEJ  old gEu  mei go  xyz gEu")) {
    Transcriber transcribe(stores.stores(), dangqianChain, editionNamed(name));
    EXPECT_EQ(transcribe("go", monitor), expected) << name;
    EXPECT_EQ(transcribe("zzz", monitor), "");
  }
}

TEST(Transcriber, RemembersUntilTheLibraryChanges) {
  MadeStores stores({}, {{"cat", "old"}});
  PassMonitor monitor;
  Transcriber transcribe(stores.stores(), dangqianChain, std::nullopt);
  const auto ask = [&] {
    const LibraryReading piece = transcribe.beginPiece();
    EXPECT_EQ(stores.made.openReadings, 1);
    return std::string(transcribe("cat", monitor)) + "," + std::string(transcribe("q", monitor));
  };
  EXPECT_EQ(ask(), "old,");
  const auto asked = stores.made.asked.size();
  stores.made.words = {{"cat", "new"}, {"q", "kju:"}};
  EXPECT_EQ(ask(), "old,");
  EXPECT_EQ(stores.made.asked.size(), asked) << "misses are remembered, too";
  stores.made.version = 2;
  EXPECT_EQ(ask(), "new,kju:");
  EXPECT_EQ(stores.made.openReadings, 0);
}

TEST(Transcriber, DoesNotRememberWhatAFailingLibrarySaid) {
  MadeStores stores({}, {{"cat", "kAt"}});
  Transcriber transcribe(stores.stores(), dangqianChain, std::nullopt);
  stores.made.failure = "disk";
  PassMonitor failing;
  EXPECT_EQ(transcribe("cat", failing), "");
  EXPECT_EQ(failing.fault->why, "disk");
  EXPECT_FALSE(failing.keepRecognising);
  stores.made.failure.reset();
  PassMonitor mended;
  EXPECT_EQ(transcribe("cat", mended), "kAt");
  EXPECT_FALSE(mended.fault);
}

TEST(AnswerCache, KeepsManyWordsApart) {
  AnswerCache cache;
  EXPECT_FALSE(cache.find(""));
  for (int i = 0; i < 300000; ++i) {
    cache.add("w" + std::to_string(i), i % 3 == 0 ? "" : std::to_string(i));
  }
  for (int i = 0; i < 300000; ++i) {
    ASSERT_EQ(cache.find("w" + std::to_string(i)), i % 3 == 0 ? "" : std::to_string(i));
  }
  EXPECT_FALSE(cache.find("w300000"));
  EXPECT_FALSE(cache.find("w"));
  cache.clear();
  EXPECT_FALSE(cache.find("w0"));
  cache.add("w0", "again");
  EXPECT_EQ(cache.find("w0"), "again");
}

TEST(AnswerCache, AFullMemoryForgetsAndGoesOn) {
  AnswerCache cache;
  const std::string tail(1000, 'y');
  std::size_t kept = 0;
  for (int i = 0; i < 40000; ++i) {
    const std::string word = std::to_string(i);
    cache.add(word, word + tail);
    ASSERT_EQ(cache.find(word), word + tail);
  }
  for (int i = 0; i < 40000; ++i) {
    if (const auto answer = cache.find(std::to_string(i))) {
      ASSERT_EQ(*answer, std::to_string(i) + tail);
      ++kept;
    }
  }
  EXPECT_LT(kept, 20000U) << "40 MB must not stay";
  cache.add("huge", std::string(std::size_t{17} << 20U, 'z'));
  EXPECT_FALSE(cache.find("huge"));
  cache.add("small", "s");
  EXPECT_EQ(cache.find("small"), "s");
}

}  // namespace
}  // namespace voxilane
