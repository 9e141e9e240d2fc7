// The order of the rows of a list whose columns hold texts, numbers and dates.
#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <tuple>
#include <vector>

namespace corvanta::inline controls {

struct SortState {
  int column = -1;  // none: the list's own order
  bool isDescending = false;

  bool operator==(const SortState&) const = default;
};

// What a cell is sorted by: empty cells first, then numbers (and days) by value, then texts.
class SortKey {
 public:
  SortKey() = default;
  explicit SortKey(double number) : kind_(1), number_(number) {}
  // `folded` is the text without its case.
  explicit SortKey(std::string folded) : kind_(folded.empty() ? 0 : 2), text_(std::move(folded)) {}

  bool operator<(const SortKey& other) const {
    return std::tie(kind_, number_, text_) < std::tie(other.kind_, other.number_, other.text_);
  }

 private:
  int kind_ = 0;
  double number_ = 0;
  std::string text_;
};

// The rows 0 to count - 1 in the order of their keys; equal ones keep their own order.
template <typename KeyOf>
[[nodiscard]] std::vector<std::size_t> SortedRows(std::size_t count, const SortState& sort,
                                                  const KeyOf& keyOf) {
  std::vector<std::size_t> order(count);
  std::iota(order.begin(), order.end(), std::size_t{0});
  if (sort.column < 0) return order;
  std::vector<SortKey> keys;
  keys.reserve(count);
  for (std::size_t row = 0; row < count; ++row) keys.push_back(keyOf(row));
  std::stable_sort(order.begin(), order.end(), [&](std::size_t first, std::size_t second) {
    return sort.isDescending ? keys[second] < keys[first] : keys[first] < keys[second];
  });
  return order;
}

}  // namespace corvanta::inline controls
