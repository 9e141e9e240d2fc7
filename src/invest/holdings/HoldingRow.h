#pragma once

#include "ledger/investments/InvestmentRecord.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline invest {

// A row of an investment as it counts in a holding. Amounts in the account's currency, `amount`
// signed: money into the account positive.
struct HoldingRow {
  std::int64_t transactionId = 0;
  std::int64_t accountId = 0;
  std::int64_t payeeId = 0;  // the investment
  int action = 0;            // of InvestAction; 0 for a row that is none of them
  Date day;
  double shares = 0;
  double price = 0;
  double commission = 0;
  double dividend = 0;
  double amount = 0;

  [[nodiscard]] bool Is(InvestAction what) const { return action == static_cast<int>(what); }
  // By how many units the holding changes: fewer for sales and removals alone.
  [[nodiscard]] double Units() const {
    return Is(InvestAction::Sell) || Is(InvestAction::RemoveShares) ? -shares : shares;
  }
  // What the units of a purchase, of a reinvestment, or of an addition at a price have cost.
  [[nodiscard]] double Cost() const;
  // What a sale has brought.
  [[nodiscard]] double Proceeds() const;
  // What was paid out, or reinvested, as a dividend; commission taken off what was paid out.
  [[nodiscard]] double DividendPaid() const;
  // What went into the holding from outside, less what came out: money, and units at the price
  // that the row says.
  [[nodiscard]] double PaidIn() const;
};

}  // namespace corvanta::inline invest
