#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/result.h"
#include "platform/rich_text.h"

// Rich text files (RTF), as word processors write them.

namespace voxilane {

// What a reader has to leave out, for the user to be told.
enum class LeftOut { pictures, objects, footnotes, headers, comments };

struct RtfReading {
  RichText document;
  std::vector<LeftOut> leftOut;  // each kind once, in order of appearance
};

// Whether bytes are the beginning of a rich text file.
bool isRtf(std::string_view bytes);

// Reads a whole file. Damage is read past as well as it can be; only what is no rich text at all,
// or goes beyond a limit that no honest file reaches, is an error.
//
// A tab parts the cells of a table, a line end closes a row; so does a page break a line that is
// not empty. \par ends a paragraph and a file of a word processor marks its last one too: that mark
// is no line end. In files of writeRtf, known by their generator, every \par is one.
Result<RtfReading> readRtf(std::string_view source);

// Writes a document, ASCII only. readRtf gives the same document back.
Done writeRtf(const RichText& document, ByteSink& sink);

}  // namespace voxilane
