#pragma once

#include <vector>

#include "cli/document_input.h"
#include "platform/rich_text.h"
#include "platform/rtf/rtf.h"

namespace voxilane {

// Reads a document as a whole: rich text, or plain text as the window opens it. What cannot be kept
// of a rich text file is named.
Result<RtfReading> readDocument(DocumentInput input);

// Writes a document as the window saves it, every backslash doubled.
Done saveDocument(const RichText& document, ByteSink& sink);

// The text of a document as plain text: soft line ends have become line ends.
std::u16string plainText(const RichText& document);

// What was left out, in words: "pictures, footnotes".
std::string namesOf(const std::vector<LeftOut>& leftOut);

}  // namespace voxilane
