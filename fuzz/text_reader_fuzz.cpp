// Any bytes as the text of a pipe, in parts of a length that the first byte gives.

#include <algorithm>

#include "fuzz/input.h"
#include "platform/text_reader.h"

namespace {

using namespace voxilane;

class FuzzSource : public ByteSource {
 public:
  FuzzSource(std::string_view bytes, std::size_t part) : bytes_(bytes), part_(part) {}

  Result<std::size_t> read(std::span<char> buffer) override {
    const std::size_t count = std::min({buffer.size(), part_, bytes_.size()});
    std::copy_n(bytes_.begin(), count, buffer.begin());
    bytes_.remove_prefix(count);
    return count;
  }
  bool rewind() override { return false; }
  bool waitForInput(int /*milliseconds*/) override { return true; }
  std::optional<std::uint64_t> size() override { return std::nullopt; }

 private:
  std::string_view bytes_;
  std::size_t part_;
};

std::u16string readAll(std::string_view bytes, std::size_t part) {
  TextReader reader(std::make_unique<FuzzSource>(bytes, part), LineEnds::crLf);
  std::u16string text;
  std::u16string piece;
  for (;;) {
    const auto more = reader.read(piece);
    if (!more) return u"\uFFFF";
    if (!more.value()) return text;
    text += piece;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) {
    return 0;
  }
  const std::string_view bytes = textOf(data + 1, size - 1);
  require(readAll(bytes, 1 + data[0]) == readAll(bytes, bytes.size()));
  return 0;
}
