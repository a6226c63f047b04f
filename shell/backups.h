#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/result.h"

// Copies of what files held before they were replaced or deleted, in a folder that each user has.
// docs/file-formats.md says how it is laid out.

namespace voxilane {

// So many backups of one file are kept.
inline constexpr std::size_t backupsOfEach = 10;

struct Backup {
  std::string original;  // absolute, without symbolic links
  std::chrono::sys_seconds time;
  std::uint64_t size;  // bytes
  std::string copy;    // a file to open or to read
};

// It need not be there yet. An error without a home directory.
Result<std::string> backupFolder();

// Keeps what a file holds, before it is replaced or deleted, and drops the oldest backups of the
// same file. Gives the path of the copy, which is on the disk then: that of the newest backup when
// it holds the same; empty when there is no file to keep. Serves as the KeepCopy of replaceFile().
Result<std::string> keepBackup(const std::string& path);

// The backups of all files, the newest first.
Result<std::vector<Backup>> listBackups();

}  // namespace voxilane
