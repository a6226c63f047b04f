#pragma once

#include <cstddef>
#include <string>

#include "platform/text_reader.h"

namespace voxilane {

// The lines of a text, one after the other. The text must come with line ends LF.
class LineReader {
 public:
  // Of a line that is longer than `longest` bytes, one byte more than that is given and the rest
  // passed over.
  LineReader(TextReader& text, std::size_t longest) : text_(text), longest_(longest) {}

  // Replaces `line` by the next one, in UTF-8 without its line end; false at the end.
  Result<bool> read(std::string& line);

 private:
  TextReader& text_;
  std::size_t longest_;
  std::string piece_;
  std::size_t at_ = 0;  // how much of the piece has been given
};

}  // namespace voxilane
