#pragma once

#include "annotation/layouts.h"
#include "annotation/parameters.h"
#include "annotation/pass_monitor.h"
#include "annotation/transcriber.h"
#include "platform/rich_text.h"

// The layouts as they change a document with formatting. Transcriptions stand in it as font codes.

namespace voxilane {

inline constexpr std::string_view englishFont = "Times New Roman";
inline constexpr std::string_view plainTextFont = "\u5b8b\u4f53";

// A plain text as the window holds it: in its one font, black.
RichText plainDocument(std::u16string_view text);

struct RichTextPass {
  RichText document;
  bool hasLongParagraph = false;
};

// The document after the pass of a layout, with transcriptions in a colour. `dangqian` and `self`
// insert, and leave the text and its looks alone; `up` and `down` build the document anew. The
// layouts of the word processor leave it as it is.
RichTextPass annotatedDocument(const RichText& document, Layout layout, const CanshuSet& canshu,
                               std::uint32_t colour, Transcriber& transcribe, PassMonitor& monitor);

}  // namespace voxilane
