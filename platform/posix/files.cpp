#include "platform/files.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/descriptor.h"

namespace voxilane {
namespace {

class PosixSource : public ByteSource {
 public:
  explicit PosixSource(Descriptor descriptor)
      : descriptor_(std::move(descriptor)), beginning_(::lseek(descriptor_.get(), 0, SEEK_CUR)) {}

  Result<std::size_t> read(std::span<char> buffer) override {
    const ssize_t count = readSome(descriptor_.get(), buffer.data(), buffer.size());
    if (count < 0) {
      return systemError();
    }
    return static_cast<std::size_t>(count);
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

}  // namespace

Result<std::unique_ptr<ByteSource>> openFile(const std::string& path) {
  if (isDirectory(path)) {
    return Error{std::strerror(EISDIR)};
  }
  Descriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC), true);
  if (descriptor.get() < 0) {
    return systemError();
  }
  return std::unique_ptr<ByteSource>(std::make_unique<PosixSource>(std::move(descriptor)));
}

std::unique_ptr<ByteSource> openStandardInput() {
  return std::make_unique<PosixSource>(Descriptor(STDIN_FILENO, false));
}

std::unique_ptr<ByteSink> openStandardOutput() {
  return std::make_unique<BufferedSink>(Descriptor(STDOUT_FILENO, false));
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

void guardProgram() {
  // Descriptors are given out from the lowest free number on.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) < 0) {
      (void)::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
  }
  (void)std::signal(SIGXFSZ, SIG_IGN);
}

bool standardErrorIsTerminal() { return ::isatty(STDERR_FILENO) == 1; }

std::string executableDirectory() {
  std::error_code unknown;
  const auto path = std::filesystem::read_symlink("/proc/self/exe", unknown);
  return unknown ? "." : path.parent_path().string();
}

Result<std::string> userStateDirectory() {
  const auto absolute = [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value == '/' ? std::string(value) : std::string();
  };
  if (std::string state = absolute("XDG_STATE_HOME"); !state.empty()) {
    return state;
  }
  if (const std::string home = absolute("HOME"); !home.empty()) {
    return home + "/.local/state";
  }
  return Error{"no home directory"};
}

}  // namespace voxilane
