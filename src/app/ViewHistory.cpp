#include "app/ViewHistory.h"

namespace corvanta::inline app {

void ViewHistory::Push(const ViewCommand& command) {
  if (!slots_.empty()) {
    if (slots_[current_] == command) return;
    slots_.resize(current_ + 1);
  }
  if (slots_.size() == kSlots) slots_.erase(slots_.begin());
  slots_.push_back(command);
  current_ = slots_.size() - 1;
}

void ViewHistory::Replace(const ViewCommand& command) {
  if (!slots_.empty()) slots_[current_] = command;
}

std::optional<ViewCommand> ViewHistory::Back() {
  if (!CanGoBack()) return std::nullopt;
  return slots_[--current_];
}

std::optional<ViewCommand> ViewHistory::Forward() {
  if (!CanGoForward()) return std::nullopt;
  return slots_[++current_];
}

void ViewHistory::Clear() {
  slots_.clear();
  current_ = 0;
}

}  // namespace corvanta::inline app
