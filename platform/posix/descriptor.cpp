#include "platform/posix/descriptor.h"

namespace voxilane {

ssize_t readSome(int descriptor, char* buffer, std::size_t size) {
  for (;;) {
    const ssize_t count = ::read(descriptor, buffer, size);
    if (count >= 0 || errno != EINTR) {
      return count;
    }
  }
}

Done writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return systemError();
    }
  }
  return std::monostate();
}

Done BufferedSink::write(std::string_view bytes) {
  constexpr std::size_t bufferSize = std::size_t{1} << 16U;
  if (buffer_.size() + bytes.size() < bufferSize) {
    buffer_ += bytes;
    return state_;
  }
  if (flush()) {
    state_ = writeAll(descriptor(), bytes);
  }
  return state_;
}

Done BufferedSink::flush() {
  if (state_) {
    state_ = writeAll(descriptor(), buffer_);
  }
  buffer_.clear();
  return state_;
}

Done BufferedSink::commit() {
  if (flush() && !descriptor_.close()) {
    state_ = systemError();
  }
  return state_;
}

}  // namespace voxilane
