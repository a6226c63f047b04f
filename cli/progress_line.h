#pragma once

#include <chrono>
#include <string>

#include "annotation/pass_monitor.h"

namespace voxilane {

// Progress on standard error, for anything that takes more than a second.
class ProgressLine : public PassMonitor {
 public:
  ProgressLine(std::string name, bool shown);
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine() override;

  void progress(PassStage stage, std::size_t done, std::size_t total) override;

 private:
  using Clock = std::chrono::steady_clock;

  std::string name_;
  bool shown_;
  bool printed_ = false;
  Clock::time_point next_;
};

}  // namespace voxilane
