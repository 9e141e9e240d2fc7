#pragma once

#include "platform/Opener.h"

#include <vector>

namespace corvanta {

// Records what would have been opened, and by default with this program.
class RecordingOpener : public Opener {
 public:
  void SetResult(bool opens) { opens_ = opens; }
  [[nodiscard]] const std::vector<std::string>& Opened() const { return opened_; }

  [[nodiscard]] bool Open(const std::string& pathOrUrl) override {
    opened_.push_back(pathOrUrl);
    return opens_;
  }
  [[nodiscard]] bool Associate(const std::vector<std::string_view>& types, bool isOn) override {
    for (const std::string_view type : types) {
      associated_.push_back((isOn ? "+" : "-") + std::string(type));
    }
    return opens_;
  }
  // Each kind of file that was given to this program ("+"), or given back ("-").
  [[nodiscard]] const std::vector<std::string>& Associated() const { return associated_; }

 private:
  std::vector<std::string> opened_;
  std::vector<std::string> associated_;
  bool opens_ = true;
};

}  // namespace corvanta
