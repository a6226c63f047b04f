#pragma once

#include <string>
#include <string_view>

#include "core/ipa.h"
#include "core/notation.h"

namespace voxilane {

// How a transcription leaves the program.
enum class Spelling {
  codes,    // font codes, as documents and stores hold them
  ipa,      // complete IPA, for people
  unicode,  // the mapping that word-processor fields use
};

inline std::string spelled(std::string_view yinbiao, Spelling spelling) {
  switch (spelling) {
    case Spelling::ipa:
      return codeToIpa(yinbiao);
    case Spelling::unicode:
      return codeToUnicode(yinbiao);
    case Spelling::codes:
      break;
  }
  return std::string(yinbiao);
}

}  // namespace voxilane
