#include "ledger/register/Balances.h"

#include "ledger/Money.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/RegisterRows.h"
#include "platform/Locale.h"

namespace corvanta::inline ledger {
namespace {

void AddTotal(std::vector<CurrencyTotal>& totals, const AccountRow& account) {
  for (CurrencyTotal& total : totals) {
    if (total.currencyId != account.currencyId) continue;
    total.total = RoundMoney(total.total + account.balance);
    return;
  }
  totals.push_back({account.currencyId, account.currency, account.balance});
}

}  // namespace

TotalsTexts TextsOf(const PeriodTotals& totals, const Locale& locale) {
  TotalsTexts texts;
  if (totals.thisPeriod)
    texts.thisPeriod = "This Period: " + locale.FormatNumber(*totals.thisPeriod);
  if (totals.balance) texts.balance = "Balance: " + locale.FormatNumber(*totals.balance);
  if (totals.paidIn) texts.paidIn = "Paid In : " + locale.FormatNumber(*totals.paidIn);
  if (totals.paidOut) texts.paidOut = "Paid Out : " + locale.FormatNumber(*totals.paidOut);
  return texts;
}

std::string UnclearedText(std::int64_t count) {
  return "Number of Uncleared records = " + std::to_string(count);
}

std::vector<AccountGroupBalances> ByGroup(const std::vector<AccountRow>& accounts) {
  std::vector<AccountGroupBalances> groups;
  for (const AccountRow& account : accounts) {
    if (groups.empty() || groups.back().accountTypeId != account.accountTypeId) {
      groups.push_back({account.accountTypeId, account.accountType, {}, {}});
    }
    groups.back().accounts.push_back(account);
    AddTotal(groups.back().totals, account);
  }
  return groups;
}

std::vector<CurrencyTotal> TotalsByCurrency(const std::vector<AccountRow>& accounts) {
  std::vector<CurrencyTotal> totals;
  for (const AccountRow& account : accounts) AddTotal(totals, account);
  return totals;
}

std::string AccountCaption(const AccountRow& account) {
  return account.closed ? account.account + " [Closed] " : account.account;
}

std::optional<LowestPoint> LowestAhead(RegisterRows& rows, Date today) {
  rows.ReadBefore(today.AddDays(1));
  std::optional<LowestPoint> lowest;
  Date evening = today;
  for (std::size_t row = rows.Count(); row > rows.FirstRead(); --row) {
    const RegisterEntry& entry = rows.Entry(row - 1);
    if (entry.date <= today) break;
    const bool isEvening = entry.date != evening;
    evening = entry.date;
    // Of days that are alike the first one.
    if (isEvening && (!lowest || entry.balance <= lowest->balance)) {
      lowest = LowestPoint{entry.date, entry.balance};
    }
  }
  return lowest;
}

}  // namespace corvanta::inline ledger
