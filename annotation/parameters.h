#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/brackets.h"
#include "core/editions.h"

namespace voxilane {

inline constexpr std::string_view phoneticFont = "TessaraPhonic";
inline constexpr std::string_view unicodeFont = "Lucida Sans Unicode";

// The parameters that steer annotation. One object lives as long as the program.
struct CanshuSet {
  std::string canshu1 = "new";       // edition: "new", "old", "mei"; any other: as stored
  std::string canshu2;               // bracket style: "/", "[", "|"
  std::string canshu3 = "kongge";    // separator: "kongge" a blank, "huiche" a line end
  std::string canshu4 = "up";        // layout: "dangqian", "up", "down", "self", "word1", "word2"
  std::string canshu5 = "yes";       // stored for the dialog's check box; no pass reads it
  bool canshu6 = false;              // also present the result as a web page
  bool canshu7 = true;               // reserved
  std::string canshu8{unicodeFont};  // font of transcriptions in pages and fields
  std::int16_t canshu9 = 15;         // base size of the transcription in points
  std::string leftBracket = " ";
  std::string rightBracket = " ";

  // canshu2 with the brackets that follow from it.
  void setBracketStyle(std::string_view style);

  Brackets brackets() const { return {leftBracket, rightBracket}; }
  std::optional<Edition> edition() const { return editionNamed(canshu1); }

  // What stands behind a transcription: a blank, or carriage return and line feed.
  std::string_view separator() const { return canshu3 == "huiche" ? "\r\n" : " "; }
};

// The parameters of the text of canshushezhi.txt (UTF-8, any line ends). Unknown lines are passed
// over, what is missing or cannot be converted gets its default.
CanshuSet parseParameters(std::string_view text);

// The text of canshushezhi.txt, UTF-8 with CRLF.
std::string formatParameters(const CanshuSet& canshu);

}  // namespace voxilane
