#pragma once

#include <cstdio>
#include <exception>
#include <functional>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace voxilane {

// Starts a process that runs the body and reports what it expected in vain.
inline pid_t startChild(const std::function<void()>& body) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    try {
      body();
    } catch (const std::exception& exception) {
      ADD_FAILURE() << exception.what();
    }
    std::fflush(nullptr);
    _exit(::testing::Test::HasFailure() ? 1 : 0);
  }
  return child;
}

// The same to its end: for what would change this process for good.
inline void inChild(const std::function<void()>& body) {
  int status = -1;
  waitpid(startChild(body), &status, 0);
  EXPECT_EQ(status, 0) << "the child process reported failures, or died";
}

}  // namespace voxilane
