#pragma once

#include <cstddef>
#include <optional>

#include "platform/result.h"

namespace voxilane {

enum class PassStage { reading, writing };

// The one thread between a running pass and whoever watches it: progress goes out, the wish to stop
// comes in. A pass asks the flags before each word and reports progress at least every few thousand
// characters; how often to repaint is the watcher's affair.
class PassMonitor {
 public:
  PassMonitor() = default;
  PassMonitor(const PassMonitor&) = delete;
  PassMonitor& operator=(const PassMonitor&) = delete;
  virtual ~PassMonitor() = default;

  // Both are true at rest. A pass whose reading is stopped still writes what it found.
  bool keepRecognising = true;
  bool keepWriting = true;

  // Why the library failed in the middle of a pass; the pass then stops reading.
  std::optional<Error> fault;

  // `done` of `total` characters or items; may clear the flags.
  virtual void progress(PassStage /*stage*/, std::size_t /*done*/, std::size_t /*total*/) {}
};

}  // namespace voxilane
