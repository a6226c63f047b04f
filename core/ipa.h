#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// The mapping for people: complete IPA outside the private font, in both directions.

namespace voxilane {

// Font codes of any edition to IPA (UTF-8). What is no code passes unchanged.
std::string codeToIpa(std::string_view yinbiao);
void appendIpa(std::string& out, std::string_view yinbiao);

struct IpaFault {
  std::size_t position;  // 1-based, in characters
  std::string symbol;    // the character that cannot be read, UTF-8
};

// The fault in a few words of English.
std::string faultText(const IpaFault& fault);

struct IpaReading {
  std::string codes;  // as far as it could be read
  std::optional<IpaFault> fault;
};

// IPA as people write it (UTF-8) to font codes, symbol by symbol: ː or :, ˈ or ', ɡ or g, ligatures
// or pairs, with or without tie bars. A short ɔ is read as the short o of the 13th edition, oʊ as
// əʊ.
IpaReading ipaToCode(std::string_view ipa);

// Whether a text is to be read as IPA rather than as font codes: it holds a character that only
// IPA has. Plain letters that mean the same in both count as codes.
bool looksLikeIpa(std::string_view text);

// Font codes of a text that may be either.
IpaReading codesFromEither(std::string_view text);

}  // namespace voxilane
