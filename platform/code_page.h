#pragma once

#include <string>
#include <string_view>

#include "platform/result.h"

// The code page of the program's own text files: GB18030, whose two-byte part is GBK. It holds
// every character.

namespace voxilane {

// Code page bytes to UTF-8. Bytes that are no text become U+FFFD: a file of ours with a damaged
// line should not take the rest of its lines with it.
std::string fromCodePage(std::string_view bytes);

// UTF-8 to code page bytes.
std::string toCodePage(std::string_view utf8);

}  // namespace voxilane
