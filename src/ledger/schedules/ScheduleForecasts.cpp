#include "ledger/schedules/ScheduleForecasts.h"

#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/schedules/OccurrenceWriter.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleChange.h"
#include "ledger/schedules/ScheduleRows.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline ledger {
namespace {

bool IsUncleared(const TransactionDetails& row) {
  return row.status.bankChk == 0 && row.status.bankRec == 0;
}

// A posted amount was rounded to the currency, which the schedule's own may not be.
bool IsSameIn(std::string_view currency, double first, double second) {
  return RoundToCurrency(first, currency) == RoundToCurrency(second, currency);
}

bool IsAsPosted(const TransactionDetails& row, const ScheduleDetails& schedule) {
  return IsUncleared(row) && row.accountId == schedule.accountId &&
         row.categoryId == schedule.categoryId && row.paymentId == schedule.paymentId &&
         row.payeeId == schedule.payeeId &&
         IsSameIn(schedule.currency, row.amount, schedule.amount) &&
         row.reference == schedule.reference && row.description == schedule.description &&
         row.scheduleDate && row.date == schedule.days.BookedOn(*row.scheduleDate) &&
         row.twinAccountId == schedule.transferAccountId;
}

// Of the other half of a row that is. What came in for it in another currency is as it may be.
bool IsAsPosted(const TransactionDetails& twin, const TransactionDetails& row,
                std::int64_t category) {
  return IsUncleared(twin) && twin.date == row.date && twin.paymentId == row.paymentId &&
         twin.payeeId == row.payeeId && twin.reference == row.reference &&
         twin.description == row.description && (category == 0 || twin.categoryId == category) &&
         (twin.currency != row.currency || twin.amount == -row.amount);
}

// Whether files or keywords belong to the row; never to one with the key 0.
bool IsLinked(Connection& store, std::int64_t transactionId) {
  if (transactionId == 0) return false;
  for (const char* table : {"tblAttachments", "tblKeywordLink"}) {
    const Value links = store.QueryValue("Select Count(*) from " + std::string(table) +
                                         " Where TransactionID = " + SqlNumber(transactionId));
    if (links.Int() != 0) return true;
  }
  return false;
}

// No pass would post it again.
bool IsBehindStart(Date due, const ScheduleRecord& schedule) {
  return due < schedule.dateFrom || schedule.noTimes < 0;
}

template <typename Rows, typename Line>
void AddLines(const Rows& rows, std::string_view currency, std::vector<Line>& lines) {
  PartsInCurrency parts{std::string(currency)};
  for (const auto& line : rows) {
    lines.emplace_back(line.categoryId, parts.Next(line.amount), line.reference, line.description);
  }
  std::ranges::sort(lines);
}

}  // namespace

ScheduleForecasts::ScheduleForecasts(clsCorvanta& ledger, ScheduleDetails former,
                                     const Platform& platform)
    : ledger_(ledger), former_(std::move(former)), lines_(LinesOf(former_.scheduleId)) {
  const Date today = platform.clock.Today();
  {
    Recordset rows = ledger_.Store().OpenRecordset(
        "Select TransactionID, ScheduleDate, [Date] from tblTransactions "
        "Where NOT (AllocatedItem <> 0) AND BankSch = " +
        SqlNumber(former_.scheduleId) + " AND NOT IsNull(ScheduleDate) Order by ScheduleDate");
    for (; !rows.Eof(); rows.MoveNext()) {
      const auto due = rows.Day(1);
      const auto date = rows.Day(2);
      if (due) rows_.push_back({rows.Int(0), *due, date && *date > today});
    }
  }
  const std::int64_t twinCategory =
      former_.IsTransfer() ? ledger_.Categories().FindCategory("Credit", "") : 0;
  for (Row& row : rows_) row.isForecast = row.isForecast && IsUntouched(row, twinCategory);
}

std::vector<ScheduleForecasts::Line> ScheduleForecasts::LinesOf(std::int64_t scheduleId) {
  std::vector<Line> lines;
  AddLines(ledger_.Schedules().ScheduleLines(scheduleId), former_.currency, lines);
  return lines;
}

bool ScheduleForecasts::IsUntouched(Row& row, std::int64_t twinCategory) {
  const std::int64_t key = row.transactionId;
  const auto stored = ledger_.Transactions().ReadTransaction(key);
  if (!stored || !IsAsPosted(*stored, former_)) return false;
  std::vector<Line> lines;
  AddLines(ledger_.Transactions().SplitLines(key), former_.currency, lines);
  if (lines != lines_) return false;
  row.amount = stored->amount;
  if (stored->transferId != 0) {
    const auto twin = ledger_.Transactions().ReadTransaction(stored->transferId);
    if (!twin || !IsAsPosted(*twin, *stored, twinCategory)) return false;
    row.otherAmount = twin->amount;
  }
  Connection& store = ledger_.Store();
  return !IsLinked(store, key) && !IsLinked(store, stored->transferId) &&
         !ledger_.Transactions().ReachesClosedAccount({&key, 1});
}

// What a person posted ahead stays posted; what the pass posted is there as long as it would be.
bool ScheduleForecasts::IsMadeNow(Date formerDue, Date due, const ScheduleDetails& now) const {
  const auto& former = former_.automaticUntil;
  const bool isOfPass = former && former_.days.BookedOn(formerDue) <= *former;
  return !isOfPass || IsBehindStart(due, now) ||
         (now.automaticUntil && now.days.BookedOn(due) <= *now.automaticUntil);
}

bool ScheduleForecasts::SaysTheSame(const ScheduleDetails& now) {
  return now.accountId == former_.accountId && now.categoryId == former_.categoryId &&
         now.paymentId == former_.paymentId && now.payeeId == former_.payeeId &&
         now.transferAccountId == former_.transferAccountId && now.amount == former_.amount &&
         now.reference == former_.reference && now.description == former_.description &&
         now.days.weekend == former_.days.weekend && LinesOf(now.scheduleId) == lines_;
}

// In another currency at the rate of the row itself; nullopt where it has none.
std::optional<double> ScheduleForecasts::OtherAmount(const Row& row,
                                                     const ScheduleDetails& now) const {
  if (!now.IsTransfer()) return 0;
  if (!now.NeedsRate()) return -RoundToCurrency(now.amount, now.currency);
  const bool isSamePair =
      now.currency == former_.currency && now.transferCurrency == former_.transferCurrency;
  if (!isSamePair || row.amount == 0) return std::nullopt;
  if (now.amount == row.amount) return row.otherAmount;
  if (row.otherAmount == 0) return std::nullopt;  // rounded to nothing, it says nothing of the rate
  return RoundToCurrency(now.amount / row.amount * row.otherAmount, now.transferCurrency);
}

void ScheduleForecasts::SetDue(const Row& row, std::optional<Date> due, bool keepsDates) {
  if (due == row.due) return;
  const std::string key = " Where TransactionID = " + SqlNumber(row.transactionId);
  if (due) {
    ledger_.Store().Execute("Update tblTransactions Set ScheduleDate = " + SqlDate(*due) + key);
  } else if (!keepsDates) {
    // It would stand for whatever payment falls on its day by chance.
    ledger_.Schedules().DetachFromSchedule(row.transactionId);
  }
}

void ScheduleForecasts::Follow() {
  PlanChange none;
  none.plan = PlanOf(former_);
  Follow(none);
}

void ScheduleForecasts::Follow(const PlanChange& change) {
  const auto now = ledger_.Schedules().ReadSchedule(former_.scheduleId);
  if (!now || rows_.empty()) return;
  const bool saysTheSame = SaysTheSame(*now);
  OccurrenceWriter writer(ledger_, *now);
  for (const Row& row : rows_) {
    const auto due = change.NewDueOf(row.due);
    if (!row.isForecast) {
      SetDue(row, due, change.keepsDates);
      continue;
    }
    const bool isMade = due && IsMadeNow(row.due, *due, *now);
    if (isMade && (!HasOpenAccounts(*now) || (due == row.due && saysTheSame))) continue;
    const auto other = OtherAmount(row, *now);
    if (isMade && !other && IsBehindStart(*due, *now)) continue;
    ledger_.Transactions().DeleteTransaction(row.transactionId);
    if (isMade && other) writer.Write(*due, *other);
  }
}

void ScheduleForecasts::Remove() {
  for (const Row& row : rows_) {
    if (row.isForecast) ledger_.Transactions().DeleteTransaction(row.transactionId);
  }
}

}  // namespace corvanta::inline ledger
