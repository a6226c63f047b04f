#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "annotation/pass_monitor.h"
#include "annotation/transcriber.h"

namespace voxilane {

// The words that a scan found, in text order; two lists in step.
struct Recognition {
  std::vector<std::string> List4;  // transcriptions
  std::vector<std::size_t> List5;  // 0-based position of the character behind the word, in UTF-16
                                   // units
};

// The first stage of the whole-document pass: every word whose transcription is known. Of a run of
// more than 20 letters only the last 20 count as a word. Ends early when the monitor says so or the
// library fails, with what was found until then. When the text is only the beginning of a longer
// one, a run of letters at its end is left alone.
enum class TextEnd { whole, continues };
Recognition recognitionPass(std::u16string_view text, Transcriber& transcribe, PassMonitor& monitor,
                            TextEnd textEnd = TextEnd::whole);

// The variant of the layout `self`. A word does not end its reach of 21 characters, so the next
// candidate begins with the character that ended the word: behind a comma or a line end a word is
// missed, behind a blank it is found.
Recognition recogniseForSelf(std::u16string_view text, Transcriber& transcribe,
                             PassMonitor& monitor);

// How much of a text that continues can be recognised, as one that continues, before the rest is
// known. At most 20 characters stay behind, so the memory that a stream needs is bounded.
std::size_t recognisableLength(std::u16string_view text);

}  // namespace voxilane
