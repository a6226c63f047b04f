#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/result.h"

// The library as text, an entry a line: WORD<TAB>TRANSCRIPTION[<TAB>GLOSS]. A backslash begins an
// escape in each of the fields, so that they can hold any bytes.

namespace voxilane {

// A longer line is refused: nobody writes it, and it would have to be kept in memory.
inline constexpr std::size_t longestLibraryLine = 1'000'000;  // bytes

// The fields of a line, without escapes. One of the last two may be empty: the line says nothing
// about it.
struct LibraryLine {
  std::string word;
  std::string transcription;
  std::string gloss;
};

// Appends text with escapes for all that a line cannot hold: it is then UTF-8 without control
// characters. `\n` is a line end CR LF, `\r` a lone CR, `\t` a tab, `\\` a backslash, `\xHH` any
// other byte.
void appendEscaped(std::string& out, std::string_view bytes);

// Appends a line with its line end. Without a gloss it has two fields.
void appendLibraryLine(std::string& out, std::string_view word, std::string_view yinbiao,
                       std::string_view gloss);

// The fields of a line without its line end; or why it is none: too few or too many fields, an
// escape that there is not, neither transcription nor gloss, too long. What the fields hold is not
// looked at.
Result<LibraryLine> parseLibraryLine(std::string_view line);

}  // namespace voxilane
