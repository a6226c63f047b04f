#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <string_view>

#include "cli/spelling.h"
#include "platform/files.h"

namespace voxilane {

enum ExitStatus { exitDone = 0, exitFailed = 1, exitUsage = 2 };

// What all commands share: the options that stand before the command, and the way to report.
class Context {
 public:
  std::string home;  // the program directory
  bool codes = false;
  bool progress = false;  // whether to show a progress line

  // How transcriptions are printed.
  Spelling spelling() const { return codes ? Spelling::codes : Spelling::ipa; }

  // Prints one line on standard error and makes the exit status 1. Any thread may call it.
  void fail(std::string_view what, std::string_view why);

  // The same without a failure: something the user should know.
  void note(std::string_view what, std::string_view text);

  ExitStatus exitStatus() const { return failed_ ? exitFailed : exitDone; }

 private:
  void print(std::string_view what, std::string_view text);

  std::mutex mutex_;
  std::atomic<bool> failed_ = false;
};

}  // namespace voxilane
