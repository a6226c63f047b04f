#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/library_editor.h"

namespace voxilane {

enum class LineOutcome {
  added,      // there was no row for any of what the line says
  changed,    // there was one, and now it has another value or another row beside it
  unchanged,  // the library said the same
  refused,    // nothing was done
};

struct LineAnswer {
  LineOutcome outcome;
  std::string reason;  // of a refusal, in a few words of English; may hold any bytes
};

// Takes the text form of the library (core/library_text.h) into a library, line by line. The caller
// commits.
//
// Lines of one word that follow each other stand for its rows in order: the first transcription
// for the first row that has one, and so on, and likewise the glosses. What the library already
// says is never refused, however odd it is, so that its own text changes nothing. IPA says the same
// as a stored Yinbiao whose IPA reads alike.
class LibraryImport {
 public:
  explicit LibraryImport(LibraryEditor& editor) : editor_(editor) {}

  // The error is one of the library; nothing should be done with it after that.
  Result<LineAnswer> take(std::string_view line);

 private:
  // A table's rows of the present word, and which of them comes next.
  struct Column {
    LibraryTable table;
    std::vector<LibraryRow> rows;
    std::size_t next = 0;

    // The row that comes next, null behind the last one; goes on to the one behind it if told to.
    const LibraryRow* take(bool goOn);
  };

  Done turnTo(std::string_view word);
  Result<std::string> ipa13ToWrite(const LibraryRow* row, std::string_view transcription) const;
  Done write(LibraryTable table, const LibraryRow* row, std::string_view word,
             std::string_view value);

  LibraryEditor& editor_;
  std::optional<std::string> word_;  // the present one, in lower case
  Column words_{LibraryTable::words, {}};
  Column glosses_{LibraryTable::glosses, {}};
};

}  // namespace voxilane
