#include "annotation/line_walk.h"

#include <algorithm>

#include "annotation/alphabets.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::size_t reach = 15;  // the most letters of a word
constexpr std::u16string_view lineEndBlanks = u"     ";

std::u16string withoutHyphens(std::u16string_view line) {
  std::u16string kept;
  kept.reserve(line.size());
  std::remove_copy(line.begin(), line.end(), std::back_inserter(kept), u'-');
  return kept;
}

// The word's transcription, at least as long as the word.
std::string paddedTranscription(std::u16string_view letters, Transcriber& transcribe,
                                PassMonitor& monitor) {
  const std::string word(letters.begin(), letters.end());
  std::string yinbiao = transcribe(word, monitor);
  if (yinbiao.empty()) {
    yinbiao = unknownTranscription;
  }
  const std::size_t length = utf16Length(yinbiao);
  if (length < word.size()) {
    yinbiao.append(word.size() - length, ' ');
  }
  return yinbiao;
}

}  // namespace

DocumentLines fenduan1(std::u16string_view document) {
  DocumentLines result;
  while (!document.empty()) {
    const std::size_t end = std::min(document.find(u"\r\n"), document.size());
    result.lines.emplace_back(document.substr(0, end));
    result.hasLongParagraph |= end > longestParagraph;
    document.remove_prefix(std::min(end + 2, document.size()));
  }
  return result;
}

AlignedLines walkLines(const std::vector<std::u16string>& lines, const Brackets& brackets,
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
  const std::u16string text = withoutHyphens(line);
  std::string out;
  ProgressReporter progress(monitor, text.size());
  for (std::size_t at = 0; at < text.size() && monitor.keepRecognising; ++at) {
    progress.at(at);
    if (!isLineWalkLetter(text[at])) {
      out += ' ';
      continue;
    }
    const auto runEnd = std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(),
                                         isLineWalkLetter);
    if (runEnd == text.end()) {
      break;
    }
    const auto end = static_cast<std::size_t>(runEnd - text.begin());
    const std::size_t begin = end - std::min(end - at, reach);
    const auto letters = std::u16string_view(text).substr(begin, end - begin);
    out += brackets.left;
    out += paddedTranscription(letters, transcribe, monitor);
    out += brackets.right;
    out += "  ";
    at = end;
  }
  return out;
}

}  // namespace voxilane
