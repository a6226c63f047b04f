#include "shell/backups.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <optional>
#include <sstream>
#include <tuple>

#include "platform/files.h"

namespace voxilane {
namespace {

namespace fs = std::filesystem;

// A folder with one backup. They are numbered, since a clock may be set back.
struct Entry {
  std::uint32_t number = 0;
  std::chrono::sys_seconds time;
  fs::path folder;
};

constexpr std::uint32_t largestNumber = 999'999'999;
constexpr int numberDigits = 6;
constexpr const char* timeFormat = "-%Y-%m-%dT%H-%M-%SZ";

std::string nameOf(std::uint32_t number, std::chrono::sys_seconds time) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
  std::tm parts{};
  ::gmtime_r(&seconds, &parts);
  std::ostringstream name;
  name << std::setw(numberDigits) << std::setfill('0') << number
       << std::put_time(&parts, timeFormat);
  return name.str();
}

// Sets number and time; false for a name that is none of ours.
bool parseName(const std::string& name, Entry& entry) {
  std::istringstream text(name);
  std::tm parts{};
  if (!(text >> entry.number >> std::get_time(&parts, timeFormat)) ||
      entry.number > largestNumber) {
    return false;
  }
  entry.time = std::chrono::sys_seconds(std::chrono::seconds(::timegm(&parts)));
  return nameOf(entry.number, entry.time) == name;
}

// The newest first.
Result<std::vector<Entry>> entriesIn(const fs::path& folder) {
  std::vector<Entry> entries;
  std::error_code failure;
  for (fs::directory_iterator i(folder, failure); !failure && i != fs::directory_iterator();
       i.increment(failure)) {
    Entry entry;
    entry.folder = i->path();
    if (parseName(i->path().filename().string(), entry)) {
      entries.push_back(std::move(entry));
    }
  }
  if (failure && failure != std::errc::no_such_file_or_directory) {
    return Error{failure.message()};
  }
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
    return std::tie(a.number, a.time) > std::tie(b.number, b.time);
  });
  return entries;
}

// A copy stands under the whole path of its original.
fs::path copyIn(const Entry& entry, const fs::path& original) {
  return entry.folder / original.relative_path();
}

std::vector<Entry> backupsOf(const fs::path& original, const std::vector<Entry>& all) {
  std::vector<Entry> ofThis;
  std::copy_if(all.begin(), all.end(), std::back_inserter(ofThis), [&](const Entry& entry) {
    std::error_code none;
    return fs::is_regular_file(copyIn(entry, original), none);
  });
  return ofThis;
}

bool holdTheSame(const fs::path& a, const fs::path& b) {
  std::error_code none;
  if (fs::file_size(a, none) != fs::file_size(b, none)) {
    return false;
  }
  using Bytes = std::istreambuf_iterator<char>;
  std::ifstream first(a, std::ios::binary);
  std::ifstream second(b, std::ios::binary);
  return first && second && std::equal(Bytes(first), Bytes(), Bytes(second), Bytes());
}

Done copyFile(const std::string& from, const std::string& to) {
  auto source = openFile(from);
  if (!source) {
    return source.error();
  }
  auto sink = replaceFile(to);
  if (!sink) {
    return sink.error();
  }
  constexpr std::size_t blockSize = std::size_t{1} << 16U;
  std::string block(blockSize, '\0');
  for (;;) {
    const auto count = source.value()->read(block);
    if (!count) {
      return count.error();
    }
    if (count.value() == 0) {
      return sink.value()->commit();
    }
    if (Done written = sink.value()->write({block.data(), count.value()}); !written) {
      return written;
    }
  }
}

// What documents hold concerns nobody else.
Done makePrivateFolder(const fs::path& folder) {
  std::error_code failure;
  fs::create_directories(folder.parent_path(), failure);
  if (!failure && fs::create_directory(folder, failure)) {
    fs::permissions(folder, fs::perms::owner_all, failure);
  }
  return failure ? Done(Error{folder.string() + ": " + failure.message()}) : std::monostate();
}

// A new folder, behind all that are there; other programs may be making theirs.
Result<Entry> makeEntry(const fs::path& folder, std::uint32_t number) {
  constexpr int mostAttempts = 1000;
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  for (int i = 0; i < mostAttempts; ++i) {
    ++number;
    Entry entry{number, now, folder / nameOf(number, now)};
    std::error_code failure;
    if (fs::create_directory(entry.folder, failure)) {
      return entry;
    }
    if (failure) {
      return Error{failure.message()};
    }
  }
  return Error{"too many backups at once"};
}

Result<std::string> makeBackup(const fs::path& original, const Entry& entry) {
  const fs::path copy = copyIn(entry, original);
  std::error_code failure;
  fs::create_directories(copy.parent_path(), failure);
  const Done copied = failure ? Done(Error{failure.message()}) : copyFile(original, copy);
  if (!copied) {
    fs::remove_all(entry.folder, failure);
    return copied.error();
  }
  return copy.string();
}

Result<std::string> keepIn(const fs::path& folder, const fs::path& original) {
  const auto all = entriesIn(folder);
  if (!all) {
    return all.error();
  }
  const std::vector<Entry> older = backupsOf(original, all.value());
  if (!older.empty() && holdTheSame(copyIn(older.front(), original), original)) {
    return copyIn(older.front(), original).string();
  }
  const auto entry = makeEntry(folder, all.value().empty() ? 0 : all.value().front().number);
  if (!entry) {
    return entry.error();
  }
  auto kept = makeBackup(original, entry.value());
  for (std::size_t i = backupsOfEach - 1; kept && i < older.size(); ++i) {
    std::error_code none;
    fs::remove_all(older[i].folder, none);
  }
  return kept;
}

// The file of a backup. A program that was killed while it made the copy leaves none.
std::optional<Backup> backupIn(const Entry& entry) {
  std::error_code failure;
  for (fs::recursive_directory_iterator i(entry.folder, failure);
       !failure && i != fs::recursive_directory_iterator(); i.increment(failure)) {
    const fs::path& path = i->path();
    std::error_code noFile;
    const std::uint64_t size = fs::file_size(path, noFile);
    if (!noFile && !path.filename().string().starts_with(temporaryPrefix)) {
      const fs::path original = "/" / path.lexically_relative(entry.folder);
      return Backup{original.string(), entry.time, size, path.string()};
    }
  }
  return std::nullopt;
}

}  // namespace

Result<std::string> backupFolder() {
  auto state = userStateDirectory();
  return state ? Result(state.value() + "/voxilane/backups") : state;
}

Result<std::string> keepBackup(const std::string& path) {
  std::error_code failure;
  const fs::path original = fs::canonical(path, failure);
  if (failure == std::errc::no_such_file_or_directory ||
      (!failure && !fs::is_regular_file(original, failure))) {
    return std::string();
  }
  if (failure) {
    return Error{failure.message()};
  }
  const auto folder = backupFolder();
  if (!folder) {
    return folder.error();
  }
  if (const Done made = makePrivateFolder(folder.value()); !made) {
    return made.error();
  }
  return keepIn(folder.value(), original);
}

Result<std::vector<Backup>> listBackups() {
  const auto folder = backupFolder();
  if (!folder) {
    return folder.error();
  }
  const auto entries = entriesIn(folder.value());
  if (!entries) {
    return entries.error();
  }
  std::vector<Backup> backups;
  for (const Entry& entry : entries.value()) {
    if (auto backup = backupIn(entry)) {
      backups.push_back(std::move(*backup));
    }
  }
  return backups;
}

}  // namespace voxilane
