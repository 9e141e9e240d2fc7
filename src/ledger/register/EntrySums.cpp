#include "ledger/register/EntrySums.h"

#include "ledger/reference/CategoryKeys.h"
#include "store/datafile/schema/KeptSums.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <string>
#include <unordered_set>
#include <utility>

namespace corvanta::inline ledger {
namespace {

bool HasKeptSums(const Connection& store) {
  return store.Table(kEntrySums) != nullptr && store.Table(kCategoryUse) != nullptr;
}

void Add(EntrySums& sums, const EntrySums& more) {
  sums.count += more.count;
  sums.total += more.total;
  sums.paidIn += more.paidIn;
  sums.paidOut += more.paidOut;
}

std::string MonthOf(Date day) {
  constexpr std::size_t kYearAndMonth = 7;
  return day.ToIso().substr(0, kYearAndMonth);
}

Date FirstOfMonth(Date day) {
  return day.AddDays(1 - day.Day());
}

// What the file keeps of the accounts, as far as that is all there is to say of them.
struct KeptByAccount {
  SumsByAccount sums;
  std::unordered_set<std::int64_t> toAddUp;  // the others
};

// `account` is a condition on AccountID that ends with " AND ", or empty; `months` one on
// YearMonth.
KeptByAccount ReadKept(Connection& store, const std::string& account, const StatusFilter& filter,
                       const std::string& months) {
  KeptByAccount kept;
  {
    Recordset gone = store.OpenRecordset(
        "Select DISTINCT U.AccountID from own_KeptCategories U LEFT JOIN tblCategory C ON "
        "U.CategoryID = C.CategoryID WHERE " +
        account + "C.CategoryID IS NULL");
    for (; !gone.Eof(); gone.MoveNext()) kept.toAddUp.insert(gone.Int(0));
  }
  Recordset rows = store.OpenRecordset(
      "Select U.AccountID, SUM(U.Entries), SUM(U.Odd), SUM(U.Total), SUM(U.PaidIn) from "
      "own_KeptSums U WHERE " +
      account + filter.Clause() + months + "U.Entries <> 0 Group by U.AccountID");
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto units = [&](std::int64_t number) {
      return static_cast<double>(number) / static_cast<double>(kSumUnits);
    };
    if (rows.Int(2) != 0) kept.toAddUp.insert(rows.Int(0));
    kept.sums[rows.Int(0)] = {rows.Int(1), units(rows.Int(3)), units(rows.Int(4)),
                              units(rows.Int(3) - rows.Int(4))};
  }
  return kept;
}

// The months before that of the last day; entries without a day are before no day.
std::string MonthsBefore(Date day) {
  return "U.YearMonth < " + SqlText(MonthOf(day)) + " AND U.YearMonth <> " + SqlText(kNoMonth) +
         " AND ";
}

// All accounts in one pass: a statement per account would read the transactions as many times as
// there are accounts. Whole entries are asked for in a form that does not lead the engine to the
// index of split lines, where nearly every row is found: so it reads the sums in one pass. They are
// added here, which takes a third of the time that grouping and joining the categories takes.
SumsByAccount AddUpAll(Connection& store, const TreeOptions& options) {
  const std::string end = options.end ? "T.[Date] <= " + SqlEndOf(*options.end) + " AND " : "";
  CategoryKeys categories(store);
  SumsByAccount all;
  EntrySums* sums = nullptr;
  std::int64_t account = 0;
  Recordset::Visit(store,
                   "Select T.AccountID, T.CategoryID, T.[Amount] from tblTransactions T WHERE " +
                       options.filter.Clause() + end + "NOT (T.AllocatedItem <> 0)",
                   [&](const VisitedRow& row) {
                     if (!categories.Has(row.Int(1))) return;
                     // The rows of an account mostly stand together.
                     if (sums == nullptr || account != row.Int(0)) {
                       account = row.Int(0);
                       sums = &all[account];
                     }
                     const double amount = row.Double(2);
                     ++sums->count;
                     sums->total += amount;
                     (amount > 0 ? sums->paidIn : sums->paidOut) += amount;
                   });
  return all;
}

// Of the last month the days up to the end, of every account.
void AddLastMonth(Connection& store, const TreeOptions& options, SumsByAccount& all) {
  std::vector<std::int64_t> accounts;
  {
    Recordset rows = store.OpenRecordset("Select DISTINCT AccountID from own_KeptSums");
    for (; !rows.Eof(); rows.MoveNext()) accounts.push_back(rows.Int(0));
  }
  for (const std::int64_t account : accounts) {
    const EntrySums last =
        AddUp(store, account, options.filter, FirstOfMonth(*options.end), options.end);
    if (last.count > 0) Add(all[account], last);
  }
}

}  // namespace

EntrySums AddUp(Connection& store, std::int64_t accountId, const StatusFilter& filter,
                const std::optional<Date>& from, const std::optional<Date>& to) {
  std::string days;
  if (from) days += "t.[Date] >= " + SqlDate(*from) + " AND ";
  if (to) days += "t.[Date] <= " + SqlEndOf(*to) + " AND ";
  const Recordset row = store.OpenRecordset(
      "Select Count(*), Sum(t.Amount), SUM(iif(t.Amount > 0,t.Amount,0)), "
      "SUM(iif(t.Amount < 0,t.Amount,0)) from tblTransactions t INNER JOIN tblCategory c ON "
      "t.CategoryID = c.CategoryID Where " +
      filter.Clause() + days + "t.AllocatedItem = 0 AND t.AccountID = " + SqlNumber(accountId));
  if (row.Eof()) return {};
  return {row.Int(0), row.Double(1), row.Double(2), row.Double(3)};
}

// Whole months are kept; of the first and the last one the days are added up.
EntrySums ReadSums(Connection& store, std::int64_t accountId, const StatusFilter& filter,
                   const std::optional<Date>& from, const std::optional<Date>& to) {
  if (!HasKeptSums(store) || (from && to && MonthOf(*from) >= MonthOf(*to))) {
    return AddUp(store, accountId, filter, from, to);
  }
  const std::string account = "U.AccountID = " + SqlNumber(accountId) + " AND ";
  std::string months = to ? MonthsBefore(*to) : std::string();
  // A month's name is greater than the sign for none.
  if (from) months += "U.YearMonth > " + SqlText(MonthOf(*from)) + " AND ";
  KeptByAccount kept = ReadKept(store, account, filter, months);
  if (!kept.toAddUp.empty()) return AddUp(store, accountId, filter, from, to);
  EntrySums sums = kept.sums[accountId];
  if (from) {
    const Date end = FirstOfMonth(*from).AddMonths(1).AddDays(-1);
    Add(sums, AddUp(store, accountId, filter, from, end));
  }
  if (to) Add(sums, AddUp(store, accountId, filter, FirstOfMonth(*to), to));
  return sums;
}

SumsByAccount ReadAllSums(Connection& store, const TreeOptions& options) {
  if (!HasKeptSums(store)) return AddUpAll(store, options);
  KeptByAccount kept =
      ReadKept(store, "", options.filter, options.end ? MonthsBefore(*options.end) : std::string());
  if (options.end) AddLastMonth(store, options, kept.sums);
  for (const std::int64_t account : kept.toAddUp) {
    kept.sums[account] = AddUp(store, account, options.filter, std::nullopt, options.end);
  }
  return std::move(kept.sums);
}

std::int64_t UnclearedCount(Connection& store, std::int64_t accountId) {
  const bool isKept = HasKeptSums(store);
  return store
      .QueryValue((isKept ? "Select SUM(Entries) From own_KeptSums Where "
                          : "Select Count(*) as RecCount From tblTransactions "
                            "Where AllocatedItem = 0 AND ") +
                  ("Bankchk = 0 AND AccountID =" + SqlNumber(accountId)))
      .Int();
}

}  // namespace corvanta::inline ledger
