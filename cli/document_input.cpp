#include "cli/document_input.h"

#include <algorithm>

#include "cli/streams.h"

namespace voxilane {
namespace {

constexpr std::string_view richTextStart = "{\\rtf";

// What is read whole has to fit into memory. The longest books with formatting have some 10 MB.
constexpr std::uint64_t mostBytes = std::uint64_t{1} << 30U;

// A pipe of which some has been read: gives that again, then the rest.
class PeekedSource final : public ByteSource {
 public:
  PeekedSource(std::string head, std::unique_ptr<ByteSource> rest)
      : head_(std::move(head)), rest_(std::move(rest)) {}

  Result<std::size_t> read(std::span<char> buffer) override {
    if (head_.empty()) {
      return rest_->read(buffer);
    }
    const std::size_t count = head_.copy(buffer.data(), buffer.size());
    head_.erase(0, count);
    return count;
  }

  bool rewind() override { return false; }

  bool waitForInput(int milliseconds) override {
    return !head_.empty() || rest_->waitForInput(milliseconds);
  }

  std::optional<std::uint64_t> size() override { return rest_->size(); }

 private:
  std::string head_;
  std::unique_ptr<ByteSource> rest_;
};

// The first bytes, as far as they agree with the beginning of rich text, and at most one read more.
Result<std::string> readHead(ByteSource& source) {
  std::string head;
  while (head.size() < richTextStart.size() && richTextStart.substr(0, head.size()) == head) {
    std::string block(richTextStart.size() - head.size(), '\0');
    const auto count = source.read(block);
    if (!count) {
      return count.error();
    }
    if (count.value() == 0) {
      break;
    }
    head.append(block, 0, count.value());
  }
  return head;
}

}  // namespace

Result<DocumentInput> openDocument(const std::string& input) {
  auto source = openInput(input);
  if (!source) {
    return source.error();
  }
  auto head = readHead(*source.value());
  if (!head) {
    return head.error();
  }
  DocumentInput document{std::move(source.value()), head.value() == richTextStart};
  if (!document.source->rewind()) {
    document.source =
        std::make_unique<PeekedSource>(std::move(head.value()), std::move(document.source));
  }
  return document;
}

Result<std::string> readAll(ByteSource& source) {
  constexpr std::size_t blockSize = std::size_t{1} << 16U;
  std::string bytes;
  bytes.reserve(std::min(source.size().value_or(0), mostBytes));
  std::string block(blockSize, '\0');
  for (;;) {
    const auto count = source.read(block);
    if (!count) {
      return count.error();
    }
    if (count.value() == 0) {
      return bytes;
    }
    bytes.append(block, 0, count.value());
    if (bytes.size() > mostBytes) {
      return Error{"larger than 1 GB"};
    }
  }
}

}  // namespace voxilane
