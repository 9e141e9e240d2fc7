// What the chosen rows of a list come to.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

class ChosenTotals {
 public:
  // Rows that come to so much in that currency (its code).
  void Add(double amount, std::string_view currency, std::size_t rows = 1);

  // "3 chosen: -12.50 GBP, 7.00 EUR", the currencies in the order in which they were met; empty for
  // fewer than two rows, which say themselves what they come to.
  [[nodiscard]] std::string Text(const Locale& locale) const;

 private:
  std::size_t rows_ = 0;
  std::vector<std::pair<std::string, double>> sums_;
};

}  // namespace corvanta::inline app
