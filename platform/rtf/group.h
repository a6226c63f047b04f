#pragma once

#include <cstdint>
#include <optional>

#include "platform/rich_text.h"

namespace voxilane {

// Where the text of a group goes.
enum class RtfDestination : std::uint8_t {
  body,
  fontTable,
  colourTable,
  generator,
  fieldInstruction,
  header,  // the place for headers and footers: nowhere, but text in it is told of
  nowhere,
};

// Which bytes or characters come next: \ltrch, \loch, \hich, \dbch, \rtlch.
enum class RtfCharacters : std::uint8_t { any, lowAnsi, highAnsi, doubleByte, rightToLeft };

// What holds until the end of the group.
struct RtfGroup {
  RtfDestination destination = RtfDestination::body;
  std::optional<RtfDestination> aroundUpr;  // within \upr: where its Unicode form goes
  std::int32_t fallbackLength = 1;          // \uc: characters that stand in for a \u
  bool isHidden = false;
  RtfCharacters characters = RtfCharacters::any;
  // Chinese, Japanese and Korean have a font, a size and weights of their own. Fonts are places in
  // the FontTable.
  CharacterFormat western;
  CharacterFormat eastAsian;
  ParagraphFormat paragraph;

  bool isDoubleByte() const { return characters == RtfCharacters::doubleByte; }
};

}  // namespace voxilane
