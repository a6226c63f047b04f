#pragma once

#include <cstddef>
#include <vector>

#include "platform/rich_text.h"

namespace voxilane {

// Goes through the runs of a document from front to back. The runs must outlive it.
class RunCursor {
 public:
  explicit RunCursor(const std::vector<FormatRun>& runs) : runs_(runs) {}

  bool empty() const { return runs_.empty(); }

  // The run that holds a position that is not in front of those asked before; the last run behind
  // the end. Not when empty().
  const FormatRun& at(std::size_t position) {
    while (run_ + 1 < runs_.size() && runs_[run_].end <= position) {
      ++run_;
    }
    return runs_[run_];
  }

 private:
  const std::vector<FormatRun>& runs_;
  std::size_t run_ = 0;
};

}  // namespace voxilane
