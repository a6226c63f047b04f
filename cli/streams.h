#pragma once

#include <memory>
#include <string>

#include "cli/context.h"
#include "platform/files.h"

// Inputs and outputs as a call names them: "-" or nothing is the standard stream.

namespace voxilane {

inline constexpr const char* standardInput = "standard input";
inline constexpr const char* standardOutput = "standard output";

Result<std::unique_ptr<ByteSource>> openInput(const std::string& input);

// A file is replaced as a whole, see replaceFile(). One that has to be written over is kept as a
// backup before.
Result<std::unique_ptr<ByteSink>> openOutput(const std::string& output);

// To be called before the commit of a document's output. When that is the input too, the document
// is kept as a backup. If this cannot be done the user is told, and it is no failure.
void keepReplacedInput(Context& context, const std::string& input, const std::string& output);

// What they are called in errors.
std::string inputName(const std::string& input);
std::string outputName(const std::string& output);

}  // namespace voxilane
