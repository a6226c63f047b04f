#include "platform/rich_text.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "platform/run_cursor.h"

namespace voxilane {
namespace {

constexpr std::u16string_view lineEnd = u"\r\n";

struct FormatHash {
  std::size_t operator()(const CharacterFormat& format) const {
    const std::uint64_t numbers = (std::uint64_t{format.colour} << 32) |
                                  (std::uint64_t{format.font} << 16) | format.halfPoints;
    const unsigned flags = (format.bold ? 1U : 0U) | (format.italic ? 2U : 0U) |
                           (format.underline ? 4U : 0U) | (format.strike ? 8U : 0U);
    return std::hash<std::uint64_t>()(numbers * 16 + flags);
  }
};

// The places of formats in their table, so that many edits with many formats stay one walk.
class FormatPlaces {
 public:
  explicit FormatPlaces(std::vector<CharacterFormat>& formats) : formats_(formats) {
    for (std::uint32_t i = 0; i < formats.size(); ++i) {
      places_.try_emplace(formats[i], i);
    }
  }

  std::uint32_t of(const CharacterFormat& format) {
    const auto [place, isNew] =
        places_.try_emplace(format, static_cast<std::uint32_t>(formats_.size()));
    if (isNew) {
      formats_.push_back(format);
    }
    return place->second;
  }

 private:
  std::vector<CharacterFormat>& formats_;
  std::unordered_map<CharacterFormat, std::uint32_t, FormatHash> places_;
};

// Makes the new document from front to back.
class Walk {
 public:
  Walk(const RichText& from, RichText& to)
      : from_(from),
        to_(to),
        formatPlaces_(to.characterFormats),
        characterRuns_(from.characterRuns),
        paragraphRuns_(from.paragraphRuns) {}

  void keepUntil(std::size_t end) {
    const std::size_t begin = at_;
    const std::size_t newBegin = to_.text.size();
    to_.text.append(from_.text, begin, end - begin);
    for (std::size_t at = begin; at < end;) {
      const FormatRun& run = characterRuns_.at(at);
      at = std::min(run.end, end);
      addRun(to_.characterRuns, newBegin + (at - begin), run.format);
    }
    for (std::size_t at = begin; at < end;) {
      const FormatRun& run = paragraphRuns_.at(at);
      const std::size_t newAt = newBegin + (at - begin);
      at = std::min(run.end, end);
      addParagraphs(newAt, newBegin + (at - begin), run.format);
    }
    at_ = end;
  }

  void replace(const RichTextEdit& edit) {
    if (!edit.text.empty()) {
      const std::size_t newBegin = to_.text.size();
      to_.text += edit.text;
      addRun(to_.characterRuns, to_.text.size(), characterFormat(edit));
      addParagraphs(newBegin, to_.text.size(), paragraphFormat(edit.position));
    }
    at_ = edit.position + edit.length;
  }

 private:
  std::uint32_t characterFormat(const RichTextEdit& edit) {
    if (edit.format) {
      return formatPlaces_.of(*edit.format);
    }
    if (characterRuns_.empty()) {
      return formatPlaces_.of({});
    }
    const bool takesFormatAhead = edit.length == 0 && edit.position > 0;
    return characterRuns_.at(takesFormatAhead ? edit.position - 1 : edit.position).format;
  }

  std::uint32_t paragraphFormat(std::size_t position) {
    if (!paragraphRuns_.empty()) {
      return paragraphRuns_.at(position).format;
    }
    if (to_.paragraphFormats.empty()) {
      to_.paragraphFormats.emplace_back();
    }
    return 0;
  }

  // Lays paragraph runs over a part of the new text. A paragraph that has begun ahead of it goes on
  // as far as its line end.
  void addParagraphs(std::size_t begin, std::size_t end, std::uint32_t format) {
    std::vector<FormatRun>& runs = to_.paragraphRuns;
    const std::u16string_view text(to_.text.data(), end);
    if (begin > 0 && runs.back().format != format && !text.substr(0, begin).ends_with(lineEnd)) {
      const std::size_t rest = text.find(lineEnd, begin - 1);
      addRun(runs, rest == text.npos ? end : rest + lineEnd.size(), runs.back().format);
    }
    addRun(runs, end, format);
  }

  const RichText& from_;
  RichText& to_;
  FormatPlaces formatPlaces_;
  RunCursor characterRuns_;
  RunCursor paragraphRuns_;
  std::size_t at_ = 0;  // in the old text
};

}  // namespace

RichText edited(const RichText& document, std::span<const RichTextEdit> edits) {
  RichText result{.text = {},
                  .fonts = document.fonts,
                  .characterFormats = document.characterFormats,
                  .paragraphFormats = document.paragraphFormats,
                  .characterRuns = {},
                  .paragraphRuns = {},
                  .page = document.page};
  std::size_t size = document.text.size();
  for (const RichTextEdit& edit : edits) {
    size += edit.text.size();
  }
  result.text.reserve(size);
  Walk walk(document, result);
  for (const RichTextEdit& edit : edits) {
    walk.keepUntil(edit.position);
    walk.replace(edit);
  }
  walk.keepUntil(document.text.size());
  return result;
}

void addRun(std::vector<FormatRun>& runs, std::size_t end, std::uint32_t format) {
  const std::size_t begin = runs.empty() ? 0 : runs.back().end;
  if (end <= begin) {
    return;
  }
  if (!runs.empty() && runs.back().format == format) {
    runs.back().end = end;
  } else {
    runs.push_back({.end = end, .format = format});
  }
}

std::uint16_t fontIndex(RichText& document, std::u16string_view name) {
  std::vector<std::u16string>& fonts = document.fonts;
  const auto found = std::find(fonts.begin(), fonts.end(), name);
  const auto index = static_cast<std::size_t>(found - fonts.begin());
  if (index > std::numeric_limits<std::uint16_t>::max()) {
    return 0;
  }
  if (found == fonts.end()) {
    fonts.emplace_back(name);
  }
  return static_cast<std::uint16_t>(index);
}

void append(RichText& document, std::u16string_view text, const CharacterFormat& format) {
  std::vector<CharacterFormat>& formats = document.characterFormats;
  if (text.empty()) {
    return;
  }
  // The latest formats stand last, and one of them it mostly is.
  const auto found = std::find(formats.rbegin(), formats.rend(), format);
  auto index = static_cast<std::uint32_t>(formats.rend() - found);
  if (index == 0) {
    formats.push_back(format);
    index = static_cast<std::uint32_t>(formats.size());
  }
  if (document.paragraphFormats.empty()) {
    document.paragraphFormats.emplace_back();
  }
  document.text += text;
  addRun(document.characterRuns, document.text.size(), index - 1);
  addRun(document.paragraphRuns, document.text.size(),
         document.paragraphRuns.empty() ? 0 : document.paragraphRuns.back().format);
}

}  // namespace voxilane
