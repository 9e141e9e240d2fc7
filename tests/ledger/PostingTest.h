#pragma once

#include "ledger/RecordsTest.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/register/Period.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/SchedulePosting.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Settings.h"
#include "support/AgreeingPlatform.h"
#include "support/Contents.h"
#include "support/ScriptedRates.h"

#include <string>
#include <vector>

namespace corvanta {

inline Date Day(const char* text) {
  return *Date::FromIso(text);
}

// A ledger on 21 November 2026 with schedules to post, a month ahead.
class PostingTest : public RecordsTest {
 protected:
  std::int64_t Period(const std::string& code) {
    for (const PeriodRecord& row : ledger_.References().Periods()) {
      if (row.period == code) return row.periodId;
    }
    return 0;
  }
  ScheduleRecord Plan(const std::string& period, const char* from, int noTimes = 0,
                      AddToAccount add = AddToAccount::Ahead) {
    ScheduleRecord record;
    record.accountId = bank_;
    record.categoryId = category_;
    record.paymentId = payment_;
    record.payeeId = payee_;
    record.periodId = Period(period);
    record.amount = -40;
    record.reference = "R1";
    record.description = "It's rent";
    record.dateFrom = Day(from);
    record.noTimes = noTimes;
    record.addToAccount = add;
    return record;
  }
  std::int64_t Save(ScheduleRecord record) { return ledger_.Schedules().SaveSchedule(record); }
  std::int64_t SaveLine(std::int64_t schedule, double amount, const char* description = "") {
    ScheduleRecord line;
    line.allocatedItem = schedule;
    line.categoryId = category_;
    line.amount = amount;
    line.description = description;
    return ledger_.Schedules().SaveSchedule(line);
  }

  // "1 Month", "None"
  void LookAhead(const char* choice) {
    Settings(store_.platform.registry).SetText(Setting::NoShedule, choice);
  }
  void MoveDates(bool isOn) {
    Settings(store_.platform.registry).SetOn(Setting::UpdateSchedule, isOn);
  }
  void Today(const char* day) { store_.platform.clock.SetToday(Day(day)); }

  PostingResult Pass() {
    return SchedulePosting(ledger_, store_.platform.Get(), rates_).PostSchedules();
  }
  // Of a person who wants it however much it posts.
  PostingResult AgreedPass() {
    AgreeingPlatform machine(store_.platform.Get());
    return SchedulePosting(ledger_, machine.Get(), rates_).PostSchedules();
  }
  OccurrenceResult Post(std::int64_t schedule, const char* due) {
    return SchedulePosting(ledger_, store_.platform.Get(), rates_)
        .PostOccurrence(schedule, Day(due));
  }
  OccurrenceResult Skip(std::int64_t schedule, const char* due) {
    return SchedulePosting(ledger_, store_.platform.Get(), rates_)
        .SkipOccurrence(schedule, Day(due));
  }

  // The due dates of what is posted, "2026-11-01" each.
  std::vector<std::string> Posted(std::int64_t schedule) {
    std::vector<std::string> dates;
    Recordset rows = Db().OpenRecordset(
        "SELECT ScheduleDate FROM tblTransactions WHERE AllocatedItem = 0 AND BankSch = " +
        std::to_string(schedule) + " AND NOT IsNull(ScheduleDate) ORDER BY ScheduleDate");
    for (; !rows.Eof(); rows.MoveNext()) dates.emplace_back(rows.Text(0));
    return dates;
  }
  // The row of an occurrence; 0 for none.
  std::int64_t RowOf(std::int64_t schedule, const char* due) {
    return Number(
        "SELECT TransactionID FROM tblTransactions WHERE AllocatedItem = 0 AND BankSch = " +
        std::to_string(schedule) + " AND ScheduleDate = " + SqlDay(due));
  }
  static std::string SqlDay(const char* day) {
    const std::string text = day;
    return "#" + text.substr(5, 2) + "/" + text.substr(8, 2) + "/" + text.substr(0, 4) + "#";
  }
  // Where a schedule stands: "2026-12-01 x3 posted 2".
  std::string State(std::int64_t schedule) {
    const auto read = ledger_.Schedules().ReadSchedule(schedule);
    return read->dateFrom.ToIso() + " x" + std::to_string(read->noTimes) + " posted " +
           std::to_string(read->posted) + (read->isFinished ? " finished" : "");
  }
  std::string Contents() { return ContentsOf(Db(), {"tblTransactions", "tblSchedule"}); }

  using Dates = std::vector<std::string>;
  ScriptedRates rates_;
};

}  // namespace corvanta
