#pragma once

#include "app/ViewCommand.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace corvanta::inline app {

// The views shown one after the other, as far back as the slots reach.
class ViewHistory {
 public:
  static constexpr std::size_t kSlots = 20;

  // Remembers what is shown now; what lay ahead of the former view is forgotten. The view already
  // shown is not remembered twice.
  void Push(const ViewCommand& command);
  // The view shown now has other parameters.
  void Replace(const ViewCommand& command);
  [[nodiscard]] bool CanGoBack() const { return current_ > 0; }
  [[nodiscard]] bool CanGoForward() const { return current_ + 1 < slots_.size(); }
  // Steps and returns the view to show; nullopt at the end.
  std::optional<ViewCommand> Back();
  std::optional<ViewCommand> Forward();
  void Clear();

 private:
  std::vector<ViewCommand> slots_;
  std::size_t current_ = 0;
};

}  // namespace corvanta::inline app
