#include "core/word_list.h"

#include <algorithm>
#include <array>

#include "core/text.h"

namespace voxilane {
namespace {

std::uint64_t startOf(std::string_view key) {
  std::uint64_t start = 0;
  for (std::size_t i = 0; i < sizeof start; ++i) {
    start = (start << 8U) | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
  }
  return start;
}

// The middle of a search range, rounded to the even neighbour when it falls between two.
int midpoint(int low, int high) {
  const int sum = low + high;
  const int below = sum / 2;
  return sum % 2 != 0 && below % 2 != 0 ? below + 1 : below;
}

// A word in lower case, without an allocation for words of an ordinary length.
class LowerWord {
 public:
  explicit LowerWord(std::string_view word) {
    char* to = shortWord_.data();
    if (word.size() > shortWord_.size()) {
      longWord_.resize(word.size());
      to = longWord_.data();
    }
    std::transform(word.begin(), word.end(), to, asciiLower);
    view_ = {to, word.size()};
  }
  LowerWord(const LowerWord&) = delete;
  LowerWord& operator=(const LowerWord&) = delete;
  ~LowerWord() = default;

  std::string_view view() const { return view_; }

 private:
  std::array<char, 32> shortWord_;
  std::string longWord_;
  std::string_view view_;
};

}  // namespace

WordList::WordList(std::string text) : text_(std::move(text)) {
  std::size_t begin = 0;
  while (begin < text_.size() && !truncated_) {
    const std::size_t end = std::min(text_.find_first_of("\r\n", begin), text_.size());
    addLine(begin, end - begin);
    begin = end + 1;
  }
  sortEntries();
}

void WordList::addLine(std::size_t offset, std::size_t length) {
  const std::string_view line = std::string_view(text_).substr(offset, length);
  const auto keyLength = line.find('=');
  if (keyLength == std::string_view::npos || line.find('|') == std::string_view::npos) {
    return;
  }
  if (entries_.size() == maxEntries) {
    truncated_ = true;
    return;
  }
  const auto key = text_.begin() + static_cast<std::ptrdiff_t>(offset);
  std::transform(key, key + static_cast<std::ptrdiff_t>(keyLength), key, asciiLower);
  entries_.push_back({startOf(line.substr(0, keyLength)), static_cast<std::uint32_t>(offset),
                      static_cast<std::uint32_t>(keyLength), static_cast<std::uint32_t>(length)});
}

void WordList::sortEntries() {
  const auto before = [this](const Entry& a, const Entry& b) { return keyOf(a) < keyOf(b); };
  if (!std::is_sorted(entries_.begin(), entries_.end(), before)) {
    std::stable_sort(entries_.begin(), entries_.end(), before);
  }
}

std::pair<std::string_view, std::string_view> WordList::entryAt(std::size_t index) const {
  return {keyOf(entries_[index]), fieldOf(entries_[index], 2)};
}

std::string_view WordList::keyOf(const Entry& entry) const {
  return std::string_view(text_).substr(entry.offset, entry.keyLength);
}

std::string_view WordList::fieldOf(const Entry& entry, std::size_t index) const {
  std::string_view rest =
      trimBlanks(std::string_view(text_).substr(entry.offset, entry.lineLength));
  for (; index > 0; --index) {
    const auto bar = rest.find('|');
    if (bar == std::string_view::npos) {
      return {};
    }
    rest.remove_prefix(bar + 1);
  }
  return rest.substr(0, rest.find('|'));
}

int WordList::compareKey(const Entry& entry, std::string_view lowerWord,
                         std::uint64_t wordStart) const {
  if (entry.start != wordStart) {
    return wordStart < entry.start ? -1 : 1;
  }
  return lowerWord.compare(keyOf(entry));
}

std::string_view WordList::Wordlistsearch(std::string_view word) const {
  const LowerWord lower(word);
  const std::uint64_t wordStart = startOf(lower.view());
  const int count = static_cast<int>(entries_.size());
  int low = 0;
  // Begins one past the end. A probe there ends the search with nothing, which is why the last
  // entry of an even list is out of reach: the probes step over it.
  int high = count;
  while (low <= high) {
    const int mid = midpoint(low, high);
    if (mid == count) {
      return {};
    }
    const Entry& entry = entries_[static_cast<std::size_t>(mid)];
    const int order = compareKey(entry, lower.view(), wordStart);
    if (order == 0) {
      return mid == 0 ? std::string_view() : fieldOf(entry, 2);
    }
    if (order < 0) {
      high = mid - 1;
    } else {
      low = mid + 1;
    }
  }
  return {};
}

std::string WordList::Jieshifromlist(std::string_view word) const {
  const LowerWord lower(word);
  const auto found = std::lower_bound(
      entries_.begin(), entries_.end(), lower.view(),
      [this](const Entry& entry, std::string_view key) { return keyOf(entry) < key; });
  if (found == entries_.end() || keyOf(*found) != lower.view()) {
    return {};
  }
  return withoutLineEnds(fieldOf(*found, 1));
}

}  // namespace voxilane
