#pragma once

#include <string_view>

// Which characters make a word. Digits, hyphens and Chinese characters belong to none.

namespace voxilane {

// A letter of the line walk: A to Z in both cases.
constexpr bool isLineWalkLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

// A letter of the word scan: the apostrophe belongs to a word.
constexpr bool isWordScanLetter(char16_t c) { return c == u'\'' || isLineWalkLetter(c); }

// What a selected word may consist of: also digits, half and full width, and the full stop.
constexpr bool isSelectionCharacter(char16_t c) {
  return isWordScanLetter(c) || (c >= u'0' && c <= u'9') || c == u'.' || (c >= u'０' && c <= u'９');
}

}  // namespace voxilane
