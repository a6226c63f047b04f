#include "annotation/answer_cache.h"

#include <array>
#include <cstring>
#include <functional>
#include <utility>

namespace voxilane {
namespace {

constexpr std::size_t firstSlots = 1024;

// Room for the words of a library; a stream of endless new words must not fill the memory.
constexpr std::size_t mostBytes = std::size_t{16} << 20U;

using Lengths = std::array<std::uint32_t, 2>;

}  // namespace

AnswerCache::AnswerCache() : slots_(firstSlots) {}

std::uint32_t AnswerCache::hashOf(std::string_view word) {
  const std::size_t hash = std::hash<std::string_view>()(word);
  return static_cast<std::uint32_t>(hash ^ (hash >> 32U));
}

AnswerCache::Entry AnswerCache::entryAt(std::uint32_t place) const {
  const char* const at = texts_.data() + place - 1;
  Lengths lengths;
  std::memcpy(lengths.data(), at, sizeof lengths);
  const char* const word = at + sizeof lengths;
  return {{word, lengths[0]}, {word + lengths[0], lengths[1]}};
}

std::optional<std::string_view> AnswerCache::find(std::string_view word) const {
  const std::uint32_t hash = hashOf(word);
  for (std::size_t at = hash & (slots_.size() - 1); slots_[at].place != 0; at = nextSlot(at)) {
    if (slots_[at].hash != hash) {
      continue;
    }
    const Entry entry = entryAt(slots_[at].place);
    if (entry.word == word) {
      return entry.answer;
    }
  }
  return std::nullopt;
}

void AnswerCache::add(std::string_view word, std::string_view answer) {
  const std::size_t size = sizeof(Lengths) + word.size() + answer.size();
  if (texts_.size() + size > mostBytes) {
    clear();
  }
  if (size > mostBytes) {
    return;
  }
  const auto place = static_cast<std::uint32_t>(texts_.size()) + 1;
  const Lengths lengths{static_cast<std::uint32_t>(word.size()),
                        static_cast<std::uint32_t>(answer.size())};
  texts_.append(reinterpret_cast<const char*>(lengths.data()), sizeof lengths);
  texts_.append(word).append(answer);
  if (++taken_ * 2 > slots_.size()) {
    grow();
  }
  take({hashOf(word), place});
}

void AnswerCache::clear() {
  slots_.assign(firstSlots, Slot());
  taken_ = 0;
  texts_.clear();
}

void AnswerCache::take(Slot slot) {
  std::size_t at = slot.hash & (slots_.size() - 1);
  while (slots_[at].place != 0) {
    at = nextSlot(at);
  }
  slots_[at] = slot;
}

void AnswerCache::grow() {
  const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
  for (const Slot& slot : old) {
    if (slot.place != 0) {
      take(slot);
    }
  }
}

}  // namespace voxilane
