#include "cli/context.h"

#include <algorithm>
#include <cstdio>

namespace voxilane {

void Context::fail(std::string_view what, std::string_view why) {
  failed_ = true;
  print(what, why);
}

void Context::note(std::string_view what, std::string_view text) {
  print("note: " + std::string(what), text);
}

void Context::print(std::string_view what, std::string_view text) {
  std::string line = "voxilane-cli: ";
  line.append(what).append(": ").append(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  const std::lock_guard lock(mutex_);
  std::fprintf(stderr, "%s\n", line.c_str());
}

}  // namespace voxilane
