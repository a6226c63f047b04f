#include "annotation/line_walk.h"

#include <algorithm>

#include "annotation/alphabets.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::size_t reach = 15;  // the most letters of a word

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

bool isWalked(std::u16string_view line) { return !trimBlanks(line).empty(); }

LineWalk::LineWalk(const Brackets& brackets, Transcriber& transcribe, PassMonitor& monitor)
    : brackets_(brackets), transcribe_(transcribe), monitor_(monitor) {}

void LineWalk::add(std::u16string_view part, std::string& out) {
  for (const char16_t c : part) {
    if (!monitor_.keepRecognising) {
      return;
    }
    if (isLineWalkLetter(c)) {
      addLetter(c);
    } else if (c != u'-') {
      endWord(out);
    }
  }
}

void LineWalk::addLetter(char16_t letter) {
  if (word_.size() == reach) {
    word_.erase(0, 1);
  }
  word_ += static_cast<char>(letter);
}

void LineWalk::endWord(std::string& out) {
  if (word_.empty()) {
    out += ' ';
    return;
  }
  const std::string_view known = transcribe_(word_, monitor_);
  const std::string_view yinbiao = known.empty() ? unknownTranscription : known;
  const std::size_t length = utf16Length(yinbiao);
  out.append(brackets_.left).append(yinbiao);
  out.append(word_.size() - std::min(length, word_.size()), ' ');
  out.append(brackets_.right).append("  ");
  word_.clear();
}

std::string putout1(std::u16string_view line, const Brackets& brackets, Transcriber& transcribe,
                    PassMonitor& monitor) {
  constexpr std::size_t partLength = 4096;
  LineWalk walk(brackets, transcribe, monitor);
  std::string out;
  for (std::size_t at = 0; at < line.size(); at += partLength) {
    monitor.progress(PassStage::reading, at, line.size());
    walk.add(line.substr(at, partLength), out);
  }
  return out;
}

AlignedLines walkLines(const std::vector<std::u16string_view>& lines, const Brackets& brackets,
                       Transcriber& transcribe, PassMonitor& monitor) {
  AlignedLines aligned;
  for (const std::u16string_view line : lines) {
    if (!isWalked(line)) {
      continue;
    }
    aligned.List3.push_back(std::u16string(line).append(lineEndBlanks));
    aligned.List31.push_back(" " + putout1(aligned.List3.back(), brackets, transcribe, monitor));
  }
  return aligned;
}

}  // namespace voxilane
