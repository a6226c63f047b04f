#pragma once

#include <array>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include "core/text.h"

namespace voxilane {

// Test cases written as plain text: so many cells a case, any white space between them. Within a
// cell `_` is a blank and `¶` a line end CR LF; `~` alone is an empty cell.
template <std::size_t columns>
std::vector<std::array<std::string, columns>> tableOf(const char* text) {
  std::vector<std::array<std::string, columns>> rows;
  std::istringstream cells(text);
  std::string cell;
  for (std::size_t i = 0; cells >> cell; ++i) {
    if (i % columns == 0) rows.emplace_back();
    replaceAll(cell, {"_", " "});
    replaceAll(cell, {"¶", "\r\n"});
    rows.back()[i % columns] = cell == "~" ? "" : cell;
  }
  return rows;
}

}  // namespace voxilane
