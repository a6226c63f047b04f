#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace voxilane {

class RtfReader;

// A control word and what it does.
struct RtfControlWord {
  enum class Kind : std::uint8_t {
    character,  // stands for a character
    plain,
    always,  // works in groups that are left out as well
  };

  std::string_view name;
  void (*run)(RtfReader& reader, std::optional<std::int32_t> number);
  Kind kind = Kind::plain;
};

// Null when nobody knows the word.
const RtfControlWord* findControlWord(std::string_view name);

}  // namespace voxilane
