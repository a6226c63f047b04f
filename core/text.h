#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

// Plain operations on text that the whole program shares. Headwords and transcriptions are UTF-8,
// in practice ASCII; the text of a document is UTF-16.

namespace voxilane {

// Lower case means the letters A to Z; every other character is left alone.
constexpr char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
std::string lowerCased(std::string_view text);

// Without the blanks (U+0020 and nothing else) at both ends.
std::string_view trimBlanks(std::string_view text);
std::u16string_view trimBlanks(std::u16string_view text);

std::string withoutBlanks(std::string_view text);

// Without carriage returns and line feeds.
std::string withoutLineEnds(std::string_view text);

// One whole-string replacement.
using Replacement = std::pair<std::string_view, std::string_view>;

// Replaces every occurrence, left to right, case-sensitive. `find` must not be empty.
void replaceAll(std::string& text, Replacement replacement);

// UTF-8 to UTF-16; bytes that are not UTF-8 become U+FFFD.
std::u16string toUtf16(std::string_view utf8);

// UTF-16 to UTF-8. A surrogate without its partner gets three bytes of its own, so that texts
// that differ stay different; such text equals no stored word.
std::string toUtf8(std::u16string_view text);
void appendUtf8(std::string& out, std::u16string_view text);

// The length in UTF-16 units of a UTF-8 text.
std::size_t utf16Length(std::string_view utf8);

// Without the last `units` UTF-16 units; nothing when the text is shorter or the cut would split
// a character.
std::optional<std::string_view> withoutLast(std::string_view utf8, std::size_t units);

bool isUtf8(std::string_view bytes);

}  // namespace voxilane
