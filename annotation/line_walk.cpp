#include "annotation/line_walk.h"

#include <algorithm>
#include <optional>

#include "annotation/alphabets.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::size_t reach = 15;  // the most letters of a word
constexpr std::u16string_view lineEndBlanks = u"     ";

// The end of the run of letters that begins at a position; nothing when it reaches the text's end.
std::optional<std::size_t> letterRunEnd(std::u16string_view text, std::size_t from) {
  const auto* const end = std::find_if_not(text.begin() + from, text.end(), isLineWalkLetter);
  if (end == text.end()) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(end - text.begin());
}

// Appends a transcription with blanks up to the length of its word.
void appendPadded(std::string& out, std::string_view yinbiao, std::size_t wordLength) {
  const std::size_t length = utf16Length(yinbiao);
  out += yinbiao;
  if (length < wordLength) {
    out.append(wordLength - length, ' ');
  }
}

}  // namespace

DocumentLines fenduan1(std::u16string_view document) {
  DocumentLines result;
  while (!document.empty()) {
    const std::size_t end = std::min(document.find(u"\r\n"), document.size());
    result.lines.push_back(document.substr(0, end));
    result.hasLongParagraph |= end > longestParagraph;
    document.remove_prefix(std::min(end + 2, document.size()));
  }
  return result;
}

AlignedLines walkLines(const std::vector<std::u16string_view>& lines, const Brackets& brackets,
                       Transcriber& transcribe, PassMonitor& monitor) {
  AlignedLines aligned;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (trimBlanks(lines[i]).empty()) {
      continue;
    }
    monitor.progress(PassStage::reading, i, lines.size());
    aligned.List3.push_back(std::u16string(lines[i]).append(lineEndBlanks));
    aligned.List31.push_back(" " + putout1(aligned.List3.back(), brackets, transcribe, monitor));
  }
  return aligned;
}

std::string putout1(std::u16string_view line, const Brackets& brackets, Transcriber& transcribe,
                    PassMonitor& monitor) {
  std::u16string text(line);
  std::erase(text, u'-');
  std::string out;
  out.reserve(2 * text.size());
  std::string word;
  ProgressReporter progress(monitor, text.size());
  for (std::size_t at = 0; at < text.size() && monitor.keepRecognising; ++at) {
    progress.at(at);
    if (!isLineWalkLetter(text[at])) {
      out += ' ';
      continue;
    }
    const auto end = letterRunEnd(text, at);
    if (!end) {
      break;
    }
    word.clear();
    appendUtf8(word, std::u16string_view(text).substr(*end - std::min(*end - at, reach),
                                                      std::min(*end - at, reach)));
    const std::string_view yinbiao = transcribe(word, monitor);
    out += brackets.left;
    appendPadded(out, yinbiao.empty() ? unknownTranscription : yinbiao, word.size());
    out += brackets.right;
    out += "  ";
    at = *end;
  }
  return out;
}

}  // namespace voxilane
