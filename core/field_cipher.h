#pragma once

#include <string>
#include <string_view>

// The library keeps its transcriptions enciphered with a short fixed key. It is no protection, only
// the form of the data.

namespace voxilane {

// Enciphers a field; bytes in, as many bytes out.
std::string jiamiField(std::string_view text);

// Deciphers a field. The cipher is its own inverse; the two names tell the direction.
std::string jiemiField(std::string_view text);

}  // namespace voxilane
