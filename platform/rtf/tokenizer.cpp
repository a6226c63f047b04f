#include "platform/rtf/tokenizer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace voxilane {
namespace {

using Kind = RtfToken::Kind;

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isHighByte(char c) { return static_cast<unsigned char>(c) >= 0x80; }

bool meansNothing(char c) { return c == '\r' || c == '\n' || c == '\0'; }

// Bytes that end a text.
constexpr std::array<bool, 256> specialBytes = [] {
  std::array<bool, 256> special{};
  for (const char c : {'{', '}', '\\', '\r', '\n', '\0'}) {
    special[static_cast<unsigned char>(c)] = true;
  }
  return special;
}();

bool isSpecial(char c) { return specialBytes[static_cast<unsigned char>(c)]; }

std::optional<unsigned> hexDigit(char c) {
  if (isDigit(c)) {
    return static_cast<unsigned>(c - '0');
  }
  const char lower = static_cast<char>(c | 0x20);
  if (lower >= 'a' && lower <= 'f') {
    return static_cast<unsigned>(lower - 'a' + 10);
  }
  return std::nullopt;
}

}  // namespace

RtfToken RtfTokenizer::next() {
  while (place_ < source_.size()) {
    const char c = source_[place_];
    if (c == '\\') {
      ++place_;
      const RtfToken token = escaped();
      if (token.kind != Kind::end) {
        return token;
      }
    } else if (c == '{' || c == '}') {
      ++place_;
      return {.kind = c == '{' ? Kind::groupBegin : Kind::groupEnd};
    } else if (meansNothing(c)) {
      ++place_;
    } else {
      const std::string_view rest = source_.substr(place_);
      const auto* const end = std::find_if(rest.begin(), rest.end(), isSpecial);
      const auto size = static_cast<std::size_t>(end - rest.begin());
      place_ += size;
      return {.kind = Kind::text, .text = rest.substr(0, size)};
    }
  }
  return {};
}

// What stands behind a backslash; the kind `end` where it has to be dropped.
RtfToken RtfTokenizer::escaped() {
  if (place_ == source_.size() || isHighByte(source_[place_])) {
    return {};
  }
  if (isLetter(source_[place_])) {
    return word();
  }
  const char symbol = source_[place_];
  ++place_;
  if (symbol != '\'') {
    if (symbol == '\r' && at(0, '\n')) {
      ++place_;
    }
    return {.kind = Kind::symbol, .byte = static_cast<unsigned char>(symbol)};
  }
  if (place_ + 1 < source_.size()) {
    const auto high = hexDigit(source_[place_]);
    const auto low = hexDigit(source_[place_ + 1]);
    if (high && low) {
      place_ += 2;
      return {.kind = Kind::escape, .byte = static_cast<unsigned char>(*high << 4 | *low)};
    }
  }
  return {};
}

RtfToken RtfTokenizer::word() {
  const std::string_view rest = source_.substr(place_);
  const auto* const end = std::find_if_not(rest.begin(), rest.end(), isLetter);
  RtfToken token{.kind = Kind::word,
                 .text = rest.substr(0, static_cast<std::size_t>(end - rest.begin()))};
  place_ += token.text.size();
  token.number = number();
  if (at(0, ' ')) {
    ++place_;
  }
  return token;
}

// Numbers that are too large are the largest.
std::optional<std::int32_t> RtfTokenizer::number() {
  const bool isNegative = at(0, '-');
  std::size_t place = place_ + (isNegative ? 1 : 0);
  if (place >= source_.size() || !isDigit(source_[place])) {
    return std::nullopt;
  }
  constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
  std::int64_t value = 0;
  for (; place < source_.size() && isDigit(source_[place]); ++place) {
    value = std::min(value * 10 + (source_[place] - '0'), largest);
  }
  place_ = place;
  return static_cast<std::int32_t>(isNegative ? -value : value);
}

std::optional<unsigned char> RtfTokenizer::takeTrailByte() {
  if (place_ == source_.size()) {
    return std::nullopt;
  }
  const char c = source_[place_];
  // A backslash ahead of ASCII is an escape, of the second byte as well: \\, \{, \'5c.
  const bool isTrail =
      c == '{' || c == '}' ||
      (c == '\\' && place_ + 1 < source_.size() && isHighByte(source_[place_ + 1]));
  if (!isTrail) {
    return std::nullopt;
  }
  ++place_;
  return static_cast<unsigned char>(c);
}

void RtfTokenizer::skip(std::size_t bytes) { place_ += std::min(bytes, source_.size() - place_); }

}  // namespace voxilane
