#include "platform/files.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace voxilane {
namespace {

Error systemError() { return {std::strerror(errno)}; }

class Descriptor {
 public:
  Descriptor(int number, bool owned) : number_(number), owned_(owned) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
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

class PosixSource : public ByteSource {
 public:
  PosixSource(int descriptor, bool owned)
      : descriptor_(descriptor, owned), beginning_(::lseek(descriptor, 0, SEEK_CUR)) {}

  Result<std::size_t> read(std::span<char> buffer) override {
    for (;;) {
      const ssize_t count = ::read(descriptor_.get(), buffer.data(), buffer.size());
      if (count >= 0) {
        return static_cast<std::size_t>(count);
      }
      if (errno != EINTR) {
        return systemError();
      }
    }
  }

  bool rewind() override {
    return beginning_ >= 0 && ::lseek(descriptor_.get(), beginning_, SEEK_SET) == beginning_;
  }

  bool waitForInput(int milliseconds) override {
    pollfd waiting{descriptor_.get(), POLLIN, 0};
    return ::poll(&waiting, 1, milliseconds) != 0;
  }

  std::optional<std::uint64_t> size() override {
    struct stat status {};
    if (::fstat(descriptor_.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
      return std::nullopt;
    }
    return static_cast<std::uint64_t>(status.st_size);
  }

 private:
  Descriptor descriptor_;
  off_t beginning_;  // negative where there is no going back
};

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

// Collects small writes into large ones.
class BufferedSink : public ByteSink {
 public:
  BufferedSink(int descriptor, bool owned) : descriptor_(descriptor, owned) {}

  Done write(std::string_view bytes) override {
    constexpr std::size_t bufferSize = std::size_t{1} << 16U;
    if (buffer_.size() + bytes.size() < bufferSize) {
      buffer_ += bytes;
      return std::monostate();
    }
    Done flushed = flush();
    return flushed ? writeAll(descriptor_.get(), bytes) : flushed;
  }

  Done flush() override {
    Done done = writeAll(descriptor_.get(), buffer_);
    buffer_.clear();
    return done;
  }

  Done commit() override {
    Done done = flush();
    if (done && !descriptor_.close()) {
      return systemError();
    }
    return done;
  }

 protected:
  int descriptor() const { return descriptor_.get(); }

 private:
  Descriptor descriptor_;
  std::string buffer_;
};

class ReplacingSink : public BufferedSink {
 public:
  ReplacingSink(int descriptor, std::string temporaryPath, std::string path)
      : BufferedSink(descriptor, true),
        temporaryPath_(std::move(temporaryPath)),
        path_(std::move(path)) {}
  ReplacingSink(const ReplacingSink&) = delete;
  ReplacingSink& operator=(const ReplacingSink&) = delete;

  ~ReplacingSink() override {
    if (!temporaryPath_.empty()) {
      ::unlink(temporaryPath_.c_str());
    }
  }

  Done commit() override {
    Done flushed = flush();
    if (!flushed) {
      return flushed;
    }
    // The content must be on the disk before the name is: a crash leaves the old file or the new.
    if (::fsync(descriptor()) != 0) {
      return systemError();
    }
    Done closed = BufferedSink::commit();
    if (!closed) {
      return closed;
    }
    if (::rename(temporaryPath_.c_str(), path_.c_str()) != 0) {
      return systemError();
    }
    temporaryPath_.clear();
    return std::monostate();
  }

 private:
  std::string temporaryPath_;
  std::string path_;
};

// The permissions that a file at this path has or would get.
mode_t permissionsFor(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) {
    return status.st_mode & 07777U;
  }
  // The mask can only be read by setting it, so it is done once.
  static const mode_t mask = [] {
    const mode_t current = ::umask(0);
    ::umask(current);
    return current;
  }();
  return 0666U & ~mask;
}

bool isStandardOutput(const struct stat& file) {
  struct stat output {};
  return ::fstat(STDOUT_FILENO, &output) == 0 && S_ISREG(output.st_mode) &&
         output.st_dev == file.st_dev && output.st_ino == file.st_ino;
}

// Where a path leads, also when its last link leads to a file that is not there yet.
std::filesystem::path withoutLinks(const std::filesystem::path& path) {
  std::error_code none;
  auto whole = std::filesystem::canonical(path, none);
  if (!none) {
    return whole;
  }
  const auto link = std::filesystem::read_symlink(path, none);
  return none ? path : path.parent_path() / link;
}

Result<std::unique_ptr<ByteSink>> openDirectly(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) {
    return systemError();
  }
  return std::unique_ptr<ByteSink>(std::make_unique<BufferedSink>(descriptor, true));
}

}  // namespace

Result<std::unique_ptr<ByteSource>> openFile(const std::string& path) {
  if (isDirectory(path)) {
    return Error{std::strerror(EISDIR)};
  }
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) {
    return systemError();
  }
  return std::unique_ptr<ByteSource>(std::make_unique<PosixSource>(descriptor, true));
}

std::unique_ptr<ByteSource> openStandardInput() {
  return std::make_unique<PosixSource>(STDIN_FILENO, false);
}

std::unique_ptr<ByteSink> openStandardOutput() {
  return std::make_unique<BufferedSink>(STDOUT_FILENO, false);
}

Result<std::unique_ptr<ByteSink>> replaceFile(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) {
    if (isStandardOutput(status)) {
      return openStandardOutput();
    }
    if (!S_ISREG(status.st_mode)) {
      return openDirectly(path);
    }
  }
  const std::filesystem::path target = withoutLinks(path);
  const auto pattern = target.parent_path() / ("." + target.filename().string() + ".XXXXXX");
  std::string temporaryPath = pattern.string();
  const mode_t permissions = permissionsFor(target.string());
  const int descriptor = ::mkostemp(temporaryPath.data(), O_CLOEXEC);
  if (descriptor < 0) {
    return systemError();
  }
  // Where the file system has no permissions the file is usable all the same.
  (void)::fchmod(descriptor, permissions);
  return std::unique_ptr<ByteSink>(
      std::make_unique<ReplacingSink>(descriptor, std::move(temporaryPath), target.string()));
}

Result<std::string> readFile(const std::string& path) {
  auto source = openFile(path);
  if (!source) {
    return source.error();
  }
  std::string content;
  constexpr std::size_t blockSize = std::size_t{1} << 20U;
  for (;;) {
    const std::size_t filled = content.size();
    content.resize(filled + blockSize);
    const auto count = source.value()->read(std::span(content).subspan(filled));
    if (!count) {
      return count.error();
    }
    content.resize(filled + count.value());
    if (count.value() == 0) {
      return content;
    }
  }
}

bool fileExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0;
}

bool isDirectory(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isSameFile(const std::string& a, const std::string& b) {
  std::error_code none;
  return std::filesystem::equivalent(a, b, none) && !none;
}

Done makeDirectory(const std::string& path) {
  if (::mkdir(path.c_str(), 0777) != 0 && !isDirectory(path)) {
    return systemError();
  }
  return std::monostate();
}

void guardStandardStreams() {
  // Descriptors are given out from the lowest free number on.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) < 0) {
      (void)::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
  }
}

bool standardErrorIsTerminal() { return ::isatty(STDERR_FILENO) == 1; }

std::string executableDirectory() {
  std::error_code unknown;
  const auto path = std::filesystem::read_symlink("/proc/self/exe", unknown);
  return unknown ? "." : path.parent_path().string();
}

}  // namespace voxilane
