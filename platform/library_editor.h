#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

namespace voxilane {

enum class LibraryTable {
  words,    // `word`: values are enciphered Yinbiao
  glosses,  // `wordqj`: values are glosses
};

struct LibraryRow {
  std::int64_t number;  // names the row in its table
  std::string value;
};

// Changes to the library, all of them or none: they count with commit(), and an editor that goes
// without it has changed nothing. Until then others can read the library as it was, but not change
// it.
class LibraryEditor {
 public:
  LibraryEditor() = default;
  LibraryEditor(const LibraryEditor&) = delete;
  LibraryEditor& operator=(const LibraryEditor&) = delete;
  virtual ~LibraryEditor() = default;

  // The rows of a word that have a value which is not empty, in row order. A word is found without
  // regard to the case of A to Z.
  virtual Result<std::vector<LibraryRow>> rowsOf(LibraryTable table, std::string_view word) = 0;

  // Puts the value in place of that of a row.
  virtual Done change(LibraryTable table, std::int64_t number, std::string_view value) = 0;

  // Adds a row behind all others.
  virtual Done add(LibraryTable table, std::string_view word, std::string_view value) = 0;

  // To be called once, as the last of all.
  virtual Done commit() = 0;
};

}  // namespace voxilane
