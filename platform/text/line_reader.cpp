#include "platform/line_reader.h"

#include <algorithm>
#include <string_view>

namespace voxilane {

Result<bool> LineReader::read(std::string& line) {
  line.clear();
  for (;;) {
    const std::string_view rest = std::string_view(piece_).substr(at_);
    const std::size_t size = std::min(rest.find('\n'), rest.size());
    line.append(rest.substr(0, std::min(size, longest_ + 1 - line.size())));
    if (size < rest.size()) {
      at_ += size + 1;
      return true;
    }
    at_ = 0;
    const auto more = text_.read(piece_);
    if (!more) {
      return more.error();
    }
    if (!more.value()) {
      // The last line may have no line end.
      return !line.empty();
    }
  }
}

}  // namespace voxilane
