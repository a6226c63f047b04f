#pragma once

#include <memory>
#include <string>

#include "platform/files.h"

// Inputs and outputs as a call names them: "-" or nothing is the standard stream.

namespace voxilane {

inline constexpr const char* standardInput = "standard input";
inline constexpr const char* standardOutput = "standard output";

Result<std::unique_ptr<ByteSource>> openInput(const std::string& input);

// A file is replaced as a whole, see replaceFile().
Result<std::unique_ptr<ByteSink>> openOutput(const std::string& output);

// What they are called in errors.
std::string inputName(const std::string& input);
std::string outputName(const std::string& output);

}  // namespace voxilane
