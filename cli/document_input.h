#pragma once

#include <memory>
#include <string>

#include "platform/files.h"

namespace voxilane {

// A document as a call names it, from its first byte.
struct DocumentInput {
  std::unique_ptr<ByteSource> source;
  bool isRichText = false;
};

// Opens an input and looks at its first bytes, at no more than it takes to tell rich text.
Result<DocumentInput> openDocument(const std::string& input);

// All that is left in a source. More than 1 GB is an error.
Result<std::string> readAll(ByteSource& source);

}  // namespace voxilane
