#include "cli/streams.h"

#include "shell/backups.h"

namespace voxilane {
namespace {

bool isStandardStream(const std::string& name) { return name.empty() || name == "-"; }

}  // namespace

Result<std::unique_ptr<ByteSource>> openInput(const std::string& input) {
  return isStandardStream(input) ? Result(openStandardInput()) : openFile(input);
}

Result<std::unique_ptr<ByteSink>> openOutput(const std::string& output) {
  return isStandardStream(output) ? Result(openStandardOutput()) : replaceFile(output, keepBackup);
}

void keepReplacedInput(Context& context, const std::string& input, const std::string& output) {
  if (!isSameFile(isStandardStream(input) ? "/dev/stdin" : input, output)) {
    return;
  }
  if (const auto kept = keepBackup(output); !kept) {
    context.note(output, "no backup kept: " + kept.error().why);
  }
}

std::string inputName(const std::string& input) {
  return isStandardStream(input) ? standardInput : input;
}

std::string outputName(const std::string& output) {
  return isStandardStream(output) ? standardOutput : output;
}

}  // namespace voxilane
