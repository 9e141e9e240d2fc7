#include "ledger/Money.h"

#include "platform/CurrencyDecimals.h"
#include "platform/Decimal.h"

#include <cmath>

namespace corvanta::inline ledger {

double RoundMoney(double amount) {
  constexpr double kExact = 9007199254740992.0;  // 2^53: whole numbers are exact up to here
  for (const double units : {1e6, 1e4, 1e3, 1e2}) {
    const double scaled = amount * units;
    if (std::fabs(scaled) < kExact) return std::round(scaled) / units + 0.0;
  }
  return amount;
}

double RoundToCurrency(double amount, std::string_view currency) {
  return Rounded(amount, CurrencyDecimals(currency));
}

double PartsInCurrency::Next(double part) {
  const double before = rounded_;
  whole_ = RoundMoney(whole_ + part);
  rounded_ = RoundToCurrency(whole_, currency_);
  return RoundMoney(rounded_ - before);
}

}  // namespace corvanta::inline ledger
