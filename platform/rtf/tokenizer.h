#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace voxilane {

// A piece of a rich text file.
struct RtfToken {
  enum class Kind : std::uint8_t {
    end,
    groupBegin,
    groupEnd,
    word,    // \text, perhaps with a number
    symbol,  // \ and the byte, no letter
    escape,  // \'xx, the byte
    text,    // bytes that stand for themselves
  };

  Kind kind = Kind::end;
  unsigned char byte = 0;
  std::optional<std::int32_t> number = std::nullopt;
  std::string_view text = {};
};

// Cuts a file into tokens. Line breaks and NULs between them mean nothing and are dropped; so is
// the backslash of an escape that is none. The source must outlive it.
class RtfTokenizer {
 public:
  explicit RtfTokenizer(std::string_view source) : source_(source) {}

  RtfToken next();

  // Takes the byte that comes next though it looks like the begin or end of a group or like an
  // escape, where it can be the second byte of a character whose first one has just been read.
  std::optional<unsigned char> takeTrailByte();

  // Leaves out so many bytes, or all that there are.
  void skip(std::size_t bytes);

 private:
  RtfToken escaped();
  RtfToken word();
  std::optional<std::int32_t> number();
  bool at(std::size_t ahead, char c) const {
    return place_ + ahead < source_.size() && source_[place_ + ahead] == c;
  }

  std::string_view source_;
  std::size_t place_ = 0;
};

}  // namespace voxilane
