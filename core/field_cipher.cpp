#include "core/field_cipher.h"

namespace voxilane {

std::string jiamiField(std::string_view text) {
  constexpr std::string_view key = "qmv";
  std::string out(text);
  // The first character meets the second letter of the key.
  for (std::size_t i = 0; i < out.size(); ++i) {
    out[i] = static_cast<char>(out[i] ^ key[(i + 1) % key.size()]);
  }
  return out;
}

std::string jiemiField(std::string_view text) { return jiamiField(text); }

}  // namespace voxilane
