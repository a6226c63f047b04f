#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/field_cipher.h"
#include "core/lookup_chain.h"
#include "core/text.h"
#include "core/word_library.h"
#include "core/word_list.h"

namespace voxilane {

// What a library database holds and does in a test; it can be changed at any time.
struct MadeLibrary {
  struct Row {
    std::string word;
    std::string value;  // plain, the database enciphers a Yinbiao
  };
  std::vector<Row> words;
  std::vector<Row> glosses;
  std::vector<std::string> asked;      // every word that a lookup has brought
  std::optional<std::string> failure;  // makes every lookup fail
  std::function<void(std::string_view)> onAsk;
  std::int64_t version = 1;
  int openReadings = 0;
};

class MadeDatabase final : public LibraryDatabase {
 public:
  explicit MadeDatabase(MadeLibrary& made) : made_(made) {}

  Result<std::string> ipa13Of(std::string_view word) override {
    return answer(made_.words, word, [](const auto& row) { return jiamiField(row.value); });
  }
  Result<std::string> wordOf(std::string_view word) override {
    return answer(made_.words, word, [](const auto& row) { return row.word; });
  }
  Result<std::string> glossOf(std::string_view word) override {
    return answer(made_.glosses, word, [](const auto& row) { return row.value; });
  }
  void beginReading() override { ++made_.openReadings; }
  void endReading() override { --made_.openReadings; }
  Result<std::size_t> wordCount() override { return made_.words.size(); }
  Result<std::size_t> glossCount() override { return made_.glosses.size(); }
  Done eachWord(const RowVisitor& visit) override {
    for (const auto& row : made_.words) visit(row.word, jiamiField(row.value));
    return std::monostate();
  }
  std::int64_t version() override { return made_.version; }

 private:
  template <typename Value>
  Result<std::string> answer(const std::vector<MadeLibrary::Row>& rows, std::string_view word,
                             Value valueOf) {
    made_.asked.emplace_back(word);
    if (made_.onAsk) made_.onAsk(word);
    if (made_.failure) return Error{*made_.failure};
    for (const auto& row : rows) {
      if (lowerCased(row.word) == lowerCased(word)) return valueOf(row);
    }
    return std::string();
  }

  MadeLibrary& made_;
};

struct ListEntry {
  std::string_view word;
  std::string_view yinbiao;
  std::string_view gloss = "";
};

// A list in which every given word can be found: the ends, which the search loses, match no word.
inline WordList madeList(const std::vector<ListEntry>& entries) {
  std::string text = " !=|-|\n~ ~=|-|\n";
  for (const auto& [word, yinbiao, gloss] : entries) {
    text.append(word).append("=|").append(gloss).append("|").append(yinbiao).append("\n");
  }
  return WordList(std::move(text));
}

struct MadeStores {
  explicit MadeStores(const std::vector<ListEntry>& entries, std::vector<MadeLibrary::Row> words)
      : list(madeList(entries)), library(std::make_unique<MadeDatabase>(made)) {
    made.words = std::move(words);
  }
  MadeStores(const MadeStores&) = delete;
  MadeStores& operator=(const MadeStores&) = delete;

  Stores stores() { return {list, library}; }

  MadeLibrary made;
  WordList list;
  WordLibrary library;
};

}  // namespace voxilane
