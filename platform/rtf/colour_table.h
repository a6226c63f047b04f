#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/rich_text.h"

namespace voxilane {

// The colours of a file: 0xRRGGBB, or the automatic one for an entry without parts.
class ColourTable {
 public:
  // A part of the present entry; `shift`: 16 red, 8 green, 0 blue.
  void setPart(unsigned shift, std::uint32_t value) {
    if (entry_ == automaticColour) {
      entry_ = 0;
    }
    entry_ = (entry_ & ~(0xFFU << shift)) | value << shift;
  }

  void endEntry() {
    if (colours_.size() < maxColours) {
      colours_.push_back(entry_);
    }
    entry_ = automaticColour;
  }

  // The automatic colour for a number that the table does not hold.
  std::uint32_t colour(std::int32_t number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < colours_.size() ? colours_[index] : automaticColour;
  }

 private:
  // There are no more colours than these, and the automatic one.
  static constexpr std::size_t maxColours = (std::size_t{1} << 24) + 1;

  std::vector<std::uint32_t> colours_;
  std::uint32_t entry_ = automaticColour;
};

}  // namespace voxilane
