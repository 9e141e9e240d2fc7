#pragma once

namespace corvanta {

// Amounts are doubles that were typed as decimal numbers. This takes the binary noise of adding
// them off a sum again: the nearest number with six decimals, more than any currency has; never -0.
// Sums too large to hold six decimals are returned as they are.
[[nodiscard]] double RoundMoney(double amount);

}  // namespace corvanta
