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

inline void appendSpelled(std::string& out, std::string_view yinbiao, Spelling spelling) {
  switch (spelling) {
    case Spelling::codes:
      out += yinbiao;
      break;
    case Spelling::ipa:
      appendIpa(out, yinbiao);
      break;
    case Spelling::unicode:
      out += codeToUnicode(yinbiao);
      break;
  }
}

inline std::string spelled(std::string_view yinbiao, Spelling spelling) {
  std::string text;
  appendSpelled(text, yinbiao, spelling);
  return text;
}

}  // namespace voxilane
