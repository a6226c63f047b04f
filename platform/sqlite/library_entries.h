#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/result.h"

namespace voxilane {

// What the two tables of the library hold for a word: a Yinbiao, enciphered, and a gloss. One of
// them may be empty.
struct LibraryEntry {
  std::string_view word;
  std::string_view ipa13;
  std::string_view gloss;
};

// False ends the walk. The entry is valid during the call only.
using EntryVisitor = std::function<bool(const LibraryEntry&)>;

// Visits all that data.dat at the path holds, as it is at one moment, in word order without regard
// to the case of A to Z, the rows of one word in row order: its first Yinbiao beside its first
// gloss, and so on. Rows whose value is empty are passed over, and so are those whose word is no
// text, which no lookup can find.
Done eachLibraryEntry(const std::string& path, const EntryVisitor& visit);

}  // namespace voxilane
