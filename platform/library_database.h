#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/result.h"

namespace voxilane {

// The library's two tables as the program reads them: `word` (headword, enciphered Yinbiao) and
// `wordqj` (headword, gloss). A headword is found without regard to the case of A to Z. Each object
// belongs to one thread. A change that another program makes to the file counts at the next call.
class LibraryDatabase {
 public:
  LibraryDatabase() = default;
  LibraryDatabase(const LibraryDatabase&) = delete;
  LibraryDatabase& operator=(const LibraryDatabase&) = delete;
  virtual ~LibraryDatabase() = default;

  // The first value that is not empty among the rows of the word, in row order; empty when there is
  // none. `ipa13Of` gives the enciphered bytes, `wordOf` the headword as it is stored.
  virtual Result<std::string> ipa13Of(std::string_view word) = 0;
  virtual Result<std::string> wordOf(std::string_view word) = 0;
  virtual Result<std::string> glossOf(std::string_view word) = 0;

  // Between these two the lookups see the file as it is at the first of them and cost less, and
  // nobody can change it. For one piece of work, not for keeping.
  virtual void beginReading() = 0;
  virtual void endReading() = 0;

  virtual Result<std::size_t> wordCount() = 0;
  virtual Result<std::size_t> glossCount() = 0;

  // Every row of `word`, in row order: headword and enciphered Yinbiao.
  using RowVisitor = std::function<void(std::string_view word, std::string_view ipa13)>;
  virtual Done eachWord(const RowVisitor& visit) = 0;

  // A number that differs from an earlier one when another program has changed the file meanwhile.
  virtual std::int64_t version() = 0;
};

}  // namespace voxilane
