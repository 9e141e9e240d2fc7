#pragma once

#include <cstddef>
#include <string>

namespace corvanta::inline platform {

// What a long operation shows while it runs.
class Progress {
 public:
  virtual ~Progress() = default;

  // The status text, empty when the operation is over; the former text is returned.
  virtual std::string SetStatus(const std::string& text) = 0;
  // How far the operation is; total 0 hides the bar.
  virtual void SetStep(std::size_t done, std::size_t total) = 0;
  // Lets waiting window messages run. False once the person has asked to stop.
  [[nodiscard]] virtual bool Yield() = 0;
};

// For operations nobody watches.
class SilentProgress : public Progress {
 public:
  std::string SetStatus(const std::string&) override { return {}; }
  void SetStep(std::size_t, std::size_t) override {}
  [[nodiscard]] bool Yield() override { return true; }
};

}  // namespace corvanta::inline platform
