#include "ledger/schedules/Reminders.h"

#include "ledger/clsCorvanta.h"
#include "ledger/schedules/ReminderSides.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRows.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace corvanta::inline ledger {
namespace {

constexpr int kWeekend = 2;  // days by which a payment is booked before or after it is due, at most

ReminderSide SideOf(const ScheduleDetails& schedule, bool isReceiving) {
  return {schedule.scheduleId, schedule.dateFrom,    schedule.periodName,        schedule.payee,
          schedule.amount,     schedule.description, schedule.transferAccountId, isReceiving};
}

Reminder ItemOf(const ReminderSide& side, const ScheduleDetails& schedule, Date due) {
  Reminder item;
  item.scheduleId = side.scheduleId;
  item.due = due;
  item.date = schedule.days.BookedOn(due);
  item.account = schedule.account;
  item.currency = schedule.currency;
  item.payee = side.transferAccountId != 0 ? schedule.transferAccount : side.payee;
  item.description = side.description;
  item.periodName = side.period;
  item.amount = side.amount;
  item.waitsForRate = schedule.WaitsForRate(due);
  if (!side.isReceiving) return item;
  item.account = schedule.transferAccount;
  item.payee = schedule.account;
  item.amount = -side.amount;
  item.isReceiving = true;
  // What arrives is known when the rate of that day is.
  item.needsRate = schedule.currency != schedule.transferCurrency;
  return item;
}

class Collection {
 public:
  Collection(clsCorvanta& ledger, Date today, Date until, bool withOverdue)
      : ledger_(ledger), today_(today), until_(std::max(today, until)), withOverdue_(withOverdue) {}

  ReminderList Collect() {
    for (ScheduleDetails& schedule : ledger_.Schedules().Schedules()) {
      if (HasOpenAccounts(schedule)) schedules_.emplace(schedule.scheduleId, std::move(schedule));
    }
    AddPending();
    AddPosted();
    for (auto* group : {&list_.overdue, &list_.future}) {
      std::ranges::sort(*group, {}, [](const Reminder& item) {
        return std::tuple(item.date, item.due, item.scheduleId, item.isReceiving);
      });
    }
    return std::move(list_);
  }

 private:
  // The sides that may have something due. What the statement leaves out for a name that is gone,
  // or a column that an old file never wrote, is due all the same.
  [[nodiscard]] std::vector<ReminderSide> Sides() {
    std::vector<ReminderSide> sides = ReadReminderSides(ledger_.Store(), until_.AddDays(kWeekend));
    std::set<std::pair<std::int64_t, bool>> read;
    for (const ReminderSide& side : sides) read.emplace(side.scheduleId, side.isReceiving);
    for (const auto& [key, schedule] : schedules_) {
      for (const bool isReceiving : {false, true}) {
        const bool isThere = !isReceiving || schedule.IsTransfer();
        if (isThere && !read.contains({key, isReceiving})) {
          sides.push_back(SideOf(schedule, isReceiving));
        }
      }
    }
    return sides;
  }

  void AddPending() {
    const PostedBySchedule all = PostedOfAll(ledger_.Store());
    const PostedRows none;
    for (const ReminderSide& side : Sides()) {
      const auto schedule = schedules_.find(side.scheduleId);
      if (schedule == schedules_.end() || schedule->second.isFinished) continue;
      const auto found = all.find(side.scheduleId);
      const PostedRows& posted = found == all.end() ? none : found->second;
      for (const Date due : PaymentsBookedUntil(schedule->second, until_)) {
        if (!posted.Has(due)) Add(ItemOf(side, schedule->second, due));
      }
    }
  }

  void Add(Reminder item) {
    if (item.date < today_ && !withOverdue_) return;
    if (item.date <= today_ && !item.isReceiving) ++list_.dueCount;
    auto& group = item.date < today_ ? list_.overdue : list_.future;
    group.push_back(std::move(item));
  }

  // The bank has not shown these yet.
  void AddPosted() {
    // Of all accounts at once, by the index of schedules, to which their keys lead: account by
    // account the engine would go through the rows of each.
    const std::string from =
        withOverdue_ ? "" : "AND ScheduleDate >=" + SqlDate(today_.AddDays(-kWeekend));
    Recordset rows = ledger_.Store().OpenRecordset(
        "Select T.ScheduleDate as [MinDate], T.BankSch, T.TransactionID, T.Amount, A.Account, "
        "U.[Currency] "
        "from (tblTransactions T INNER JOIN tblAccounts A ON A.AccountID = T.AccountID) "
        " INNER JOIN tblSchedule S ON S.ScheduleId = T.BankSch "
        "LEFT JOIN tblCurrency U ON A.CurrencyId = U.CurrencyID "
        "WHERE T.AllocatedItem = 0 AND T.BankChk = 0 AND T.BankSch > 0 AND CloseAccount <> 1 " +
        from + " AND ScheduleDate <=" + SqlDate(until_.AddDays(kWeekend)) +
        " Order By T.ScheduleDate ASC, T.TransactionID");
    std::unordered_map<std::int64_t, std::size_t> oldest;
    for (; !rows.Eof(); rows.MoveNext()) {
      const auto due = rows.Day("MinDate");
      const auto schedule = schedules_.find(rows.Int("BankSch"));
      if (schedule == schedules_.end() || !due) continue;
      Reminder item = ItemOf(SideOf(schedule->second, false), schedule->second, *due);
      if ((item.date < today_ && !withOverdue_) || item.date > until_) continue;
      item.waitsForRate = false;
      item.transactionId = rows.Int(2);
      item.amount = rows.Double(3);
      item.account = rows.Text(4);
      item.currency = rows.Text(5);
      item.uncleared = 1;
      if (item.date >= today_) {
        list_.future.push_back(std::move(item));
        continue;
      }
      const auto [place, isOldest] = oldest.emplace(item.scheduleId, list_.overdue.size());
      if (isOldest) {
        list_.overdue.push_back(std::move(item));
      } else {
        ++list_.overdue[place->second].uncleared;
      }
    }
  }

  clsCorvanta& ledger_;
  Date today_;
  Date until_;
  bool withOverdue_;
  std::unordered_map<std::int64_t, ScheduleDetails> schedules_;
  ReminderList list_;
};

}  // namespace

ReminderList Reminders(clsCorvanta& ledger, Date today, std::optional<Date> until,
                       bool withOverdue) {
  return Collection(ledger, today, until.value_or(today), withOverdue).Collect();
}

}  // namespace corvanta::inline ledger
