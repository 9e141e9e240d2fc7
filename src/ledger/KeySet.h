#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <vector>

namespace corvanta::inline ledger {

// Keys of rows, of which there may be a million: those of a table lie close together, so that each
// takes a bit.
class KeySet {
 public:
  void Insert(std::int64_t key) {
    if (key < 0 || key >= kDense) {
      sparse_.insert(key);
      return;
    }
    const auto place = static_cast<std::size_t>(key);
    if (place >= dense_.size()) dense_.resize(2 * place + 1);
    dense_[place] = true;
  }
  [[nodiscard]] bool Has(std::int64_t key) const {
    if (key < 0 || key >= kDense) return sparse_.contains(key);
    const auto place = static_cast<std::size_t>(key);
    return place < dense_.size() && dense_[place];
  }

 private:
  static constexpr std::int64_t kDense = std::int64_t{1} << 27;
  std::vector<bool> dense_;
  std::unordered_set<std::int64_t> sparse_;
};

}  // namespace corvanta::inline ledger
