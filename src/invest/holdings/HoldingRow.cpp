#include "invest/holdings/HoldingRow.h"

#include <algorithm>

namespace corvanta::inline invest {

double HoldingRow::Cost() const {
  const double reckoned = shares * price + commission;
  switch (static_cast<InvestAction>(action)) {
    case InvestAction::Buy:
      // The person may have typed another total than the one reckoned.
      return amount < 0 ? -amount : reckoned;
    case InvestAction::ReinvestDividend:
      return price > 0 ? reckoned : std::max(commission, dividend - amount);
    default:
      return shares * price;
  }
}

double HoldingRow::Proceeds() const {
  return amount > 0 ? amount : shares * price - commission;
}

double HoldingRow::DividendPaid() const {
  if (Is(InvestAction::Dividend)) return amount;
  if (!Is(InvestAction::ReinvestDividend)) return 0;
  // One without an amount is what was bought for it.
  return dividend > 0 ? dividend : Cost();
}

double HoldingRow::PaidIn() const {
  switch (static_cast<InvestAction>(action)) {
    case InvestAction::Sell:
      return -Proceeds();
    case InvestAction::Dividend:
      return shares * price - amount;
    case InvestAction::ReinvestDividend:
      return Cost() - DividendPaid();
    case InvestAction::RemoveShares:
      return -Cost();
    default:
      return Cost();
  }
}

}  // namespace corvanta::inline invest
