#pragma once

#include "platform/Progress.h"
#include "store/sql/StoreError.h"

#include <utility>
#include <vector>

namespace corvanta {

// Records what a long operation showed, and asks it to stop, or fails as a full disk does, after a
// number of yields.
class RecordingProgress : public Progress {
 public:
  void StopAfter(std::size_t yields) { stopAfter_ = yields; }
  void FailAfter(std::size_t yields) { failAfter_ = yields; }

  [[nodiscard]] const std::vector<std::string>& Texts() const { return texts_; }
  [[nodiscard]] const std::vector<std::pair<std::size_t, std::size_t>>& Steps() const {
    return steps_;
  }
  [[nodiscard]] std::size_t Yields() const { return yields_; }
  // What the status bar shows now.
  [[nodiscard]] const std::string& Status() const { return status_; }

  std::string SetStatus(const std::string& text) override {
    texts_.push_back(text);
    return std::exchange(status_, text);
  }
  void SetStep(std::size_t done, std::size_t total) override { steps_.emplace_back(done, total); }
  [[nodiscard]] bool Yield() override {
    ++yields_;
    if (yields_ > failAfter_) throw StoreError(StoreErrorCode::DiskFull, "The disk is full.");
    return yields_ <= stopAfter_;
  }

 private:
  std::string status_;
  std::vector<std::string> texts_;
  std::vector<std::pair<std::size_t, std::size_t>> steps_;
  std::size_t yields_ = 0;
  std::size_t stopAfter_ = static_cast<std::size_t>(-1);
  std::size_t failAfter_ = static_cast<std::size_t>(-1);
};

}  // namespace corvanta
