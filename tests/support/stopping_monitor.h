#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "annotation/pass_monitor.h"

namespace voxilane {

// Stops the reading at one of the reports of progress, and remembers them all.
class StoppingMonitor final : public PassMonitor {
 public:
  explicit StoppingMonitor(std::size_t stopAt = std::numeric_limits<std::size_t>::max())
      : stopAt_(stopAt) {}

  struct Report {
    std::size_t done;
    std::size_t total;
  };
  std::vector<Report> reports;

  void progress(PassStage /*stage*/, std::size_t done, std::size_t total) override {
    reports.push_back({done, total});
    if (reports.size() == stopAt_) keepRecognising = false;
  }

 private:
  std::size_t stopAt_;
};

}  // namespace voxilane
