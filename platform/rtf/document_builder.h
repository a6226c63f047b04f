#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/rich_text.h"

namespace voxilane {

// A table of formats, each once.
template <typename Format>
class FormatTable {
 public:
  std::uint32_t indexOf(const Format& format) {
    if (formats_.empty() || formats_[last_] != format) {
      const auto [index, isNew] =
          indices_.try_emplace(format, static_cast<std::uint32_t>(formats_.size()));
      if (isNew) {
        formats_.push_back(format);
      }
      last_ = index->second;
    }
    return last_;
  }

  std::vector<Format> take() { return std::move(formats_); }

 private:
  // A tree, since a hostile file could choose formats that have one hash.
  struct Order {
    bool operator()(const Format& a, const Format& b) const { return ordered(a, b); }
  };

  std::vector<Format> formats_;
  std::map<Format, std::uint32_t, Order> indices_;
  std::uint32_t last_ = 0;
};

bool ordered(const CharacterFormat& a, const CharacterFormat& b);
bool ordered(const ParagraphFormat& a, const ParagraphFormat& b);

// Puts the document together from front to back. Marks at the end of a cell or a paragraph become
// text only when something follows: the last cell of a row has no tab behind it, and the mark of
// the last paragraph begins no other one.
class DocumentBuilder {
 public:
  // Text without line ends, in ASCII or UTF-16.
  template <typename Unit>
  void addText(std::basic_string_view<Unit> text, const CharacterFormat& format,
               const ParagraphFormat& paragraph) {
    settleMark();
    paragraph_ = paragraph;
    append(text, format);
  }

  void endParagraph(const CharacterFormat& format, const ParagraphFormat& paragraph);
  void endCell(const CharacterFormat& format, const ParagraphFormat& paragraph);
  void endRow(const CharacterFormat& format, const ParagraphFormat& paragraph);

  // Whether nothing stands in the present line.
  bool isAtLineBegin() const;

  // The document, without fonts. `keepsLastMark`: the mark of the last paragraph ends it, and an
  // empty one follows.
  RichText finish(bool keepsLastMark);

 private:
  enum class Mark { none, cell, paragraph };

  template <typename Unit>
  void append(std::basic_string_view<Unit> text, const CharacterFormat& format) {
    std::u16string& out = document_.text;
    const std::size_t begin = out.size();
    out.resize(begin + text.size());
    std::copy(text.begin(), text.end(), out.begin() + static_cast<std::ptrdiff_t>(begin));
    addRun(document_.characterRuns, out.size(), characterFormats_.indexOf(format));
  }

  void settleMark();
  void endLine(const CharacterFormat& format);

  RichText document_;
  FormatTable<CharacterFormat> characterFormats_;
  FormatTable<ParagraphFormat> paragraphFormats_;
  Mark mark_ = Mark::none;
  CharacterFormat markFormat_;
  ParagraphFormat paragraph_;                      // of the present line
  std::optional<ParagraphFormat> cellsParagraph_;  // of the first cell of the row
};

}  // namespace voxilane
