#pragma once

#include "ledger/TransactionStatus.h"
#include "platform/Date.h"

#include <cstdint>
#include <string>

namespace corvanta::inline ledger {

// What an investment transaction does; the numbers are those of tblTransactions.Action.
enum class InvestAction {
  Buy = 1,
  Sell = 2,
  Dividend = 3,
  ReinvestDividend = 4,
  AddShares = 5,
  RemoveShares = 6
};

// An investment transaction as it is saved. Amounts in the account's currency, without the sign
// that the action gives them.
struct InvestmentTransaction {
  std::int64_t transactionId = 0;  // 0 for a new row
  std::int64_t accountId = 0;
  std::int64_t payeeId = 0;  // the investment
  InvestAction action = InvestAction::Buy;
  double dividend = 0;
  double shares = 0;
  double price = 0;  // of one share
  double commission = 0;
  double total = 0;  // money out of a purchase or removal, money in of anything else
  std::string description;
  Date date;
  TransactionStatus status = TransactionStatus::Uncleared;
};

}  // namespace corvanta::inline ledger
