#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace voxilane {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Ends the run as a finding.
inline void require(bool holds) {
  if (!holds) {
    __builtin_trap();
  }
}

}  // namespace voxilane
