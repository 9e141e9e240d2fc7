#pragma once

#include "ledger/register/StatusFilter.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline ledger {

// What an account's rows come to, as far as they are counted; in the account's currency.
struct EntrySums {
  std::int64_t count = 0;
  double total = 0;
  double paidIn = 0;
  double paidOut = 0;  // negative or 0
};

// An account as the account tree and the account list show it.
struct AccountRow {
  std::int64_t accountId = 0;
  std::string account;
  std::string accountNo;
  std::int64_t accountTypeId = 0;
  std::string accountType;  // the group's name
  std::int64_t currencyId = 0;
  std::string currency;  // the code; empty for an unknown currency
  std::string bank;
  std::string description;
  double openingBalance = 0;  // in the account's currency, as balance
  double balance = 0;
  EntrySums sums;  // of the rows that the balance counts
  bool closed = false;
};

// What the account tree counts.
struct TreeOptions {
  StatusFilter filter;
  bool includeClosed = true;
  std::optional<Date> end;  // rows after this day do not count
  bool valuation = false;   // adds the value of the investments held
};

}  // namespace corvanta::inline ledger
