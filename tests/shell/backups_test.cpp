#include "shell/backups.h"

#include <random>
#include <thread>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/files.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_directory.h"

namespace voxilane {
namespace {

namespace fs = std::filesystem;

class BackupsTest : public ::testing::Test {
 protected:
  BackupsTest() { setenv("XDG_STATE_HOME", (directory / "state").c_str(), 1); }

  // Writes the file and keeps a backup of it.
  std::string keep(const std::string& name, const std::string& content) const {
    const auto kept = keepBackup(directory.write(name, content));
    EXPECT_TRUE(kept) << kept.error().why;
    return kept ? kept.value() : "";
  }

  static std::vector<Backup> listed() {
    auto backups = listBackups();
    EXPECT_TRUE(backups);
    return backups ? std::move(backups.value()) : std::vector<Backup>();
  }

  // What the backups of a file hold, the newest first.
  static std::vector<std::string> contents(const std::string& original) {
    std::vector<std::string> all;
    for (const Backup& backup : listed()) {
      if (backup.original == original) all.push_back(readFile(backup.copy).value());
    }
    return all;
  }

  const TemporaryDirectory directory;
  const std::string folder = directory / "state/voxilane/backups";
};

TEST_F(BackupsTest, ListsOriginalTimeAndSizeAndGivesTheContentBack) {
  EXPECT_TRUE(listed().empty());
  const auto before = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  fs::create_directory(directory / "课 1");
  const std::string content("old\0\xFF", 5);
  const std::string copy = keep("课 1/lesson.rtf", content);
  const auto backups = listed();
  ASSERT_EQ(backups.size(), 1U);
  EXPECT_EQ(backups[0].original, fs::canonical(directory / "课 1/lesson.rtf"));
  EXPECT_GE(backups[0].time, before);
  EXPECT_LE(backups[0].time, std::chrono::system_clock::now());
  EXPECT_EQ(backups[0].size, 5U);
  EXPECT_EQ(backups[0].copy, copy);
  EXPECT_EQ(readFile(copy).value(), content);
  EXPECT_EQ(fs::path(copy).filename(), "lesson.rtf") << "a word processor goes by the ending";
}

TEST_F(BackupsTest, TheLastTenOfEachFileStay) {
  keep("another", "x");
  for (int i = 1; i <= 12; ++i) keep("file", std::to_string(i));
  const std::vector<std::string> last{"12", "11", "10", "9", "8", "7", "6", "5", "4", "3"};
  EXPECT_EQ(contents(directory / "file"), last);
  EXPECT_EQ(contents(directory / "another"), std::vector<std::string>{"x"});
}

TEST_F(BackupsTest, TheSameContentIsKeptOnce) {
  const std::string first = keep("file", "a");
  EXPECT_EQ(keep("file", "a"), first);
  EXPECT_NE(keep("file", "b"), first);
  EXPECT_NE(keep("file", "a"), first);
  EXPECT_EQ(contents(directory / "file"), (std::vector<std::string>{"a", "b", "a"}));
}

TEST_F(BackupsTest, LinksAndOtherWaysToAFileAreThatFile) {
  keep("file", "1");
  fs::create_symlink("file", directory / "link");
  directory.write("file", "2");
  EXPECT_TRUE(keepBackup(directory / "./link"));
  EXPECT_EQ(contents(directory / "file"), (std::vector<std::string>{"2", "1"}));
}

TEST_F(BackupsTest, AFolderThatWasAFileIsNoBackupOfIt) {
  keep("name", "file");
  fs::remove(directory / "name");
  fs::create_directory(directory / "name");
  for (int i = 0; i < 12; ++i) keep("name/file", std::to_string(i));
  fs::remove_all(directory / "name");
  keep("name", "file again");
  EXPECT_EQ(contents(directory / "name"), (std::vector<std::string>{"file again", "file"}));
  EXPECT_EQ(contents(directory / "name/file").size(), 10U);
}

TEST_F(BackupsTest, WhatIsNoFileNeedsNoBackup) {
  for (const std::string& path :
       {directory / "missing", directory.path(), std::string("/dev/null")}) {
    const auto kept = keepBackup(path);
    ASSERT_TRUE(kept) << path;
    EXPECT_EQ(kept.value(), "");
  }
}

TEST_F(BackupsTest, LongNamesAndPathsAreKept) {
  std::string path = directory.path();
  for (int i = 0; i < 8; ++i) {
    path += "/" + std::string(255, 'd');
    fs::create_directory(path);
  }
  path += "/" + std::string(255, 'f');
  std::ofstream(path) << "old";
  EXPECT_TRUE(keepBackup(path));
  EXPECT_EQ(contents(path), std::vector<std::string>{"old"});
}

TEST_F(BackupsTest, WithoutAPlaceThereIsAnError) {
  const std::string path = directory.write("file", "old");
  directory.write("no-folder", "");
  for (const std::string& state : {directory / "no-folder", std::string("/proc")}) {
    setenv("XDG_STATE_HOME", state.c_str(), 1);
    EXPECT_FALSE(keepBackup(path)) << state;
  }
  unsetenv("XDG_STATE_HOME");
  unsetenv("HOME");
  EXPECT_FALSE(keepBackup(path));
  EXPECT_FALSE(listBackups());
  setenv("HOME", directory.path().c_str(), 1);
  setenv("XDG_STATE_HOME", "not/absolute", 1);
  EXPECT_EQ(backupFolder().value(), directory / ".local/state/voxilane/backups");
}

TEST_F(BackupsTest, NobodyElseCanReadThem) {
  umask(0);
  keep("file", "old");
  EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
}

TEST_F(BackupsTest, StrangeThingsInTheFolderDoNoHarm) {
  keep("file", "old");
  const std::string entry = fs::directory_iterator(folder)->path();
  fs::copy(entry, entry + " of mine", fs::copy_options::recursive);
  fs::create_directories(folder + "/000009-2026-02-30T10-00-00Z/x");
  fs::create_directories(folder + "/99999999999999-2026-02-03T10-00-00Z/x");
  fs::create_directories(folder + "/000005-2026-02-03T10-00-00Z/tmp");
  std::ofstream(folder + "/000005-2026-02-03T10-00-00Z/tmp/.voxilane-1-0") << "unfinished";
  std::ofstream(folder + "/000004-2026-02-03T10-00-00Z") << "a file";
  std::ofstream(folder + "/notes") << "mine";
  EXPECT_EQ(listed().size(), 1U);
  for (int i = 0; i < 12; ++i) keep("file", std::to_string(i));
  EXPECT_EQ(listed().size(), 10U);
  EXPECT_TRUE(fs::exists(folder + "/notes"));
  EXPECT_TRUE(fs::exists(entry + " of mine"));
}

TEST_F(BackupsTest, SeveralProgramsKeepAtOnce) {
  constexpr int programs = 6;
  constexpr int files = 8;
  std::vector<pid_t> children;
  for (int p = 0; p < programs; ++p) {
    children.push_back(startChild([&, p] {
      for (int i = 0; i < files; ++i) {
        const std::string name = std::to_string(p) + "-" + std::to_string(i);
        keep(name, name);
        EXPECT_TRUE(keepBackup(directory / "0-0") || !fileExists(directory / "0-0"));
      }
    }));
  }
  for (const pid_t child : children) {
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  std::set<std::string> originals;
  for (const Backup& backup : listed()) {
    originals.insert(backup.original);
    EXPECT_EQ(readFile(backup.copy).value(), fs::path(backup.original).filename());
  }
  EXPECT_EQ(originals.size(), std::size_t{programs * files});
}

// Such a file is written over, so a program that is killed may leave it torn: never its backup.
TEST_F(BackupsTest, AKilledProgramLeavesWhatItWroteOverInABackup) {
  // In memory nothing waits for a disk, so that many kills hit the writing.
  if (fs::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 1);
  const TemporaryDirectory memory;
  setenv("XDG_STATE_HOME", (memory / "state").c_str(), 1);
  const std::string first(300'000, 'a');
  const std::string second(500'000, 'b');
  const auto isWhole = [&](const std::string& text) { return text == first || text == second; };
  const std::string path = memory.write("file", first);
  fs::create_hard_link(path, memory / "other");
  const auto save = [&](const std::string& content) {
    auto sink = replaceFile(path, keepBackup);
    return sink && sink.value()->write(content) && sink.value()->commit();
  };
  std::minstd_rand random(1);
  for (int round = 0; round < 40; ++round) {
    const pid_t child = startChild([&] {
      while (save(second) && save(first)) {
      }
    });
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 50'000));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::vector<std::string> kept = contents(path);
    EXPECT_TRUE(std::all_of(kept.begin(), kept.end(), isWhole));
    if (!isWhole(memory.read("file"))) {
      EXPECT_FALSE(kept.empty());
      memory.write("file", first);
    }
  }
}

}  // namespace
}  // namespace voxilane
