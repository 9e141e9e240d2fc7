#pragma once

#include "store/Connection.h"

#include <chrono>
#include <optional>
#include <utility>

namespace corvanta {

// A transaction for many small changes, each of which may be committed alone: a commit waits for
// the disk, so those of a quarter of a second share one. What is open when it goes is rolled back.
class CommitBatch {
 public:
  explicit CommitBatch(Connection& store) : store_(store) {}

  // Begins a transaction where none is open.
  void Open() {
    if (transaction_) return;
    transaction_.emplace(store_.Begin());
    start_ = Clock::now();
  }
  // Time to commit.
  [[nodiscard]] bool IsFull() const {
    constexpr auto kCommitEvery = std::chrono::milliseconds(250);
    return transaction_ && Clock::now() - start_ >= kCommitEvery;
  }
  // Commits what is open. Throws StoreError.
  void Commit() {
    if (!transaction_) return;
    Transaction open = std::move(*transaction_);  // rolled back when it cannot be committed
    transaction_.reset();
    open.Commit();
  }

 private:
  using Clock = std::chrono::steady_clock;
  Connection& store_;
  std::optional<Transaction> transaction_;
  Clock::time_point start_;
};

}  // namespace corvanta
