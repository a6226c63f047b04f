#pragma once

#include <string>

#include <gtest/gtest.h>

#include "tests/support/temporary_directory.h"

namespace voxilane {

struct Outcome {
  int status;
  std::string out;
  std::string err;
};

// Runs the built program the way a shell does, in a program directory with a small made-up library.
class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest();

  // `arguments` are shell words; "$T" in them is the temporary directory.
  Outcome run(const std::string& arguments, const std::string& input = "") const;

  // A shell script that finds the program in "$V" and its directory in "$T".
  Outcome shell(const std::string& script) const;

  // What the run prints on standard output, which must be a success.
  std::string output(const std::string& arguments, const std::string& input = "") const;

  TemporaryDirectory directory;
};

}  // namespace voxilane
