#pragma once

#include "platform/Progress.h"

#include <string>

namespace corvanta::inline platform {

// The words of a long operation in the status bar. However it ends, they and its bar go with it and
// the former words come back.
class StatusWords {
 public:
  StatusWords(Progress& progress, const std::string& words)
      : progress_(progress), former_(progress.SetStatus(words)) {}
  ~StatusWords() {
    progress_.SetStep(0, 0);
    progress_.SetStatus(former_);
  }
  StatusWords(const StatusWords&) = delete;
  StatusWords& operator=(const StatusWords&) = delete;

 private:
  Progress& progress_;
  std::string former_;
};

}  // namespace corvanta::inline platform
