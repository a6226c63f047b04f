#include "core/library_import.h"

#include <algorithm>

#include "core/field_cipher.h"
#include "core/ipa.h"
#include "core/library_text.h"
#include "core/storable_yinbiao.h"
#include "core/text.h"

namespace voxilane {
namespace {

LineAnswer refusal(std::string reason) { return {LineOutcome::refused, std::move(reason)}; }

bool isControl(char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; }

// Why no reader of the library could ask for the word.
std::optional<std::string> wordFault(std::string_view word) {
  if (word.empty()) return "no word";
  if (!isUtf8(word)) return "the word is no text";
  if (word.find('"') != std::string_view::npos) return "a double quote in the word";
  if (std::any_of(word.begin(), word.end(), isControl)) return "a control character in the word";
  if (trimBlanks(word) != word) return "a blank at an end of the word";
  return std::nullopt;
}

bool isGlossText(std::string_view gloss) {
  return isUtf8(gloss) && gloss.find('\0') == std::string_view::npos;
}

// Whether the IPA of a stored Yinbiao is read as this one: IPA has one spelling for several codes.
bool readsAs(std::string_view stored, std::string_view yinbiao) {
  const auto reading = storableYinbiao(codeToIpa(stored));
  return reading && reading.value() == yinbiao;
}

}  // namespace

Result<LineAnswer> LibraryImport::take(std::string_view line) {
  const auto parsed = parseLibraryLine(line);
  if (!parsed) {
    return refusal(parsed.error().why);
  }
  const auto& [word, transcription, gloss] = parsed.value();
  if (const Done turned = turnTo(word); !turned) {
    return turned.error();
  }
  // A line that is refused has had its turn too: the next one of the word means the next rows.
  const LibraryRow* const wordRow = words_.take(!transcription.empty());
  const LibraryRow* const glossRow = glosses_.take(!gloss.empty());

  const auto ipa13 = ipa13ToWrite(wordRow, transcription);
  if (!ipa13) {
    return refusal(ipa13.error().why);
  }
  const bool sameGloss = glossRow != nullptr && glossRow->value == gloss;
  const std::string newGloss = sameGloss ? std::string() : gloss;
  if (ipa13.value().empty() && newGloss.empty()) {
    return LineAnswer{LineOutcome::unchanged, {}};
  }
  if (auto fault = wordFault(word)) {
    return refusal(std::move(*fault));
  }
  if (!isGlossText(newGloss)) {
    return refusal("the gloss is no text");
  }
  if (const Done done = write(words_.table, wordRow, word, ipa13.value()); !done) {
    return done.error();
  }
  if (const Done done = write(glosses_.table, glossRow, word, newGloss); !done) {
    return done.error();
  }
  const bool wasThere = wordRow != nullptr || glossRow != nullptr;
  return LineAnswer{wasThere ? LineOutcome::changed : LineOutcome::added, {}};
}

const LibraryRow* LibraryImport::Column::take(bool goOn) {
  const LibraryRow* const row = next < rows.size() ? &rows[next] : nullptr;
  next += goOn ? 1 : 0;
  return row;
}

Done LibraryImport::turnTo(std::string_view word) {
  std::string lower = lowerCased(word);
  if (lower == word_) {
    return std::monostate();
  }
  for (Column* column : {&words_, &glosses_}) {
    auto rows = editor_.rowsOf(column->table, lower);
    if (!rows) {
      return rows.error();
    }
    column->rows = std::move(rows.value());
    column->next = 0;
  }
  word_ = std::move(lower);
  return std::monostate();
}

// What has to be written for the transcription of a line; empty when the row says it already.
Result<std::string> LibraryImport::ipa13ToWrite(const LibraryRow* row,
                                                std::string_view transcription) const {
  const std::string stored = row != nullptr ? jiemiField(row->value) : std::string();
  if (transcription == stored || transcription.empty()) {
    return std::string();
  }
  const auto yinbiao = storableYinbiao(transcription);
  if (!yinbiao) {
    return yinbiao.error();
  }
  const bool same = yinbiao.value() == stored ||
                    (looksLikeIpa(transcription) && readsAs(stored, yinbiao.value()));
  return same ? std::string() : jiamiField(yinbiao.value());
}

// An empty value means that there is nothing to write.
Done LibraryImport::write(LibraryTable table, const LibraryRow* row, std::string_view word,
                          std::string_view value) {
  if (value.empty()) {
    return std::monostate();
  }
  return row != nullptr ? editor_.change(table, row->number, value)
                        : editor_.add(table, word, value);
}

}  // namespace voxilane
