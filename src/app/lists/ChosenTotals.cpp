#include "app/lists/ChosenTotals.h"

#include "ledger/Money.h"
#include "platform/Locale.h"

#include <algorithm>

namespace corvanta::inline app {

void ChosenTotals::Add(double amount, std::string_view currency, std::size_t rows) {
  rows_ += rows;
  const auto known = std::ranges::find(sums_, currency, &std::pair<std::string, double>::first);
  if (known == sums_.end()) {
    sums_.emplace_back(currency, amount);
  } else {
    known->second += amount;
  }
}

std::string ChosenTotals::Text(const Locale& locale) const {
  if (rows_ < 2) return {};
  std::string text = locale.FormatNumber(static_cast<double>(rows_), 0) + " chosen: ";
  for (const auto& [currency, sum] : sums_) {
    if (&currency != &sums_.front().first) text += ", ";
    text += locale.FormatNumber(RoundMoney(sum));
    if (!currency.empty()) text += ' ' + currency;
  }
  return text;
}

}  // namespace corvanta::inline app
