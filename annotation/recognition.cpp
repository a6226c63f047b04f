#include "annotation/recognition.h"

#include <algorithm>

#include "annotation/alphabets.h"
#include "core/text.h"

namespace voxilane {
namespace {

constexpr std::size_t reach = 20;  // the most letters of a word
constexpr std::size_t reportInterval = 4096;

// What ends a word that stands at the very end of the document.
constexpr std::u16string_view endBlanks = u"  ";

std::size_t letterRunEnd(std::u16string_view text, std::size_t from) {
  while (from < text.size() && isWordScanLetter(text[from])) {
    ++from;
  }
  return from;
}

// One scan: what it has found, and the watcher kept informed.
class Scan {
 public:
  Scan(Transcriber& transcribe, PassMonitor& monitor, std::size_t total)
      : transcribe_(transcribe), monitor_(monitor), total_(total) {}

  // Whether to go on with the character at a position.
  bool goesOnAt(std::size_t position) {
    if (position >= nextReport_) {
      monitor_.progress(PassStage::reading, position, total_);
      nextReport_ = position + reportInterval;
    }
    return monitor_.keepRecognising;
  }

  // Notes a candidate that ends before `end`, if it has a transcription.
  void take(std::u16string_view candidate, std::size_t end) {
    word_.clear();
    appendUtf8(word_, trimBlanks(candidate));
    std::transform(word_.begin(), word_.end(), word_.begin(), asciiLower);
    const std::string_view yinbiao = transcribe_(word_, monitor_);
    if (!trimBlanks(yinbiao).empty()) {
      found_.List4.emplace_back(yinbiao);
      found_.List5.push_back(end);
    }
  }

  Recognition result() { return std::move(found_); }

 private:
  Transcriber& transcribe_;
  PassMonitor& monitor_;
  std::size_t total_;
  std::size_t nextReport_ = reportInterval;
  std::string word_;
  Recognition found_;
};

}  // namespace

Recognition recognitionPass(std::u16string_view text, Transcriber& transcribe, PassMonitor& monitor,
                            TextEnd textEnd) {
  Scan scan(transcribe, monitor, text.size());
  for (std::size_t at = 0; at < text.size() && scan.goesOnAt(at); ++at) {
    if (!isWordScanLetter(text[at])) {
      continue;
    }
    const std::size_t end = letterRunEnd(text, at);
    if (end < text.size() || textEnd == TextEnd::whole) {
      const std::size_t begin = end - std::min(end - at, reach);
      scan.take(text.substr(begin, end - begin), end);
    }
    at = end;
  }
  return scan.result();
}

Recognition recogniseForSelf(std::u16string_view document, Transcriber& transcribe,
                             PassMonitor& monitor) {
  const std::u16string text = std::u16string(document).append(endBlanks);
  Scan scan(transcribe, monitor, text.size());
  for (std::size_t begin = 0; begin < text.size() && scan.goesOnAt(begin); ++begin) {
    if (!isWordScanLetter(text[begin])) {
      continue;
    }
    const std::size_t limit = std::min(begin + reach + 1, text.size());
    for (std::size_t end = begin; end < limit && monitor.keepRecognising; ++end) {
      if (!isWordScanLetter(text[end])) {
        scan.take(std::u16string_view(text).substr(begin, end - begin), end);
        begin = end;
      }
    }
  }
  return scan.result();
}

std::size_t recognisableLength(std::u16string_view text) {
  std::size_t runBegin = text.size();
  while (runBegin > 0 && isWordScanLetter(text[runBegin - 1])) {
    --runBegin;
  }
  return std::max(runBegin, text.size() - std::min(text.size(), reach));
}

}  // namespace voxilane
