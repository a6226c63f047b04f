#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/library_database.h"

namespace voxilane {

// The Yinbiao of the enciphered bytes of a row. Bytes of a damaged row that are no text become
// U+FFFD.
std::string yinbiaoOfRow(std::string_view ipa13);

// Lookups in the full library. Without a database (its file does not exist) every word is a miss.
//
// A word that holds a double quote is a miss in every lookup and never reaches the database.
//
// A failing database makes a lookup empty and is kept until takeFault(), so that a pass can stop
// and report it. Each object belongs to one thread.
class WordLibrary {
 public:
  WordLibrary() = default;
  explicit WordLibrary(std::unique_ptr<LibraryDatabase> database);

  // The Yinbiao of a word: trimmed, lower-cased, without blanks and without one leading apostrophe.
  // Empty when there is none; a lone apostrophe asks nothing.
  std::string Yinbiaofromdata(std::string_view word);

  // The headword as stored, for the test whether the library has the word; same preparation.
  std::string Wordfromdata(std::string_view word);

  // The gloss of a word without line ends; trimmed, lower-cased, without blanks, the apostrophe
  // kept.
  std::string Jieshifromdata(std::string_view word);

  // The Yinbiao of the very word, only trimmed and lower-cased: what an editor of the library works
  // on.
  std::string entryOf(std::string_view word);

  // The first failure since the last call.
  std::optional<Error> takeFault();

  // Null when there is no database.
  LibraryDatabase* database() { return database_.get(); }

 private:
  using Query = Result<std::string> (LibraryDatabase::*)(std::string_view);
  std::string ask(Query query, const std::string& word);

  std::unique_ptr<LibraryDatabase> database_;
  std::optional<Error> fault_;
};

// While one lives, lookups in its library are at their cheapest and the library cannot change.
class LibraryReading {
 public:
  // Null: there is nothing to read.
  explicit LibraryReading(WordLibrary* library)
      : database_(library != nullptr ? library->database() : nullptr) {
    if (database_ != nullptr) database_->beginReading();
  }
  LibraryReading(const LibraryReading&) = delete;
  LibraryReading& operator=(const LibraryReading&) = delete;
  ~LibraryReading() {
    if (database_ != nullptr) database_->endReading();
  }

 private:
  LibraryDatabase* database_;
};

}  // namespace voxilane
