#pragma once

#include <string>

#include "platform/files.h"

namespace voxilane {

// Keeps what is written.
class StringSink : public ByteSink {
 public:
  Done write(std::string_view part) override {
    bytes += part;
    return std::monostate{};
  }
  Done flush() override { return std::monostate{}; }
  Done commit() override { return std::monostate{}; }

  std::string bytes;
};

}  // namespace voxilane
