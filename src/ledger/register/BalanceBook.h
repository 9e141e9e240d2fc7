#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/register/Period.h"
#include "ledger/register/RegisterRow.h"
#include "ledger/register/StatusFilter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {

// The figures under the register, in the account's currency. What no row yields is absent.
struct PeriodTotals {
  std::optional<double> thisPeriod;  // the rows of the period and the opening balance
  std::optional<double> balance;     // all rows up to the period's end and the opening balance
  std::optional<double> paidIn;
  std::optional<double> paidOut;  // negative or 0
};

// What accounts come to, and the register. Amounts are in the account's currency.
class BalanceBook {
 public:
  explicit BalanceBook(LedgerCore& core) : core_(core) {}

  // The register of one account in date order, ties by key. The running balance begins with the
  // opening balance plus the shown rows before the period.
  [[nodiscard]] std::vector<RegisterRow> Register(std::int64_t accountId,
                                                  const StatusFilter& filter,
                                                  const std::optional<Period>& period);
  // The figures under the register (see Balances.h).
  [[nodiscard]] PeriodTotals Totals(std::int64_t accountId, const StatusFilter& filter,
                                    const std::optional<Period>& period);
  // Whole entries of the account that no statement has confirmed, whatever a view shows.
  [[nodiscard]] std::int64_t UnclearedCount(std::int64_t accountId);
  // The sum of the shown rows up to and with that day, without the opening balance.
  [[nodiscard]] double RunningBalance(std::int64_t accountId, const StatusFilter& filter, Date day);
  // The account's balance in the tree; 0 for account 0. Only the options' filter, end and valuation
  // count.
  [[nodiscard]] double AccountBalance(std::int64_t accountId, const TreeOptions& options);
  // Units held times latest price, over the investments in the account; in the currency of prices,
  // which is not converted. `condition` keeps to some of the transactions ("T"); it is SQL that
  // begins with " AND ".
  [[nodiscard]] double HoldingsValue(std::int64_t accountId, const std::string& condition = {});

 private:
  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
