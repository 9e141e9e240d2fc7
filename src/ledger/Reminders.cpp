#include "ledger/Reminders.h"

#include "ledger/ScheduleBook.h"
#include "ledger/ScheduleRows.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>

namespace corvanta::inline ledger {
namespace {

Reminder OwnSide(const ScheduleDetails& schedule, Date due) {
  Reminder item;
  item.scheduleId = schedule.scheduleId;
  item.due = due;
  item.date = schedule.days.BookedOn(due);
  item.account = schedule.account;
  item.currency = schedule.currency;
  item.payee = schedule.IsTransfer() ? schedule.transferAccount : schedule.payee;
  item.description = schedule.description;
  item.periodName = schedule.periodName;
  item.amount = schedule.amount;
  item.waitsForRate = schedule.WaitsForRate(due);
  return item;
}

Reminder ReceivingSide(const ScheduleDetails& schedule, Date due) {
  Reminder item = OwnSide(schedule, due);
  item.account = schedule.transferAccount;
  item.payee = schedule.account;
  item.amount = -schedule.amount;
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
  void AddPending() {
    const PostedBySchedule all = PostedOfAll(ledger_.Store());
    const PostedRows none;
    for (const auto& [key, schedule] : schedules_) {
      if (schedule.isFinished) continue;
      const auto found = all.find(key);
      const PostedRows& posted = found == all.end() ? none : found->second;
      for (const Date due : PaymentsBookedUntil(schedule, until_)) {
        if (!posted.Has(due)) AddPending(schedule, due);
      }
    }
  }

  void AddPending(const ScheduleDetails& schedule, Date due) {
    const Date date = schedule.days.BookedOn(due);
    if (date < today_ && !withOverdue_) return;
    auto& group = date < today_ ? list_.overdue : list_.future;
    group.push_back(OwnSide(schedule, due));
    if (schedule.IsTransfer()) group.push_back(ReceivingSide(schedule, due));
    if (date <= today_) ++list_.dueCount;
  }

  // The bank has not shown these yet.
  void AddPosted() {
    constexpr int kWeekend = 2;  // as far as a payment is booked before it is due
    Recordset rows = ledger_.Store().OpenRecordset(
        "Select T.BankSch, T.ScheduleDate, T.TransactionID, T.Amount, A.Account, U.[Currency] "
        "from ((tblTransactions T INNER JOIN tblAccounts A ON A.AccountID = T.AccountID) "
        " INNER JOIN tblSchedule S ON S.ScheduleId = T.BankSch) "
        "LEFT JOIN tblCurrency U ON A.CurrencyId = U.CurrencyID "
        "WHERE NOT (T.AllocatedItem <> 0) AND T.BankChk = 0 AND T.BankSch > 0 AND A.CloseAccount "
        "<> 1 "
        "AND ScheduleDate <= " +
        SqlDate(until_.AddDays(kWeekend)) + " Order By T.ScheduleDate ASC, T.TransactionID");
    std::unordered_map<std::int64_t, std::size_t> oldest;
    for (; !rows.Eof(); rows.MoveNext()) {
      const auto schedule = schedules_.find(rows.Int(0));
      const auto due = rows.Day(1);
      if (schedule == schedules_.end() || !due) continue;
      Reminder item = OwnSide(schedule->second, *due);
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
