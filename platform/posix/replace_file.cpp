#include <array>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "platform/posix/descriptor.h"

namespace voxilane {
namespace {

namespace fs = std::filesystem;

// Of a new file, less what the mask of the process takes away.
constexpr mode_t newFileMode = 0666;
// While it is not yet known who may read it.
constexpr mode_t privateMode = 0600;
constexpr mode_t permissionBits = 07777;

bool mayWriteTo(const fs::path& path) {
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

fs::path folderOf(const fs::path& path) {
  return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

// Where a path leads, also when its last link leads to a file that is not there yet. A path that
// leads in a circle must have been refused before.
fs::path withoutLinks(fs::path path) {
  constexpr int mostLinks = 40;  // the system follows no more
  for (int i = 0; i < mostLinks; ++i) {
    std::error_code noLink;
    const fs::path link = fs::read_symlink(path, noLink);
    if (noLink) {
      break;
    }
    path = path.parent_path() / link;
  }
  return path;
}

bool isStandardOutput(const struct stat& file) {
  struct stat output {};
  return ::fstat(STDOUT_FILENO, &output) == 0 && S_ISREG(output.st_mode) &&
         output.st_dev == file.st_dev && output.st_ino == file.st_ino;
}

Result<std::unique_ptr<ByteSink>> openDirectly(const std::string& path) {
  Descriptor descriptor(::open(path.c_str(), O_WRONLY | O_CLOEXEC), true);
  if (descriptor.get() < 0) {
    return systemError();
  }
  return std::unique_ptr<ByteSink>(std::make_unique<BufferedSink>(std::move(descriptor)));
}

// A file for what is written until the commit.
struct NewContent {
  Descriptor descriptor;
  fs::path path;  // empty when nobody else can see it
};

Result<NewContent> createIn(const fs::path& folder, mode_t mode) {
  // So many programs may be at work in one folder, or may have been killed there.
  constexpr int mostAttempts = 1000;
  for (int i = 0; i < mostAttempts; ++i) {
    // The name of the file is no part of it: that may be as long as a name can be.
    const std::string name =
        std::string(temporaryPrefix) + std::to_string(::getpid()) + "-" + std::to_string(i);
    fs::path path = folder / name;
    Descriptor descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode), true);
    if (descriptor.get() >= 0) {
      return NewContent{std::move(descriptor), std::move(path)};
    }
    if (errno != EEXIST) {
      return systemError();
    }
  }
  return Error{"too many temporary files beside it"};
}

Result<NewContent> createElsewhere() {
  std::error_code failure;
  const fs::path folder = fs::temp_directory_path(failure);
  if (failure) {
    return Error{"no temporary directory: " + failure.message()};
  }
  auto content = createIn(folder, privateMode);
  if (content) {
    ::unlink(content.value().path.c_str());
    content.value().path.clear();
  }
  return content;
}

bool copyAttribute(const std::string& from, int to, const char* name) {
  std::array<char, XATTR_SIZE_MAX> value{};
  const ssize_t size = ::getxattr(from.c_str(), name, value.data(), value.size());
  return size >= 0 && ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(size), 0) == 0;
}

// The attributes that users set, and the access list, which is part of the permissions.
bool copyAttributes(const std::string& from, int to) {
  constexpr const char* accessList = "system.posix_acl_access";
  // The folder may have given the new file a list that the old one does not have.
  ::fremovexattr(to, accessList);
  std::array<char, XATTR_LIST_MAX> list{};
  const ssize_t size = ::listxattr(from.c_str(), list.data(), list.size());
  // A negative size: the file system has no attributes.
  std::string_view names(list.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  while (!names.empty()) {
    const char* name = names.data();
    const std::string_view text(name);
    names.remove_prefix(text.size() + 1);
    if ((text.substr(0, 5) == "user." || text == accessList) && !copyAttribute(from, to, name)) {
      return false;
    }
  }
  return true;
}

// Gives a new file the owner, the permissions and the attributes of the old one; false when the
// system refuses that.
bool makeAlike(int file, const std::string& oldPath, const struct stat& old) {
  struct stat now {};
  if (::fstat(file, &now) != 0) {
    return false;
  }
  const bool sameOwner = now.st_uid == old.st_uid && now.st_gid == old.st_gid;
  // The permissions come last, since the other two change them.
  return (sameOwner || ::fchown(file, old.st_uid, old.st_gid) == 0) &&
         copyAttributes(oldPath, file) && ::fchmod(file, old.st_mode & permissionBits) == 0;
}

// Makes the content of one file that of another. The file is cut only afterwards: for bringing back
// what it held, the place that it had is still its own.
Done overwrite(int to, int from) {
  if (::lseek(from, 0, SEEK_SET) != 0 || ::lseek(to, 0, SEEK_SET) != 0) {
    return systemError();
  }
  constexpr std::size_t blockSize = std::size_t{1} << 16U;
  std::string block(blockSize, '\0');
  off_t size = 0;
  for (;;) {
    const ssize_t count = readSome(from, block.data(), block.size());
    if (count < 0) {
      return systemError();
    }
    if (count == 0) {
      break;
    }
    if (Done written = writeAll(to, {block.data(), static_cast<std::size_t>(count)}); !written) {
      return written;
    }
    size += count;
  }
  if (::ftruncate(to, size) != 0 || ::fsync(to) != 0) {
    return systemError();
  }
  return std::monostate();
}

void syncFolder(const fs::path& folder) {
  const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY), true);
  // Not every file system can; the file itself is whole in any case.
  (void)::fsync(descriptor.get());
}

class ReplacingSink : public BufferedSink {
 public:
  ReplacingSink(NewContent content, fs::path target, bool inPlace, KeepCopy keepCopy)
      : BufferedSink(std::move(content.descriptor)),
        temporaryPath_(std::move(content.path)),
        target_(std::move(target)),
        inPlace_(inPlace),
        keepCopy_(std::move(keepCopy)) {}
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
    return inPlace_ ? writeInPlace() : takeName();
  }

 private:
  Done takeName() {
    // The content must be on the disk before the name is: a crash leaves the old file or the new.
    if (::fsync(descriptor()) != 0) {
      return systemError();
    }
    if (::rename(temporaryPath_.c_str(), target_.c_str()) != 0) {
      // A file that is mounted for itself, and one of somebody else's in a folder like /tmp.
      const bool mayBeWritten = errno == EBUSY || errno == EPERM || errno == EACCES;
      return mayBeWritten && keepCopy_ ? writeInPlace() : systemError();
    }
    temporaryPath_.clear();
    syncFolder(folderOf(target_));
    return std::monostate();
  }

  Done writeInPlace() {
    const Descriptor target(::open(target_.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW), true);
    if (target.get() < 0) {
      return systemError();
    }
    const auto copy = keepCopy_(target_.string());
    if (!copy) {
      return Error{"can only be written over, and no copy can be kept: " + copy.error().why};
    }
    Done written = overwrite(target.get(), descriptor());
    if (written) {
      return written;
    }
    const Descriptor old(::open(copy.value().c_str(), O_RDONLY | O_CLOEXEC), true);
    if (overwrite(target.get(), old.get())) {
      return written;
    }
    return Error{written.error().why + "; what the file held is in " + copy.value()};
  }

  fs::path temporaryPath_;
  fs::path target_;
  bool inPlace_;
  KeepCopy keepCopy_;
};

}  // namespace

Result<std::unique_ptr<ByteSink>> replaceFile(const std::string& path, KeepCopy keepCopy) {
  struct stat old {};
  const bool exists = ::stat(path.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) {
    return systemError();
  }
  if (exists && isStandardOutput(old)) {
    return openStandardOutput();
  }
  if (exists && !S_ISREG(old.st_mode)) {
    return openDirectly(path);
  }
  // The folder alone would decide on a rename, but a read-only file is meant to stay.
  if (exists && !mayWriteTo(path)) {
    return systemError();
  }
  fs::path target = withoutLinks(path);
  const bool elsewhere = exists && keepCopy && !mayWriteTo(folderOf(target));
  auto content = elsewhere ? createElsewhere()
                           : createIn(folderOf(target), exists ? privateMode : newFileMode);
  if (!content) {
    return content.error();
  }
  const bool alike =
      !exists || (makeAlike(content.value().descriptor.get(), path, old) && old.st_nlink == 1);
  const bool inPlace = elsewhere || (!alike && keepCopy);
  return std::unique_ptr<ByteSink>(std::make_unique<ReplacingSink>(
      std::move(content.value()), std::move(target), inPlace, std::move(keepCopy)));
}

}  // namespace voxilane
