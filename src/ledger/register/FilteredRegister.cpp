#include "ledger/register/FilteredRegister.h"

#include "ledger/Money.h"
#include "ledger/register/RegisterRows.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace corvanta::inline ledger {
namespace {

bool IsOneCurrency(const std::vector<FilteredAccount>& accounts) {
  return std::ranges::adjacent_find(accounts, std::ranges::not_equal_to(),
                                    &FilteredAccount::currencyId) == accounts.end();
}

PeriodTotals TotalsOf(const std::vector<RegisterEntry>& entries) {
  double paidIn = 0;
  double paidOut = 0;
  for (const RegisterEntry& entry : entries) (entry.amount < 0 ? paidOut : paidIn) += entry.amount;
  PeriodTotals totals;
  totals.paidIn = RoundMoney(paidIn);
  totals.paidOut = RoundMoney(paidOut);
  totals.thisPeriod = RoundMoney(paidIn + paidOut);
  return totals;
}

}  // namespace

std::string AccountCondition(const RegisterScope& scope) {
  std::string condition = " AND T.AccountID IN (" + JoinKeys(scope.Accounts()) + ")";
  if (scope.period) {
    condition += " AND T.[Date] Between " + SqlDate(scope.period->from) + " AND " +
                 SqlEndOf(scope.period->to);
  }
  return condition;
}

std::shared_ptr<RegisterRows> FilterRegister(
    Connection& store, const RegisterScope& scope, const std::vector<FilteredAccount>& accounts,
    const std::vector<std::shared_ptr<RegisterRows>>& whole) {
  RowFilter filter = scope.rows;
  // The registers are of these accounts: with nothing else to ask for, all of their rows are
  // chosen.
  filter.SetKeys(FilterKind::Account, {});
  const bool takesAll = filter.IsEmpty();
  const KeySet keys = takesAll ? KeySet() : FilteredKeys(store, filter, AccountCondition(scope));
  std::vector<RegisterEntry> entries;
  std::size_t among = 0;
  double balance = 0;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    RegisterRows& rows = *whole[i];
    rows.ReadAll();
    among += rows.Count();
    balance += rows.Totals().balance.value_or(accounts.at(i).openingBalance);
    std::vector<RegisterEntry> own;
    std::ranges::copy_if(rows.Entries(), std::back_inserter(own), [&](const RegisterEntry& entry) {
      return takesAll || keys.Has(entry.transactionId);
    });
    if (i == 0) {
      entries = std::move(own);
      continue;
    }
    std::vector<RegisterEntry> merged;
    merged.reserve(entries.size() + own.size());
    std::ranges::merge(entries, own, std::back_inserter(merged), std::ranges::greater(),
                       &RegisterEntry::date, &RegisterEntry::date);
    entries = std::move(merged);
  }
  PeriodTotals totals;
  if (IsOneCurrency(accounts)) {
    totals = TotalsOf(entries);
    totals.balance = RoundMoney(balance);
  }
  return std::make_shared<RegisterRows>(store, scope, std::move(entries), totals, among);
}

}  // namespace corvanta::inline ledger
