#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/temporary_directory.h"

namespace voxilane {
namespace {

TEST(ReplaceFileTest, TheOldContentStaysUntilTheCommit) {
  const TemporaryDirectory directory;
  const std::string path = directory.write("out.txt", "old");
  {
    auto sink = replaceFile(path);
    ASSERT_TRUE(sink);
    ASSERT_TRUE(sink.value()->write(std::string(200'000, 'x')));
    EXPECT_EQ(directory.read("out.txt"), "old");
  }
  EXPECT_EQ(directory.read("out.txt"), "old");
  EXPECT_EQ(directory.fileCount(), 1U);

  auto sink = replaceFile(path);
  ASSERT_TRUE(sink.value()->write("new"));
  ASSERT_TRUE(sink.value()->commit());
  EXPECT_EQ(directory.read("out.txt"), "new");
  EXPECT_EQ(directory.fileCount(), 1U);
}

TEST(ReplaceFileTest, KeepsPermissionsAndFollowsLinks) {
  const TemporaryDirectory directory;
  const std::string path = directory.write("real.txt", "old");
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  std::filesystem::create_symlink("real.txt", directory / "link.txt");
  auto sink = replaceFile(directory / "link.txt");
  ASSERT_TRUE(sink.value()->write("new"));
  ASSERT_TRUE(sink.value()->commit());
  EXPECT_TRUE(std::filesystem::is_symlink(directory / "link.txt"));
  EXPECT_EQ(directory.read("real.txt"), "new");
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST(ReplaceFileTest, ADeviceIsWrittenToAndStaysADevice) {
  auto sink = replaceFile("/dev/full");
  ASSERT_TRUE(sink);
  ASSERT_TRUE(sink.value()->write("x"));
  EXPECT_FALSE(sink.value()->commit());
  EXPECT_FALSE(std::filesystem::is_regular_file("/dev/full"));
}

TEST(OpenFileTest, WhatCannotBeReadIsAnError) {
  const TemporaryDirectory directory;
  EXPECT_FALSE(openFile(directory / "missing"));
  EXPECT_FALSE(openFile(directory.path()));
  EXPECT_FALSE(replaceFile(directory / "missing/out.txt"));
}

}  // namespace
}  // namespace voxilane
