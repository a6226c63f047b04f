#pragma once

#include <memory>
#include <string>

#include "platform/files.h"
#include "platform/result.h"

namespace voxilane {

// What line ends become.
enum class LineEnds {
  crLf,  // as in a document
  lf,    // as in a list of lines
};

// Text from a file or a pipe, piece by piece. The encoding is recognised: UTF-8, or UTF-16 by its
// mark, or else GB18030. A file is looked at whole; of a pipe the first 64 KB count, and if it
// pauses before that, what has come so far. Bytes that are no text, and a NUL character, are an
// error that tells their place.
class TextReader {
 public:
  TextReader(std::unique_ptr<ByteSource> source, LineEnds lineEnds);
  TextReader(const TextReader&) = delete;
  TextReader& operator=(const TextReader&) = delete;
  ~TextReader();

  // Replaces `piece` by the next part of the text; false at the end. A line end is never split.
  Result<bool> read(std::u16string& piece);

  // The same in UTF-8.
  Result<bool> read(std::string& piece);

  // Whether there is nothing to read at this moment.
  bool wouldWait();

  std::uint64_t bytesRead() const;

  // The size of the whole in bytes; 0 when it is not known.
  std::uint64_t size() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace voxilane
