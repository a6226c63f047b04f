// Saving where something is in the way. Whatever happens, the file holds the old content or the
// new.

#include <csignal>
#include <fstream>
#include <random>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "platform/files.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_directory.h"

namespace voxilane {
namespace {

namespace fs = std::filesystem;

Done save(const std::string& path, const std::string& content, const KeepCopy& keepCopy = {}) {
  auto sink = replaceFile(path, keepCopy);
  if (!sink) return sink.error();
  const Done written = sink.value()->write(content);
  return written ? sink.value()->commit() : written;
}

std::string contentOf(const std::string& path) {
  const auto content = readFile(path);
  return content ? content.value() : "unreadable: " + content.error().why;
}

// Keeps the copy in the directory, as "copy".
KeepCopy copyInto(const TemporaryDirectory& directory) {
  return [&](const std::string& path) -> Result<std::string> {
    fs::copy_file(path, directory / "copy", fs::copy_options::overwrite_existing);
    return directory / "copy";
  };
}

Result<std::string> keepNothing(const std::string& /*path*/) { return Error{"no room"}; }

// A user whom permissions hold back, as they do not root.
void becomeOrdinaryUser(const TemporaryDirectory& directory) {
  constexpr uid_t somebody = 65534;
  if (geteuid() == 0) {
    ASSERT_EQ(chmod(directory.path().c_str(), 0777), 0);
    ASSERT_EQ(setgid(somebody), 0);
    ASSERT_EQ(setuid(somebody), 0);
  }
}

// Lets this process mount what only it can see; root may always do so, others on most systems.
bool mountsAreOurs() {
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  if (unshare(CLONE_NEWNS) != 0) {
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << user << " " << user << " 1";
    std::ofstream("/proc/self/gid_map") << group << " " << group << " 1";
  }
  return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

TEST(SafeSaveTest, LinksAreFollowedAndStay) {
  struct Case {
    std::string name;
    std::vector<std::pair<std::string, std::string>> links;  // name, where it leads
    std::string written;
  };
  const std::vector<Case> cases{
      {"to a file", {{"link", "file"}}, "file"},
      {"two steps", {{"link", "second"}, {"second", "file"}}, "file"},
      {"to nothing", {{"link", "new"}}, "new"},
      {"two steps to nothing", {{"link", "sub/second"}, {"sub/second", "new"}}, "sub/new"},
      {"out of a folder", {{"link", "sub/up"}, {"sub/up", "../file"}}, "file"},
      {"through a folder", {{"link", "folder/new"}, {"folder", "sub"}}, "sub/new"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const TemporaryDirectory directory;
    directory.write("file", "old");
    fs::create_directory(directory / "sub");
    for (const auto& [name, target] : c.links) fs::create_symlink(target, directory / name);
    EXPECT_TRUE(save(directory / "link", "new"));
    EXPECT_EQ(directory.read(c.written), "new");
    EXPECT_FALSE(fs::is_symlink(directory / c.written));
    for (const auto& link : c.links) EXPECT_TRUE(fs::is_symlink(directory / link.first));
  }
}

TEST(SafeSaveTest, ACircleOfLinksIsAnError) {
  const TemporaryDirectory directory;
  fs::create_symlink("b", directory / "a");
  fs::create_symlink("a", directory / "b");
  EXPECT_FALSE(save(directory / "a", "new"));
  EXPECT_TRUE(fs::is_symlink(directory / "a") && fs::is_symlink(directory / "b"));
  EXPECT_EQ(directory.fileCount(), 2U);
}

TEST(SafeSaveTest, TheLongestNamesCanBeSaved) {
  const TemporaryDirectory directory;
  for (const std::string& name : {std::string(255, 'n'), std::string(255, '\xFF')}) {
    EXPECT_TRUE(save(directory / name, "old"));
    EXPECT_TRUE(save(directory / name, "new"));
    EXPECT_EQ(directory.read(name), "new");
  }
  EXPECT_FALSE(save(directory / std::string(256, 'n'), "new"));
}

TEST(SafeSaveTest, AFolderThatIsGoneAtTheCommitIsAnError) {
  const TemporaryDirectory directory;
  fs::create_directory(directory / "sub");
  auto sink = replaceFile(directory / "sub/file");
  ASSERT_TRUE(sink.value()->write("new"));
  fs::remove_all(directory / "sub");
  EXPECT_FALSE(sink.value()->commit());
}

TEST(SafeSaveTest, AttributesStay) {
  const TemporaryDirectory directory;
  const std::string path = directory.write("file", "old");
  ASSERT_EQ(chmod(path.c_str(), 0604), 0);
  if (setxattr(path.c_str(), "user.note", "mine", 4, 0) != 0) {
    GTEST_SKIP() << "the file system of the temporary directory has no attributes";
  }
  ASSERT_TRUE(save(path, "new"));
  std::array<char, 8> value{};
  EXPECT_EQ(getxattr(path.c_str(), "user.note", value.data(), value.size()), 4);
  EXPECT_EQ(fs::status(path).permissions(), fs::perms{0604});
}

TEST(SafeSaveTest, ANewFileHasThePermissionsOfAnyNewFile) {
  const TemporaryDirectory directory;
  inChild([&] {
    umask(027);
    EXPECT_TRUE(save(directory / "file", "new"));
  });
  EXPECT_EQ(fs::status(directory / "file").permissions(), fs::perms{0640});
}

TEST(SafeSaveTest, AFileWithTwoNamesKeepsBoth) {
  const TemporaryDirectory directory;
  const std::string path = directory.write("file", "old");
  fs::create_hard_link(path, directory / "other");
  ASSERT_TRUE(save(path, "new", copyInto(directory)));
  EXPECT_EQ(directory.read("other"), "new");
  EXPECT_EQ(directory.read("copy"), "old");
  EXPECT_EQ(directory.fileCount(), 3U);
}

TEST(SafeSaveTest, NothingIsWrittenOverThatIsNotKept) {
  const TemporaryDirectory directory;
  const std::string path = directory.write("file", "old");
  fs::create_hard_link(path, directory / "other");
  const Done done = save(path, "new", keepNothing);
  ASSERT_FALSE(done);
  EXPECT_NE(done.error().why.find("no room"), std::string::npos);
  EXPECT_EQ(directory.read("file"), "old");
}

TEST(SafeSaveTest, AFileInALockedFolderIsWrittenOver) {
  const TemporaryDirectory directory;
  inChild([&] {
    becomeOrdinaryUser(directory);
    fs::create_directory(directory / "sub");
    const std::string path = directory.write("sub/file", "the old content");
    fs::permissions(directory / "sub", fs::perms{0555});
    EXPECT_FALSE(save(path, "new"));
    EXPECT_EQ(contentOf(path), "the old content");
    EXPECT_TRUE(save(path, "new", copyInto(directory)));
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_EQ(directory.read("copy"), "the old content");
    EXPECT_FALSE(save(directory / "sub/another", "new", copyInto(directory)));
    fs::permissions(directory / "sub", fs::perms{0755});
  });
}

TEST(SafeSaveTest, AReadOnlyFileIsNotReplaced) {
  const TemporaryDirectory directory;
  inChild([&] {
    becomeOrdinaryUser(directory);
    const std::string path = directory.write("file", "old");
    fs::permissions(path, fs::perms{0444});
    EXPECT_FALSE(save(path, "new", copyInto(directory)));
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_FALSE(fileExists(directory / "copy"));
  });
}

TEST(SafeSaveTest, AFileOfSomebodyElseStaysTheirs) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make a file of somebody else";
  const TemporaryDirectory directory;
  const std::string path = directory.write("file", "old");
  fs::permissions(path, fs::perms{0666});
  inChild([&] {
    becomeOrdinaryUser(directory);
    EXPECT_TRUE(save(path, "new", copyInto(directory)));
  });
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 0U);
  EXPECT_EQ(directory.read("file"), "new");
  // Root can give its new file to the owner.
  ASSERT_EQ(chown(path.c_str(), 7, 8), 0);
  ASSERT_TRUE(save(path, "newer", keepNothing));
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 7U);
  EXPECT_EQ(status.st_gid, 8U);
}

TEST(SafeSaveTest, AFileThatReachesALimitLeavesTheOldOne) {
  const TemporaryDirectory directory;
  const std::string path = directory.write("file", "old");
  inChild([&] {
    guardProgram();
    rlimit limit{100'000, 400'000};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_FALSE(save(path, std::string(100'001, 'x')));
    auto sink = replaceFile(path);
    ASSERT_TRUE(sink);
    EXPECT_FALSE(sink.value()->write(std::string(200'000, 'x')));
    limit.rlim_cur = limit.rlim_max;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_FALSE(sink.value()->write("more"));
    EXPECT_FALSE(sink.value()->commit()) << "what is not whole was committed";
  });
  EXPECT_EQ(directory.read("file"), "old");
  EXPECT_EQ(directory.fileCount(), 1U);
}

// A disk of 64 KB, of which the old file has 24.
class FullDiskTest : public ::testing::Test {
 protected:
  void run(const std::function<void()>& body) {
    constexpr int noMount = 77;
    const pid_t child = startChild([&] {
      if (!mountsAreOurs() ||
          mount("none", disk.path().c_str(), "tmpfs", 0, "size=64k,mode=777") != 0) {
        _exit(noMount);
      }
      disk.write("file", old);
      body();
    });
    int status = -1;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == noMount) {
      GTEST_SKIP() << "no file system can be mounted here";
    }
    EXPECT_EQ(status, 0);
  }

  const TemporaryDirectory disk;
  const TemporaryDirectory copies;
  const std::string file = disk / "file";
  const std::string old = std::string(24'000, 'o');
  const std::string large = std::string(36'000, 'n');  // finds room once, but not twice
};

TEST_F(FullDiskTest, LeavesTheOldFile) {
  run([&] {
    EXPECT_FALSE(save(file, large + large));
    EXPECT_TRUE(contentOf(file) == old);
    EXPECT_TRUE(save(file, large));
  });
}

TEST_F(FullDiskTest, BringsBackWhatWasWrittenOver) {
  run([&] {
    fs::create_hard_link(file, disk / "other");
    const Done done = save(file, large, copyInto(copies));
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().why, "No space left on device");
    EXPECT_TRUE(contentOf(disk / "other") == old);
  });
  EXPECT_TRUE(copies.read("copy") == old);
}

TEST_F(FullDiskTest, NamesTheCopyWhenNothingCanBeBroughtBack) {
  run([&] {
    fs::create_hard_link(file, disk / "other");
    const Done done =
        save(file, large, [](const std::string&) { return Result<std::string>("/gone"); });
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().why, "No space left on device; what the file held is in /gone");
  });
}

TEST_F(FullDiskTest, AFileThatIsMountedForItselfIsWrittenOver) {
  run([&] {
    disk.write("place", "below");
    ASSERT_EQ(mount(file.c_str(), (disk / "place").c_str(), nullptr, MS_BIND, nullptr), 0);
    EXPECT_FALSE(save(disk / "place", "new"));
    EXPECT_TRUE(contentOf(file) == old);
    EXPECT_TRUE(save(disk / "place", "new", copyInto(copies)));
    EXPECT_EQ(contentOf(file), "new");
  });
}

TEST(SafeSaveTest, AKilledProgramLeavesTheOldContentOrTheNew) {
  const TemporaryDirectory directory;
  const std::string first(300'000, 'a');
  const std::string second(500'000, 'b');
  const std::string path = directory.write("file", first);
  const auto begin = std::chrono::steady_clock::now();
  ASSERT_TRUE(save(path, first));
  const std::chrono::duration<double> oneSave = std::chrono::steady_clock::now() - begin;
  std::minstd_rand random(1);
  std::uniform_real_distribution<double> saves(0, 4);
  std::set<char> seen;
  for (int round = 0; round < 60; ++round) {
    const pid_t child = startChild([&] {
      for (;;) (void)(save(path, second) && save(path, first));
    });
    std::this_thread::sleep_for(saves(random) * oneSave);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string content = directory.read("file");
    ASSERT_TRUE(content == first || content == second) << content.size();
    seen.insert(content.front());
  }
  EXPECT_EQ(seen.size(), 2U) << "only one save ever came to its end";
}

}  // namespace
}  // namespace voxilane
