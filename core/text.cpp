#include "core/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace voxilane {
namespace {

template <typename View>
View trimmed(View text) {
  const auto first = text.find_first_not_of(' ');
  if (first == View::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string without(std::string_view text, std::string_view unwanted) {
  std::string kept;
  kept.reserve(text.size());
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
               [&](char c) { return unwanted.find(c) == std::string_view::npos; });
  return kept;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; }
bool startsFourBytes(char byte) { return static_cast<unsigned char>(byte) >= 0xF0; }

struct Decoded {
  char32_t codePoint;
  std::size_t bytes;  // 0: the bytes are not UTF-8
};

// The shape of a UTF-8 sequence by its first byte. The second byte has narrower bounds after some
// first bytes, which is how overlong forms and surrogates are ruled out.
struct Sequence {
  std::size_t bytes;
  unsigned secondFrom;
  unsigned secondTo;
};

Sequence sequenceOf(unsigned first) {
  if (first >= 0xC2 && first <= 0xDF) return {2, 0x80, 0xBF};
  if (first == 0xE0) return {3, 0xA0, 0xBF};
  if (first == 0xED) return {3, 0x80, 0x9F};
  if (first >= 0xE1 && first <= 0xEF) return {3, 0x80, 0xBF};
  if (first == 0xF0) return {4, 0x90, 0xBF};
  if (first >= 0xF1 && first <= 0xF3) return {4, 0x80, 0xBF};
  if (first == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

Decoded decodeFirst(std::string_view utf8) {
  const auto first = static_cast<unsigned char>(utf8[0]);
  if (first < 0x80) {
    return {first, 1};
  }
  const Sequence sequence = sequenceOf(first);
  if (sequence.bytes == 0 || utf8.size() < sequence.bytes) {
    return {0, 0};
  }
  const auto second = static_cast<unsigned char>(utf8[1]);
  if (second < sequence.secondFrom || second > sequence.secondTo) {
    return {0, 0};
  }
  char32_t codePoint = first & (0x7FU >> sequence.bytes);
  for (std::size_t i = 1; i < sequence.bytes; ++i) {
    if (!isContinuation(utf8[i])) {
      return {0, 0};
    }
    codePoint = (codePoint << 6U) | (static_cast<unsigned char>(utf8[i]) & 0x3FU);
  }
  return {codePoint, sequence.bytes};
}

bool startsWithEightAscii(std::string_view bytes) {
  std::uint64_t eight = 0;
  if (bytes.size() < sizeof eight) {
    return false;
  }
  std::memcpy(&eight, bytes.data(), sizeof eight);
  return (eight & 0x8080808080808080U) == 0;
}

char continuation(char32_t bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); }

void appendCodePoint(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += {static_cast<char>(0xC0U | (c >> 6U)), continuation(c)};
  } else if (c < 0x10000) {
    out += {static_cast<char>(0xE0U | (c >> 12U)), continuation(c >> 6U), continuation(c)};
  } else {
    out += {static_cast<char>(0xF0U | (c >> 18U)), continuation(c >> 12U), continuation(c >> 6U),
            continuation(c)};
  }
}

// How many UTF-16 units a byte of UTF-8 stands for: its character's, for the first byte of one.
std::size_t unitsOf(char byte) {
  if (isContinuation(byte)) return 0;
  return startsFourBytes(byte) ? 2 : 1;
}

bool isHighSurrogate(char16_t unit) { return (unit & 0xFC00U) == 0xD800; }
bool isLowSurrogate(char16_t unit) { return (unit & 0xFC00U) == 0xDC00; }

}  // namespace

std::string lowerCased(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), asciiLower);
  return lower;
}

std::string_view trimBlanks(std::string_view text) { return trimmed(text); }
std::u16string_view trimBlanks(std::u16string_view text) { return trimmed(text); }

std::string withoutBlanks(std::string_view text) { return without(text, " "); }
std::string withoutLineEnds(std::string_view text) { return without(text, "\r\n"); }

void replaceAll(std::string& text, Replacement replacement) {
  const auto& [find, by] = replacement;
  auto at = text.find(find);
  if (at == std::string::npos) {
    return;
  }
  std::string replaced;
  replaced.reserve(text.size() + by.size());
  std::size_t copied = 0;
  for (; at != std::string::npos; at = text.find(find, copied)) {
    replaced.append(text, copied, at - copied).append(by);
    copied = at + find.size();
  }
  text = std::move(replaced.append(text, copied));
}

std::u16string toUtf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  while (!utf8.empty()) {
    const Decoded decoded = decodeFirst(utf8);
    if (decoded.bytes == 0) {
      out += u'\uFFFD';
    } else if (decoded.codePoint < 0x10000) {
      out += static_cast<char16_t>(decoded.codePoint);
    } else {
      const char32_t offset = decoded.codePoint - 0x10000;
      out += static_cast<char16_t>(0xD800U + (offset >> 10U));
      out += static_cast<char16_t>(0xDC00U + (offset & 0x3FFU));
    }
    utf8.remove_prefix(std::max<std::size_t>(decoded.bytes, 1));
  }
  return out;
}

void appendUtf8(std::string& out, std::u16string_view text) {
  // Most text begins with ASCII, much of it has nothing else.
  const auto* const ascii =
      std::find_if(text.begin(), text.end(), [](char16_t unit) { return unit >= 0x80; });
  const std::size_t begin = out.size();
  out.resize(begin + static_cast<std::size_t>(ascii - text.begin()));
  std::transform(text.begin(), ascii, out.data() + begin,
                 [](char16_t unit) { return static_cast<char>(unit); });
  for (auto i = static_cast<std::size_t>(ascii - text.begin()); i < text.size(); ++i) {
    char32_t codePoint = text[i];
    if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      codePoint = 0x10000 + ((codePoint & 0x3FFU) << 10U) + (text[++i] & 0x3FFU);
    }
    appendCodePoint(out, codePoint);
  }
}

std::string toUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  appendUtf8(out, text);
  return out;
}

std::size_t utf16Length(std::string_view utf8) {
  std::size_t units = 0;
  for (const char byte : utf8) {
    units += unitsOf(byte);
  }
  return units;
}

std::optional<std::string_view> withoutLast(std::string_view utf8, std::size_t units) {
  std::size_t dropped = 0;
  while (dropped < units) {
    if (utf8.empty()) {
      return std::nullopt;
    }
    const char last = utf8.back();
    utf8.remove_suffix(1);
    dropped += unitsOf(last);
  }
  if (dropped > units) {
    return std::nullopt;
  }
  return utf8;
}

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    if (startsWithEightAscii(bytes)) {
      bytes.remove_prefix(8);
      continue;
    }
    const std::size_t size = decodeFirst(bytes).bytes;
    if (size == 0) {
      return false;
    }
    bytes.remove_prefix(size);
  }
  return true;
}

}  // namespace voxilane
