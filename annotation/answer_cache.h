#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace voxilane {

// Remembers one answer a word. A pass asks it for every word of a text, and what counts then is how
// little memory a question touches: small slots, and words and answers packed in one block.
class AnswerCache {
 public:
  AnswerCache();

  // Nothing when the word has not been answered. Valid until the next change.
  std::optional<std::string_view> find(std::string_view word) const;

  // Forgets everything first when the memory is full. The word must not have an answer yet.
  void add(std::string_view word, std::string_view answer);

  void clear();

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t place = 0;  // of the entry in texts_, plus one; 0 is a free slot
  };
  struct Entry {
    std::string_view word;
    std::string_view answer;
  };

  static std::uint32_t hashOf(std::string_view word);
  std::size_t nextSlot(std::size_t at) const { return (at + 1) & (slots_.size() - 1); }
  Entry entryAt(std::uint32_t place) const;
  void take(Slot slot);
  void grow();

  std::vector<Slot> slots_;  // a power of two of them, at most half taken
  std::size_t taken_ = 0;
  std::string texts_;  // of each entry the two lengths, the word, the answer
};

}  // namespace voxilane
