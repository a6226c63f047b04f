#pragma once

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include <unistd.h>

#include "platform/files.h"

namespace voxilane {

// Why the last call of the system failed.
inline Error systemError() { return {std::strerror(errno)}; }

// An open file, closed in the end when it is owned.
class Descriptor {
 public:
  Descriptor(int number, bool owned) : number_(number), owned_(owned) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&& other) noexcept
      : number_(std::exchange(other.number_, -1)), owned_(other.owned_) {}
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() { close(); }

  int get() const { return number_; }

  bool close() {
    const int number = std::exchange(number_, -1);
    return number < 0 || !owned_ || ::close(number) == 0;
  }

 private:
  int number_;
  bool owned_;
};

// read() that is not ended by a signal; negative when it fails.
ssize_t readSome(int descriptor, char* buffer, std::size_t size);

Done writeAll(int descriptor, std::string_view bytes);

// Collects small writes into large ones. After a failure nothing more is written: all that follows
// fails alike, the commit too.
class BufferedSink : public ByteSink {
 public:
  explicit BufferedSink(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

  Done write(std::string_view bytes) override;
  Done flush() override;
  Done commit() override;

 protected:
  int descriptor() const { return descriptor_.get(); }

 private:
  Descriptor descriptor_;
  std::string buffer_;
  Done state_ = std::monostate();
};

}  // namespace voxilane
