#pragma once

#include <optional>
#include <string>
#include <string_view>

// A Yinbiao is a transcription in font codes: plain ASCII, without brackets, empty when none is
// known. The font TessaraPhonic draws each code as its phonetic symbol; for any other font the
// codes are mapped on the way out.

namespace voxilane {

// Every mapped code replaced by its Unicode character (UTF-8). The length mark stays a colon, `R`
// and `U` stay letters: this is what word-processor fields hold.
std::string codeToUnicode(std::string_view yinbiao);

// Every mapped code replaced by its HTML entity, stress marks by apostrophe and full stop.
std::string codeToEntities(std::string_view yinbiao);

// What is wrong with a transcription as the library stores it (13th edition), in a few words of
// English; nothing when it is well formed. The empty transcription is not well formed.
std::optional<std::string> notationFault(std::string_view yinbiao);

}  // namespace voxilane
