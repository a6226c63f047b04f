#include "cli/progress_line.h"

#include <cstdio>

namespace voxilane {
namespace {

constexpr std::chrono::seconds quietTime{1};
constexpr std::chrono::milliseconds interval{100};

}  // namespace

ProgressLine::ProgressLine(std::string name, bool shown)
    : name_(std::move(name)), shown_(shown), next_(Clock::now() + quietTime) {}

ProgressLine::~ProgressLine() {
  if (printed_) {
    std::fprintf(stderr, "\r\033[K");
  }
}

void ProgressLine::progress(PassStage /*stage*/, std::size_t done, std::size_t total) {
  if (!shown_ || Clock::now() < next_) {
    return;
  }
  next_ = Clock::now() + interval;
  printed_ = true;
  if (total > 0) {
    std::fprintf(stderr, "\r%s: %.1f %%\033[K", name_.c_str(),
                 100.0 * static_cast<double>(done) / static_cast<double>(total));
  } else {
    std::fprintf(stderr, "\r%s: %.1f MB\033[K", name_.c_str(), static_cast<double>(done) / 1e6);
  }
}

}  // namespace voxilane
