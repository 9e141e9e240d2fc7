// The sums that the window shows of an account, and of all accounts together.
#pragma once

#include "ledger/accounts/AccountRow.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/EntrySums.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline ledger {

class RegisterRows;

// The labels as they are shown; the two that tell what was paid have a blank before the colon once
// they carry a figure.
struct TotalsTexts {
  std::string thisPeriod = "This Period: ";
  std::string balance = "Balance: ";
  std::string paidIn = "Paid In: ";
  std::string paidOut = "Paid Out: ";
};
[[nodiscard]] TotalsTexts TextsOf(const PeriodTotals& totals, const Locale& locale);
// "Number of Uncleared records = 3"
[[nodiscard]] std::string UnclearedText(std::int64_t count);

// The day after today on whose evening the balance is lowest, as far as rows stand ahead.
struct LowestPoint {
  Date day;
  double balance = 0;  // in the account's currency
};
// nullopt when no row is after today. Throws StoreError.
[[nodiscard]] std::optional<LowestPoint> LowestAhead(RegisterRows& rows, Date today);

struct CurrencyTotal {
  std::int64_t currencyId = 0;
  std::string currency;
  double total = 0;

  [[nodiscard]] std::string Caption() const { return "Total (" + currency + ")"; }
};

struct AccountGroupBalances {
  std::int64_t accountTypeId = 0;
  std::string accountType;
  std::vector<AccountRow> accounts;
  std::vector<CurrencyTotal> totals;  // in the order in which the currencies occur
};

// The rows of Accounts() by group, which stand together in it.
[[nodiscard]] std::vector<AccountGroupBalances> ByGroup(const std::vector<AccountRow>& accounts);
// One total for every currency of the accounts, in the order in which they occur.
[[nodiscard]] std::vector<CurrencyTotal> TotalsByCurrency(const std::vector<AccountRow>& accounts);
// The account's name as lists show it: a closed one carries " [Closed] ".
[[nodiscard]] std::string AccountCaption(const AccountRow& account);

}  // namespace corvanta::inline ledger
