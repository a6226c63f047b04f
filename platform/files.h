#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/result.h"

// Files as the program uses them: read from front to back, replaced as a whole. Paths are the
// bytes that the system uses for names.

namespace voxilane {

// Bytes from a file or a pipe.
class ByteSource {
 public:
  ByteSource() = default;
  ByteSource(const ByteSource&) = delete;
  ByteSource& operator=(const ByteSource&) = delete;
  virtual ~ByteSource() = default;

  // Fills the front of the buffer with at least one byte; 0 at the end.
  virtual Result<std::size_t> read(std::span<char> buffer) = 0;

  // Goes back to where reading began; false where that cannot be done, as in a pipe.
  virtual bool rewind() = 0;

  // Waits until there is something to read or the end is reached; false when nothing comes in time.
  virtual bool waitForInput(int milliseconds) = 0;

  // The size in bytes, where it is known.
  virtual std::optional<std::uint64_t> size() = 0;
};

Result<std::unique_ptr<ByteSource>> openFile(const std::string& path);
std::unique_ptr<ByteSource> openStandardInput();

// Where a document goes. What is written counts only after commit(): a file keeps its old content
// until then, and for good when the object dies before.
class ByteSink {
 public:
  ByteSink() = default;
  ByteSink(const ByteSink&) = delete;
  ByteSink& operator=(const ByteSink&) = delete;
  virtual ~ByteSink() = default;

  virtual Done write(std::string_view bytes) = 0;

  // Brings everything to its reader now, where somebody may be waiting for it.
  virtual Done flush() = 0;

  virtual Done commit() = 0;
};

// Keeps what a file holds in another place, on the disk, and gives the path of the copy.
using KeepCopy = std::function<Result<std::string>(const std::string& path)>;

// A new file beside the old one that takes its name on commit. Owner, permissions and attributes
// stay, and a symbolic link is followed. A file that may not be written to is an error.
//
// Some files cannot be replaced so: in a folder that may not be written to, with several names
// (hard links), or of an owner whom a new file cannot have. With keepCopy, commit keeps a copy of
// such a file, then writes into the file itself, and brings the old content back when that fails. A
// program that is killed just then leaves the copy. Without keepCopy, the first of them is an
// error; the others are replaced all the same.
//
// What is no regular file (a device, a pipe) is written to directly, and so is the file that
// standard output goes to.
Result<std::unique_ptr<ByteSink>> replaceFile(const std::string& path, KeepCopy keepCopy = {});

// How the names of the new files begin until the commit.
inline constexpr std::string_view temporaryPrefix = ".voxilane-";

std::unique_ptr<ByteSink> openStandardOutput();

// The whole file.
Result<std::string> readFile(const std::string& path);

bool fileExists(const std::string& path);
bool isDirectory(const std::string& path);

// Whether two paths lead to the same file; false when one of them leads nowhere.
bool isSameFile(const std::string& a, const std::string& b);
Done makeDirectory(const std::string& path);

// To be called first in a program. A standard stream that is closed is made one that fails: another
// file would else get its place, and be read or written as if it were the stream. And a file that
// reaches a size limit makes writing fail instead of ending the program.
void guardProgram();

// Whether something is written for a person who watches.
bool standardErrorIsTerminal();

// The directory of the running program.
std::string executableDirectory();

// Where programs keep what they remember of a user: $XDG_STATE_HOME, or .local/state in the home
// directory. It need not be there.
Result<std::string> userStateDirectory();

}  // namespace voxilane
