#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace voxilane {

// The fast list of frequent words, the lines of dictionary.txt: `word=...|gloss|Yinbiao`. Filled
// once, then only read, so threads may share it.
//
// The entries are in the order of their lower-cased words, by code point, lines with the same word
// in the order of the file. Count and index keep to the 16-bit range.
class WordList {
 public:
  static constexpr std::size_t maxEntries = 32767;

  WordList() = default;

  // loadWordList: takes the text of dictionary.txt (UTF-8, any line ends). Lines without "=" or
  // "|" are passed over in silence, and so is all behind the first 32,767 others.
  explicit WordList(std::string text);

  std::size_t ListCount() const { return entries_.size(); }

  // The word, in lower case, and the Yinbiao of an entry; the index must be below ListCount().
  std::pair<std::string_view, std::string_view> entryAt(std::size_t index) const;

  // Whether the text held more entries than fit.
  bool truncated() const { return truncated_; }

  // The Yinbiao of a word, without regard to case; empty when there is none. The search never finds
  // the entry at index 0, and in most lists with an even count not the last one either; a delivered
  // list has lines there that no word can match.
  std::string_view Wordlistsearch(std::string_view word) const;

  // The gloss of the first entry with that word, without line ends; empty when there is none.
  std::string Jieshifromlist(std::string_view word) const;

 private:
  struct Entry {
    std::uint64_t start;      // the first 8 bytes of the word, comparable as a number
    std::uint32_t offset;     // of the line in text_
    std::uint32_t keyLength;  // of the word at the line's beginning
    std::uint32_t lineLength;
  };

  void addLine(std::size_t offset, std::size_t length);
  void sortEntries();
  std::string_view keyOf(const Entry& entry) const;
  std::string_view fieldOf(const Entry& entry, std::size_t index) const;
  int compareKey(const Entry& entry, std::string_view lowerWord, std::uint64_t wordStart) const;

  std::string text_;  // with the words in lower case
  std::vector<Entry> entries_;
  bool truncated_ = false;
};

}  // namespace voxilane
