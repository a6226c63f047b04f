#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "annotation/line_walk.h"
#include "annotation/parameters.h"
#include "annotation/recognition.h"
#include "core/lookup_chain.h"

// The layouts of a whole-document pass, by the values of canshu4.

namespace voxilane {

enum class Layout { dangqian, up, down, self, word1, word2 };

// Nothing for an unknown name: such a pass ends at once and leaves the document as it is.
std::optional<Layout> layoutNamed(std::string_view name);

// The order in which a layout asks the stores.
const LookupChain& chainOf(Layout layout);

// Whether a document is one that no pass touches: nothing but blanks in it.
bool isBlankDocument(std::u16string_view document);

// What the writing stage has to write of what was found: all of it or, when the writing was stopped
// before it began, nothing.
Recognition toWrite(Recognition found, const PassMonitor& monitor);

// What stands around each transcription that a layout writes.
struct RunFrame {
  std::string before;
  std::string after;
};

// `dangqian` inserts at each position of List5 the transcription in this frame: in brackets, with
// the separator. To be applied from the last to the first, so that the positions hold.
RunFrame dangqianFrame(const CanshuSet& canshu);

// `self` puts a line end behind the document and then all transcriptions, each in this frame.
RunFrame selfFrame(const CanshuSet& canshu);

}  // namespace voxilane
