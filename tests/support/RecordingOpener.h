#pragma once

#include "platform/Opener.h"

#include <vector>

namespace corvanta {

// Records what would have been opened.
class RecordingOpener : public Opener {
 public:
  void SetResult(bool opens) { opens_ = opens; }
  [[nodiscard]] const std::vector<std::string>& Opened() const { return opened_; }

  [[nodiscard]] bool Open(const std::string& pathOrUrl) override {
    opened_.push_back(pathOrUrl);
    return opens_;
  }

 private:
  std::vector<std::string> opened_;
  bool opens_ = true;
};

}  // namespace corvanta
