#pragma once

#include <array>
#include <cstdint>
#include <unordered_set>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// Which categories there are, for whoever goes through many rows: a row whose category is gone
// counts nowhere.
class CategoryKeys {
 public:
  // Throws StoreError.
  explicit CategoryKeys(Connection& store);

  [[nodiscard]] bool Has(std::int64_t key) {
    std::int64_t& met = met_[static_cast<std::size_t>(key) % met_.size()];
    if (met == key) return true;
    if (!keys_.contains(key)) return false;
    met = key;
    return true;
  }

 private:
  std::unordered_set<std::int64_t> keys_;
  std::array<std::int64_t, 256> met_;  // some that were asked for, each at its own place
};

}  // namespace corvanta::inline ledger
