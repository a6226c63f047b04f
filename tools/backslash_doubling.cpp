#include "tools/backslash_doubling.h"

namespace voxilane {

std::vector<RichTextEdit> backslashDoubling(std::u16string_view text) {
  std::vector<RichTextEdit> edits;
  std::size_t at = text.find(u'\\');
  while (at != std::u16string_view::npos && at + edits.size() < text.size()) {
    edits.push_back({at + 1, 0, u"\\", std::nullopt});
    at = text.find(u'\\', at + 1);
  }
  return edits;
}

}  // namespace voxilane
