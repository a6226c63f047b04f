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

// A text that goes into a document; formatting around it stays.
struct Insertion {
  std::size_t position;  // 0-based, in UTF-16 units of the document before any insertion
  std::string text;      // a transcription run in font codes, with its brackets and separator
};

// `dangqian`: a transcription behind each word found. In text order; to be applied from the last to
// the first. Empty when the writing was stopped.
std::vector<Insertion> dangqianInsertions(Recognition found, const CanshuSet& canshu,
                                          const PassMonitor& monitor);

// `self`: all transcriptions as one block, which goes behind the document and a line end.
std::string selfBlock(const Recognition& found, const CanshuSet& canshu,
                      const PassMonitor& monitor);

}  // namespace voxilane
