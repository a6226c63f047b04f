#include "annotation/layouts.h"

#include <array>
#include <utility>

#include "core/text.h"

namespace voxilane {

std::optional<Layout> layoutNamed(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, Layout>, 6> layouts{{
      {"dangqian", Layout::dangqian},
      {"up", Layout::up},
      {"down", Layout::down},
      {"self", Layout::self},
      {"word1", Layout::word1},
      {"word2", Layout::word2},
  }};
  for (const auto& [layoutName, layout] : layouts) {
    if (name == layoutName) {
      return layout;
    }
  }
  return std::nullopt;
}

const LookupChain& chainOf(Layout layout) {
  switch (layout) {
    case Layout::dangqian:
      return dangqianChain;
    case Layout::up:
    case Layout::down:
      return alignedChain;
    case Layout::self:
    case Layout::word1:
    case Layout::word2:
      break;
  }
  return libraryFirstChain;
}

bool isBlankDocument(std::u16string_view document) { return trimBlanks(document).empty(); }

Recognition toWrite(Recognition found, const PassMonitor& monitor) {
  return monitor.keepWriting ? std::move(found) : Recognition();
}

RunFrame dangqianFrame(const CanshuSet& canshu) {
  return {canshu.leftBracket, canshu.rightBracket + std::string(canshu.separator())};
}

RunFrame selfFrame(const CanshuSet& canshu) { return {canshu.leftBracket, canshu.rightBracket}; }

}  // namespace voxilane
