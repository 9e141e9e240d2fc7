#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace corvanta::inline ledger {

// Amounts are doubles that were typed as decimal numbers. This takes the binary noise of adding
// them off a sum again: the nearest number with six decimals, more than any currency has; never -0.
// Sums above nine billion are too large for six decimals and keep as many as they have room for,
// at least the cents up to ninety thousand billion; larger ones are returned as they are.
[[nodiscard]] double RoundMoney(double amount);

// An amount as an account of that currency (its code) holds it: rounded half away from zero to the
// currency's own decimals, whatever the locale shows.
[[nodiscard]] double RoundToCurrency(double amount, std::string_view currency);
// The same for an amount that replaces `stored`: one that is not changed stays to its last digit.
[[nodiscard]] inline double RoundChanged(double amount, double stored, std::string_view currency) {
  return amount == stored ? amount : RoundToCurrency(amount, currency);
}

// The parts of a whole one after the other, each rounded so that they add up to the whole as it is
// rounded: parts of whole cents stay as they are.
class PartsInCurrency {
 public:
  explicit PartsInCurrency(std::string currency) : currency_(std::move(currency)) {}

  [[nodiscard]] double Next(double part);
  // Of the parts so far.
  [[nodiscard]] double Sum() const { return rounded_; }

 private:
  std::string currency_;
  double whole_ = 0;
  double rounded_ = 0;
};

}  // namespace corvanta::inline ledger
