#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/result.h"
#include "platform/text/converter.h"

namespace voxilane {

enum class Encoding { utf8, utf16, codePage };

// Bytes of a known encoding to UTF-16, in parts. A mark at the beginning is dropped. Bytes that are
// no text are an error that tells their place.
class TextDecoder {
 public:
  // `offset`: how many bytes of the text went before, for the places in errors.
  TextDecoder(Encoding encoding, std::uint64_t offset);

  // `last`: nothing follows; a character that is cut off is then an error.
  Done append(std::u16string& out, std::string_view bytes, bool last);

 private:
  Error errorAt(std::size_t consumed) const;

  Encoding encoding_;
  ConverterPointer converter_;
  std::uint64_t decoded_;  // bytes before the present part
  bool atBeginning_;
};

}  // namespace voxilane
