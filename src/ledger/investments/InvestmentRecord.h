#pragma once

#include "ledger/transactions/TransactionStatus.h"
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

// An action as a person reads it.
struct InvestActionName {
  InvestAction action;
  const char* name;
};
// All of them, in the order of their codes.
inline constexpr InvestActionName kInvestActions[] = {
    {InvestAction::Buy, "Buy"},
    {InvestAction::Sell, "Sell"},
    {InvestAction::Dividend, "Dividend"},
    {InvestAction::ReinvestDividend, "Reinvest Dividend"},
    {InvestAction::AddShares, "Add Shares"},
    {InvestAction::RemoveShares, "Remove Shares"}};
// The name of a stored code; empty for a code that is none.
[[nodiscard]] constexpr const char* ActionName(std::int64_t code) {
  for (const InvestActionName& each : kInvestActions) {
    if (static_cast<std::int64_t>(each.action) == code) return each.name;
  }
  return "";
}

// Whether the action is booked as money that leaves the account.
[[nodiscard]] constexpr bool TakesCash(InvestAction action) {
  return action == InvestAction::Buy || action == InvestAction::RemoveShares;
}
// What the account's amount becomes of the action's total, which has no sign.
[[nodiscard]] constexpr double SignedAmount(InvestAction action, double total) {
  return TakesCash(action) ? 0 - total : total;
}

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

// An investment transaction as lists show it.
struct InvestmentTransactionRow : InvestmentTransaction {
  std::string account;
  std::string currency;  // of the account, its code
  bool accountClosed = false;
  std::string investment;
  std::string symbol;
  double amount = 0;        // as the account has it, money out negative
  const char* letter = "";  // of the status: "", "C" or "R"
};

// An investment as its editor reads and saves it.
struct InvestmentRecord {
  std::int64_t investmentId = 0;  // 0 for a new one
  std::string investment;
  std::string symbol;                 // by which its source knows it
  std::int64_t currencyId = 0;        // of the account that holds it
  std::int64_t investCurrencyId = 0;  // in which the market quotes it
  std::int64_t dataId = 0;            // its source of quotes
  double conversion = 1;  // times a quote gives the price: 0.01 for quotes in hundredths
  std::string description;

  bool operator==(const InvestmentRecord&) const = default;
};

// An investment with what lists show of it.
struct InvestmentDetails : InvestmentRecord {
  std::string currency;        // code
  std::string investCurrency;  // code; empty for none
};

// Where quotes come from.
struct StockSource {
  std::int64_t dataId = 0;
  std::string name;
  std::string lookUpUrl;  // a page to look symbols up; empty for none
};

}  // namespace corvanta::inline ledger
