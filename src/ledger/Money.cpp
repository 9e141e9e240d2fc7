#include "ledger/Money.h"

#include <cmath>

namespace corvanta {

double RoundMoney(double amount) {
  constexpr double kUnits = 1e6;
  constexpr double kExact = 9007199254740992.0;  // 2^53: whole numbers are exact up to here
  const double scaled = amount * kUnits;
  if (!(std::fabs(scaled) < kExact)) return amount;
  return std::round(scaled) / kUnits + 0.0;
}

}  // namespace corvanta
