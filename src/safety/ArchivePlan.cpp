#include "safety/ArchivePlan.h"

#include "invest/holdings/CostBasis.h"
#include "invest/holdings/Holdings.h"
#include "invest/holdings/HoldingsReader.h"
#include "ledger/Money.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleStart.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace corvanta::inline safety {
namespace {

struct Entry {
  std::int64_t accountId = 0;
  std::int64_t twin = 0;  // the other half of a transfer
  double amount = 0;
  std::int64_t scheduleId = 0;
  std::optional<Date> due;  // of the payment that the schedule counts it for
};

using Entries = std::unordered_map<std::int64_t, Entry>;
using Holding = std::pair<std::int64_t, std::int64_t>;  // account and investment

// The rows that go, from which those are taken out that have to stay, until none is left that would
// tear something apart.
class Choice {
 public:
  Choice(const ArchiveForm& form, clsCorvanta& ledger, Platform& platform)
      : form_(form), ledger_(ledger), method_(ChosenCostMethod(platform.registry)) {}

  ArchivePlan Make() {
    ReadAccounts();
    ReadEntries();
    ReadHoldings();
    for (std::size_t before = entries_.size() + 1; before != entries_.size();) {
      before = entries_.size();
      KeepHoldings();
      KeepScheduled();
      KeepTransfers();
    }
    CarryHoldings();
    Count();
    return std::move(plan_);
  }

 private:
  void ReadAccounts();
  void ReadEntries();
  void ReadHoldings();
  void KeepHoldings();
  void KeepScheduled();
  void KeepTransfers();
  void CarryHoldings();
  void Count();
  [[nodiscard]] bool CanBeCarried(const Holding& holding, const std::vector<HoldingRow>& rows);
  [[nodiscard]] CostBasis BasisOf(const std::vector<HoldingRow>& rows) const;

  const ArchiveForm& form_;
  clsCorvanta& ledger_;
  CostMethod method_;
  ArchivePlan plan_;
  std::map<std::int64_t, ArchivedAccount> accounts_;
  Entries entries_;
  std::map<Holding, std::vector<HoldingRow>> holdings_;  // their rows before the day
};

void Choice::ReadAccounts() {
  for (const AccountRow& row : ledger_.Accounts().Accounts(StatusFilter{}, true)) {
    if (std::ranges::find(form_.accounts, row.accountId) == form_.accounts.end()) continue;
    accounts_[row.accountId] = {row.accountId,
                                row.account,
                                row.currency,
                                row.closed,
                                row.openingBalance,
                                row.openingBalance,
                                0,
                                0};
  }
}

// Rows of a category that is gone count in no balance, and stay where they are.
void Choice::ReadEntries() {
  std::unordered_set<std::int64_t> categories;
  Recordset::Visit(ledger_.Store(), "Select CategoryID from tblCategory",
                   [&](const VisitedRow& row) { categories.insert(row.Int(0)); });
  Recordset::Visit(
      ledger_.Store(),
      "Select TransactionID, AccountID, AllocatedItem, CategoryID, TransferID, [Amount], BankRec, "
      "BankSch, [ScheduleDate] from tblTransactions WHERE [Date] < " +
          SqlDate(*form_.before),
      [&](const VisitedRow& row) {
        const auto account = accounts_.find(row.Int(1));
        if (account == accounts_.end() || row.Int(2) != 0) return;
        ++account->second.stay;
        if (!categories.contains(row.Int(3))) return;
        if (form_.onlyReconciled && row.Int(6) == 0) {
          ++plan_.unreconciled;
          return;
        }
        const auto due = Date::FromIso(row.Text(8).substr(0, 10));
        entries_[row.Int(0)] = {row.Int(1), row.Int(4), row.Double(5), row.Int(7), due};
      });
}

void Choice::ReadHoldings() {
  for (const auto& [accountId, account] : accounts_) {
    for (const HoldingRow& row : ReadHoldingRows(ledger_.Store(), accountId)) {
      if (row.day < *form_.before) holdings_[{accountId, row.payeeId}].push_back(row);
    }
  }
}

CostBasis Choice::BasisOf(const std::vector<HoldingRow>& rows) const {
  CostBasis basis(method_);
  for (const HoldingRow& row : rows) basis.Add(row);
  return basis;
}

// Units that are owed cannot be said by a row without money, and a closed account takes no row.
bool Choice::CanBeCarried(const Holding& holding, const std::vector<HoldingRow>& rows) {
  const auto goes = [this](const HoldingRow& row) { return entries_.contains(row.transactionId); };
  if (!std::ranges::all_of(rows, goes)) return false;
  const CostBasis basis = BasisOf(rows);
  const bool isOwed = std::ranges::any_of(
      basis.Lots(), [](const CostBasis::Lot& lot) { return lot.units < 0 || lot.cost < 0; });
  return !isOwed && (basis.Units() == 0 || !accounts_.at(holding.first).closed);
}

void Choice::KeepHoldings() {
  std::erase_if(holdings_, [this](const auto& holding) {
    if (CanBeCarried(holding.first, holding.second)) return false;
    for (const HoldingRow& row : holding.second) plan_.held += entries_.erase(row.transactionId);
    return true;
  });
}

// A payment without its row would come due again: the schedule has to start behind it, which it
// cannot where one before it is not made.
void Choice::KeepScheduled() {
  std::map<std::int64_t, std::set<Date>> days;
  for (const auto& [key, entry] : entries_) {
    if (entry.scheduleId != 0 && entry.due) days[entry.scheduleId].insert(*entry.due);
  }
  plan_.schedules.clear();
  std::map<std::int64_t, std::set<Date>> free;
  for (const auto& [scheduleId, due] : days) {
    const auto schedule = ledger_.Schedules().ReadSchedule(scheduleId);
    std::set<Date>& gone = free[scheduleId];
    if (!schedule || schedule->noTimes < 0) {
      gone = due;
      continue;
    }
    const std::vector<Date> passed =
        FirstPayments(*schedule, [&](Date day) { return due.contains(day); });
    gone.insert(due.begin(), due.lower_bound(schedule->dateFrom));
    gone.insert(passed.begin(), passed.end());
    if (!passed.empty()) plan_.schedules.push_back({*schedule, passed});
  }
  plan_.scheduled += std::erase_if(entries_, [&](const auto& each) {
    const Entry& entry = each.second;
    return entry.scheduleId != 0 && entry.due && !free[entry.scheduleId].contains(*entry.due);
  });
}

void Choice::KeepTransfers() {
  std::vector<std::int64_t> torn;
  for (const auto& [key, entry] : entries_) {
    if (entry.twin == 0) continue;
    const auto other = entries_.find(entry.twin);
    if (other == entries_.end() || other->second.twin != key) torn.push_back(key);
  }
  for (const std::int64_t key : torn) plan_.transfers += entries_.erase(key);
}

void Choice::CarryHoldings() {
  for (const auto& [holding, rows] : holdings_) {
    const CostBasis basis = BasisOf(rows);
    for (const CostBasis::Lot& lot : basis.Lots()) {
      InvestmentTransaction row;
      row.accountId = holding.first;
      row.payeeId = holding.second;
      row.action = InvestAction::AddShares;
      row.shares = lot.units;
      row.price = lot.cost / lot.units;
      row.date = form_.before->AddDays(-1);
      row.description = "Carried over from the archive";
      row.status = TransactionStatus::Reconciled;
      plan_.carried.push_back(row);
    }
  }
  // Units without a cost would be spread over the lots before them.
  std::ranges::stable_partition(plan_.carried, [](const auto& row) { return row.price == 0; });
}

void Choice::Count() {
  std::map<std::int64_t, double> sums;
  for (const auto& [key, entry] : entries_) {
    plan_.keys.push_back(key);
    sums[entry.accountId] += entry.amount;
    ArchivedAccount& account = accounts_.at(entry.accountId);
    ++account.rows;
    --account.stay;
  }
  std::ranges::sort(plan_.keys);
  for (auto& [key, account] : accounts_) {
    account.newOpening = RoundMoney(account.opening + sums[key]);
    plan_.accounts.push_back(std::move(account));
  }
  std::ranges::sort(plan_.accounts, {}, &ArchivedAccount::account);
}

}  // namespace

ArchivePlan PlanArchive(const ArchiveForm& form, clsCorvanta& ledger, Platform& platform) {
  return Choice(form, ledger, platform).Make();
}

}  // namespace corvanta::inline safety
