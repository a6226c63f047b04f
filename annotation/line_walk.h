#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "annotation/pass_monitor.h"
#include "annotation/transcriber.h"
#include "core/brackets.h"

// The line walk of the layouts `up` and `down`: each line of the document gets a second line with
// its transcriptions, held in step by character counts alone.

namespace voxilane {

// A paragraph longer than this should be split by the user; the pass goes on all the same.
inline constexpr std::size_t longestParagraph = 1000;
inline constexpr std::string_view longParagraphText =
    "有段落的长度超过1000个字符,请用回车符拆分为更小段落！";

struct DocumentLines {
  std::vector<std::u16string_view> lines;  // of the document, without line ends; empty ones too
  bool hasLongParagraph = false;
};

// fenduan1: the paragraphs of a document whose line ends are CR LF.
DocumentLines fenduan1(std::u16string_view document);

// The blanks that a line gets behind it: they end a word at the end of the line.
inline constexpr std::u16string_view lineEndBlanks = u"     ";

// Whether the walk takes a line; others are dropped and do not come back.
bool isWalked(std::u16string_view line);

// Makes a transcription line from a line that may come in parts. A word takes its transcription in
// brackets, padded to the word's length, and two blanks; any other character one blank, but the one
// that ends a word nothing; hyphens count as not there. Of a run of more than 15 letters only the
// last 15 count. A run that no other character has ended is not written.
class LineWalk {
 public:
  LineWalk(const Brackets& brackets, Transcriber& transcribe, PassMonitor& monitor);

  // Appends the columns that the part settles; none once the monitor has stopped the reading.
  void add(std::u16string_view part, std::string& out);

 private:
  void addLetter(char16_t letter);
  void endWord(std::string& out);

  const Brackets& brackets_;
  Transcriber& transcribe_;
  PassMonitor& monitor_;
  std::string word_;  // the last letters of the present run
};

// putout1: the transcription line of one line, which has its blanks behind it.
std::string putout1(std::u16string_view line, const Brackets& brackets, Transcriber& transcribe,
                    PassMonitor& monitor);

// A document in lines. The two lists are in step.
struct AlignedLines {
  std::vector<std::u16string> List3;  // lines that are not blank, with their blanks behind them
  std::vector<std::string> List31;    // their transcription lines
};

AlignedLines walkLines(const std::vector<std::u16string_view>& lines, const Brackets& brackets,
                       Transcriber& transcribe, PassMonitor& monitor);

}  // namespace voxilane
