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

std::vector<Insertion> dangqianInsertions(Recognition found, const CanshuSet& canshu,
                                          const PassMonitor& monitor) {
  std::vector<Insertion> insertions;
  if (!monitor.keepWriting) {
    return insertions;
  }
  insertions.reserve(found.List4.size());
  for (std::size_t i = 0; i < found.List4.size(); ++i) {
    std::string run = std::move(found.List4[i]);
    run.insert(0, canshu.leftBracket).append(canshu.rightBracket).append(canshu.separator());
    insertions.push_back({found.List5[i], std::move(run)});
  }
  return insertions;
}

std::string selfBlock(const Recognition& found, const CanshuSet& canshu,
                      const PassMonitor& monitor) {
  std::string block;
  if (!monitor.keepWriting) {
    return block;
  }
  for (const std::string& yinbiao : found.List4) {
    block.append(canshu.leftBracket).append(yinbiao).append(canshu.rightBracket);
  }
  return block;
}

}  // namespace voxilane
