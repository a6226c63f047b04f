#include "platform/text/utf8_check.h"

#include <cstdint>

#include <unicode/utf8.h>

#include "core/text.h"

namespace voxilane {

void Utf8Check::add(std::string_view part) {
  std::string joined;
  if (!pending_.empty()) {
    joined = pending_.append(part);
    part = joined;
  }
  std::size_t whole = part.size();
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(part.data());
  U8_TRUNCATE_IF_INCOMPLETE(bytes, 0, whole);
  valid_ = valid_ && isUtf8(part.substr(0, whole));
  pending_ = part.substr(whole);
}

}  // namespace voxilane
