#include "platform/text/utf8_check.h"

#include <cstddef>
#include <cstdint>

#include <unicode/utf8.h>

namespace voxilane {
namespace {

bool isWholeUtf8(const std::uint8_t* bytes, std::ptrdiff_t size) {
  for (std::ptrdiff_t at = 0; at < size;) {
    UChar32 codePoint = 0;
    U8_NEXT(bytes, at, size, codePoint);
    if (codePoint < 0) {
      return false;
    }
  }
  return true;
}

}  // namespace

void Utf8Check::add(std::string_view part) {
  std::string joined;
  if (!pending_.empty()) {
    joined = pending_.append(part);
    part = joined;
  }
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(part.data());
  // Signed, since ICU counts down through zero.
  auto whole = static_cast<std::ptrdiff_t>(part.size());
  U8_TRUNCATE_IF_INCOMPLETE(bytes, 0, whole);
  valid_ = valid_ && isWholeUtf8(bytes, whole);
  pending_ = part.substr(static_cast<std::size_t>(whole));
}

}  // namespace voxilane
