// Reading, writing and deleting schedules.
#include "ledger/PostingTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/register/Period.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleDates.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/transactions/StatusBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"

#include <functional>

namespace corvanta {
namespace {

class Schedule : public PostingTest {};

TEST_F(Schedule, IsReadAsItWasSaved) {
  ScheduleRecord plan = Plan("2ww", "2026-11-30", 7, AddToAccount::WhenDue);
  plan.transferAccountId = euros_;
  const std::int64_t key = ledger_.Schedules().SaveSchedule(plan);
  EXPECT_EQ(plan.scheduleId, key);
  const auto read = ledger_.Schedules().ReadSchedule(key);
  ASSERT_TRUE(read);
  EXPECT_EQ(static_cast<const ScheduleRecord&>(*read), plan);
  EXPECT_EQ(read->account, "Bank");
  EXPECT_EQ(read->currency, "GBP");
  EXPECT_EQ(read->transferAccount, "Euros");
  EXPECT_EQ(read->transferCurrency, "EUR");
  EXPECT_EQ(read->payee, "Shop");
  EXPECT_EQ(read->payment, "Card");
  EXPECT_EQ(read->category, "Bills");
  EXPECT_EQ(read->subCategory, "Gas");
  EXPECT_EQ(read->period, "2ww");
  EXPECT_EQ(read->periodName, "Fortnightly");
  EXPECT_FALSE(read->hasLines);
  EXPECT_FALSE(ledger_.Schedules().ReadSchedule(key + 1));
  ScheduleRecord gone = plan;
  gone.scheduleId = key + 1;
  EXPECT_EQ(ledger_.Schedules().SaveSchedule(gone), 0);
  EXPECT_EQ(ledger_.Schedules().DueDates(key, {}).size(), 7U);
  EXPECT_TRUE(ledger_.Schedules().DueDates(key + 1, {}).empty());
}

TEST_F(Schedule, ListsShowWhatIsNext) {
  const std::int64_t late = Save(Plan("m", "2026-12-05", 0, AddToAccount::No));
  const std::int64_t posted = Save(Plan("m", "2026-10-25", 0));
  const std::int64_t finished = Save(Plan("1d", "2026-11-01"));
  const std::int64_t split = Save(Plan("q", "2026-11-30", 0, AddToAccount::No));
  SaveLine(split, -5);
  Pass();
  const auto list = ledger_.Schedules().Schedules();
  ASSERT_EQ(list.size(), 4U);
  EXPECT_EQ(list[0].scheduleId, split);
  EXPECT_TRUE(list[0].hasLines);
  EXPECT_EQ(list[1].scheduleId, late);
  EXPECT_EQ(list[2].scheduleId, posted);
  EXPECT_EQ(list[2].nextDue, Day("2026-12-25"));
  EXPECT_EQ(list[2].posted, 2);
  EXPECT_EQ(list[3].scheduleId, finished);
  EXPECT_TRUE(list[3].isFinished);
  EXPECT_FALSE(list[3].nextDue);
}

TEST_F(Schedule, LinesBelongToTheirParent) {
  const std::int64_t parent = Save(Plan("m", "2026-12-05", 3, AddToAccount::No));
  const std::int64_t first = SaveLine(parent, -12.25);
  const std::int64_t second = SaveLine(parent, -7.5);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(parent)->amount, -19.75);
  EXPECT_TRUE(ledger_.Schedules().ReadSchedule(parent)->hasLines);
  // The parent's amount is theirs, and they follow its account.
  ScheduleRecord moved = *ledger_.Schedules().ReadSchedule(parent);
  moved.amount = -99;
  moved.accountId = savings_;
  moved.periodId = Period("q");
  ledger_.Schedules().SaveSchedule(moved);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(parent)->amount, -19.75);
  const auto lines = ledger_.Schedules().ScheduleLines(parent);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].scheduleId, first);
  EXPECT_EQ(lines[0].accountId, savings_);
  EXPECT_EQ(lines[0].period, "q");
  ScheduleRecord changed = lines[1];
  changed.amount = -8;
  changed.allocatedItem = 0;  // a line stays one
  ledger_.Schedules().SaveSchedule(changed);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(parent)->amount, -20.25);
  ledger_.Schedules().DeleteSchedule(second, false);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(parent)->amount, -12.25);
  // No lines of lines, of transfers or of what is not there.
  EXPECT_EQ(SaveLine(first, -1), 0);
  EXPECT_EQ(SaveLine(9999, -1), 0);
  ScheduleRecord transfer = *ledger_.Schedules().ReadSchedule(parent);
  transfer.transferAccountId = bank_;
  ledger_.Schedules().SaveSchedule(transfer);
  EXPECT_TRUE(ledger_.Schedules().ScheduleLines(parent).empty());
  EXPECT_EQ(SaveLine(parent, -1), 0);
}

TEST_F(Schedule, ATransferIntoItsOwnAccountIsNone) {
  ScheduleRecord plan = Plan("m", "2026-12-05");
  plan.transferAccountId = bank_;
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(Save(plan))->transferAccountId, 0);
}

TEST_F(Schedule, AChangeReachesTheForecastsThatNobodyTouched) {
  LookAhead("3 Months");
  const std::int64_t schedule = Save(Plan("m", "2026-11-10", 0));
  Pass();
  ASSERT_EQ(Posted(schedule).size(), 4U);  // from November to February
  // One of them is the person's own now, and one the bank's.
  const std::int64_t own = RowOf(schedule, "2026-12-10");
  TransactionRecord row = *ledger_.Transactions().ReadTransaction(own);
  row.amount = -77;
  ledger_.Transactions().SaveTransaction(row);
  const std::int64_t attached = RowOf(schedule, "2027-01-10");
  LinkAndAttach(attached);
  const std::string before = Contents();
  ScheduleRecord same = *ledger_.Schedules().ReadSchedule(schedule);
  ledger_.Schedules().SaveSchedule(same);
  EXPECT_EQ(Contents(), before);
  ScheduleRecord dearer = same;
  dearer.amount = -50;
  ledger_.Schedules().SaveSchedule(dearer);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-11-10", "2026-12-10", "2027-01-10", "2027-02-10"}));
  EXPECT_EQ(Amount(RowOf(schedule, "2026-11-10")), -40) << "it has come to pass";
  EXPECT_EQ(Amount(own), -77);
  EXPECT_EQ(Amount(attached), -40);
  EXPECT_EQ(Amount(RowOf(schedule, "2027-02-10")), -50);
  // On other days the rows that were touched stand for other payments, so that none is paid twice.
  ScheduleRecord later = dearer;
  later.dateFrom = Day("2026-11-12");
  ledger_.Schedules().SaveSchedule(later);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-11-10", "2026-12-12", "2027-01-12", "2027-02-12"}));
  EXPECT_EQ(RowOf(schedule, "2026-12-12"), own);
  EXPECT_EQ(ledger_.Transactions().ReadTransaction(own)->date, Day("2026-12-10"));
  EXPECT_EQ(Pass().occurrences, 0U);
  // What a pass has posted ahead goes when no pass would post it any more.
  later.addToAccount = AddToAccount::No;
  ledger_.Schedules().SaveSchedule(later);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-11-10", "2026-12-12", "2027-01-12"}));
}

// Whatever a person has made of a forecast, it is theirs.
TEST_F(Schedule, AForecastThatIsDifferentInAnyFieldStays) {
  LookAhead("1 Month");
  const std::int64_t other = ledger_.Categories().FindOrCreateCategory("Other", "", -1);
  struct Case {
    const char* field;
    std::function<void(TransactionRecord&)> edit;
  };
  const std::vector<Case> cases = {
      {"account", [&](TransactionRecord& row) { row.accountId = savings_; }},
      {"category", [&](TransactionRecord& row) { row.categoryId = other; }},
      {"payment type",
       [&](TransactionRecord& row) {
         row.paymentId = ledger_.References().FindOrCreatePayment("Cash");
       }},
      {"payee",
       [&](TransactionRecord& row) {
         row.payeeId = ledger_.References().FindOrCreatePayee("Baker");
       }},
      {"amount", [](TransactionRecord& row) { row.amount = -41; }},
      {"reference", [](TransactionRecord& row) { row.reference = "R2"; }},
      {"description", [](TransactionRecord& row) { row.description = "mine"; }},
      {"date", [](TransactionRecord& row) { row.date = row.date.AddDays(1); }},
      {"cleared", [](TransactionRecord& row) { row.status.bankChk = 1; }},
      {"reconciled", [](TransactionRecord& row) { row.status.bankRec = 1; }}};
  for (const Case& row : cases) {
    const std::int64_t schedule = Save(Plan("m", "2026-12-10", 1));
    Pass();
    const std::int64_t forecast = RowOf(schedule, "2026-12-10");
    TransactionRecord mine = *ledger_.Transactions().ReadTransaction(forecast);
    row.edit(mine);
    ledger_.Transactions().SaveTransaction(mine);
    ScheduleRecord dearer = *ledger_.Schedules().ReadSchedule(schedule);
    dearer.amount = -50;
    ledger_.Schedules().SaveSchedule(dearer);
    EXPECT_TRUE(Exists(forecast)) << row.field;
    EXPECT_EQ(Amount(forecast), mine.amount) << row.field;
  }
  const std::int64_t untouched = Save(Plan("m", "2026-12-10", 1));
  Pass();
  ScheduleRecord dearer = *ledger_.Schedules().ReadSchedule(untouched);
  dearer.amount = -50;
  ledger_.Schedules().SaveSchedule(dearer);
  EXPECT_EQ(Amount(RowOf(untouched, "2026-12-10")), -50);
}

TEST_F(Schedule, APaymentPostedAheadByHandFollowsToo) {
  const std::int64_t schedule = Save(Plan("m", "2026-11-10", 0, AddToAccount::No));
  Post(schedule, "2026-11-10");
  Post(schedule, "2026-12-10");
  ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(schedule);
  changed.description = "Rent and heating";
  ledger_.Schedules().SaveSchedule(changed);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-11-10", "2026-12-10"}));
  const auto text = [&](const char* due) {
    return ledger_.Transactions().ReadTransaction(RowOf(schedule, due))->description;
  };
  EXPECT_EQ(text("2026-11-10"), "It's rent");
  EXPECT_EQ(text("2026-12-10"), "Rent and heating");
  changed.dateFrom = Day("2026-11-15");
  ledger_.Schedules().SaveSchedule(changed);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-11-10", "2026-12-15"}));
  EXPECT_EQ(ledger_.Schedules().Schedules().front().nextDue, Day("2027-01-15"));
}

TEST_F(Schedule, WithMovingDatesAnEditReachesTheForecastsAndLosesNone) {
  MoveDates(true);
  LookAhead("3 Months");
  const std::int64_t three = Save(Plan("m", "2026-11-10", 3));
  const std::int64_t endless = Save(Plan("m", "2026-11-10"));
  Pass();
  ASSERT_EQ(State(three), "2027-01-10 x-1 posted 1 finished");
  for (const std::int64_t key : {three, endless}) {
    ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(key);
    changed.amount = -50;
    ledger_.Schedules().SaveSchedule(changed);
    EXPECT_EQ(Amount(RowOf(key, "2026-11-10")), -40);
    EXPECT_EQ(Amount(RowOf(key, "2026-12-10")), -50);
    EXPECT_EQ(Amount(RowOf(key, "2027-01-10")), -50);
    changed.dateFrom = changed.dateFrom.AddDays(2);
    if (changed.noTimes < 0) changed.noTimes = 1;
    ledger_.Schedules().SaveSchedule(changed);
  }
  Pass();
  EXPECT_EQ(Posted(three), (Dates{"2026-11-10", "2026-12-12", "2027-01-12"}));
  EXPECT_TRUE(ledger_.Schedules().ReadSchedule(three)->isFinished);
  EXPECT_EQ(Posted(endless), (Dates{"2026-11-10", "2026-12-12", "2027-01-12", "2027-02-12"}));
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(endless)->dateFrom, Day("2027-03-12"));
}

// Its past comes no second time, whichever way the plan is changed.
TEST_F(Schedule, AnotherPlanGoesOnBehindWhatIsPosted) {
  struct Case {
    const char* period;
    const char* from;
    int noTimes;
    const char* changedTo;
    const char* changedFrom;
    std::string state;
    const char* next;
  };
  const Case cases[] = {
      {"ww", "2026-06-15", 0, "m", "2026-06-15", "2026-12-15 x0 posted 1", "2027-01-15"},
      {"m", "2026-06-05", 12, "ww", "2026-06-05", "2026-12-04 x6 posted 3", "2026-12-25"},
      {"m", "2026-06-05", 12, "m", "2026-06-20", "2026-12-20 x6 posted 1", "2027-01-20"},
      {"m", "2026-06-05", 12, "m", "2026-06-25", "2026-12-25 x6 posted 0", "2026-12-25"},
      {"m", "2026-06-20", 0, "m", "2026-06-05", "2026-12-05 x0 posted 1", "2027-01-05"},
      {"m", "2026-06-05", 6, "ww", "2026-06-05", "2026-11-27 x-6 posted 0 finished", ""},
      // A start that is still to come is meant as it is.
      {"m", "2026-06-05", 12, "m", "2027-03-01", "2027-03-01 x12 posted 0", "2027-03-01"},
      {"m", "2026-06-05", 2, "m", "2026-12-01", "2026-12-01 x2 posted 1", "2027-01-01"},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(std::string(test.period) + " " + test.from + " to " + test.changedTo + " " +
                 test.changedFrom);
    const std::int64_t schedule = Save(Plan(test.period, test.from, test.noTimes));
    Pass();
    const std::int64_t past = Count("tblTransactions WHERE [Date] <= #11/21/2026#");
    ASSERT_GE(past, 2);
    ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(schedule);
    changed.periodId = Period(test.changedTo);
    changed.dateFrom = Day(test.changedFrom);
    EXPECT_EQ(ledger_.Schedules().PlanAfterSaving(changed).from.ToIso(), test.state.substr(0, 10));
    ledger_.Schedules().SaveSchedule(changed);
    Pass();
    EXPECT_EQ(State(schedule), test.state);
    EXPECT_EQ(Count("tblTransactions WHERE [Date] <= #11/21/2026#"), past);
    const auto next = ledger_.Schedules().Schedules().front().nextDue;
    EXPECT_EQ(next ? next->ToIso() : "", test.next);
    Run("DELETE FROM tblTransactions");
    Run("DELETE FROM tblSchedule");
  }
}

// Whether the number grew, the end was taken away or the schedule had been ended before its time.
TEST_F(Schedule, MorePaymentsDoNotMakeUpForThePast) {
  struct Case {
    const char* from;
    int noTimes;
    int ended;  // what the number became before its time; 0 for none
    int changedTo;
    std::string state;
    std::size_t posted;
  };
  const Case cases[] = {
      {"2026-05-19", 1, 0, 7, "2026-12-01 x6 posted 2", 3},
      {"2026-05-19", 1, 0, 0, "2026-12-01 x0 posted 2", 3},
      {"2026-05-19", 1, 0, 1, "2026-05-19 x1 posted 1 finished", 1},
      // Two weeks have not passed since the last one.
      {"2026-11-10", 1, 0, 3, "2026-11-10 x3 posted 3 finished", 3},
      // Today's payment is still to come.
      {"2026-11-07", 1, 0, 3, "2026-11-07 x3 posted 3 finished", 3},
      {"2026-10-24", 1, 0, 4, "2026-11-21 x3 posted 3 finished", 4},
      {"2026-09-22", 0, -1, 12, "2026-12-01 x7 posted 2", 7},
      {"2026-09-22", 12, -1, 4, "2026-09-22 x-4 posted 5 finished", 5},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(std::string(test.from) + " " + std::to_string(test.noTimes) + " to " +
                 std::to_string(test.changedTo));
    const std::int64_t schedule = Save(Plan("2ww", test.from, test.noTimes));
    Pass();
    if (test.ended != 0) {
      Run("UPDATE tblSchedule SET NoTimes = " + std::to_string(test.ended));
      Run("DELETE FROM tblTransactions WHERE [Date] > #11/21/2026#");
    }
    const std::int64_t past = Count("tblTransactions WHERE [Date] < #11/21/2026#");
    ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(schedule);
    changed.noTimes = test.changedTo;
    ledger_.Schedules().SaveSchedule(changed);
    Pass();
    EXPECT_EQ(Count("tblTransactions WHERE [Date] < #11/21/2026#"), past);
    EXPECT_EQ(State(schedule), test.state);
    EXPECT_EQ(Posted(schedule).size(), test.posted);
    Run("DELETE FROM tblTransactions");
    Run("DELETE FROM tblSchedule");
  }
}

// It may have posted nothing at all.
TEST_F(Schedule, WhatADeletedAccountHasEndedGoesOnBehindToday) {
  for (const char* period : {"m", "2ww"}) {
    const std::int64_t schedule = Save(Plan("m", "2026-03-01", 0));
    Run("UPDATE tblSchedule SET NoTimes = -1");
    ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(schedule);
    changed.noTimes = 12;
    changed.periodId = Period(period);
    ledger_.Schedules().SaveSchedule(changed);
    Pass();
    EXPECT_EQ(Count("tblTransactions WHERE [Date] < #11/21/2026#"), 0) << period;
    EXPECT_GT(Count("tblTransactions"), 0) << period;
    Run("DELETE FROM tblTransactions");
    Run("DELETE FROM tblSchedule");
  }
}

TEST_F(Schedule, EndsWithTheCalendar) {
  Today("9999-12-30");
  MoveDates(true);
  const std::int64_t daily = Save(Plan("d", "9999-12-29", 0));
  Pass();
  EXPECT_EQ(Posted(daily), (Dates{"9999-12-29", "9999-12-30", "9999-12-31"}));
  EXPECT_TRUE(ledger_.Schedules().ReadSchedule(daily)->isFinished);
  Pass();
  EXPECT_EQ(Count("tblTransactions"), 3);
}

TEST_F(Schedule, WhatIsOverdueStaysSoUnderAnotherPlan) {
  const std::int64_t schedule = Save(Plan("m", "2026-08-05", 0, AddToAccount::No));
  Post(schedule, "2026-08-05");
  Post(schedule, "2026-10-05");
  ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(schedule);
  changed.dateFrom = Day("2026-08-12");
  ledger_.Schedules().SaveSchedule(changed);
  // September and November still wait, October is paid.
  EXPECT_EQ(State(schedule), "2026-09-12 x0 posted 1");
  EXPECT_EQ(Posted(schedule), (Dates{"2026-08-05", "2026-10-12"}));
  EXPECT_EQ(ledger_.Transactions().ReadTransaction(RowOf(schedule, "2026-10-12"))->date,
            Day("2026-10-05"));
}

TEST_F(Schedule, ACopyGoesOnWhereItsOriginalStands) {
  const std::int64_t endless = Save(Plan("m", "2026-06-05"));
  const std::int64_t three = Save(Plan("m", "2026-06-05", 3));
  const std::int64_t eight = Save(Plan("m", "2026-06-05", 8));
  Pass();
  const std::int64_t rows = Count("tblTransactions");
  EXPECT_EQ(State(ledger_.Schedules().PasteSchedule(endless)), "2027-01-05 x0 posted 0");
  const std::int64_t finished = ledger_.Schedules().PasteSchedule(three);
  EXPECT_EQ(State(finished), "2026-09-05 x-3 posted 0 finished");
  EXPECT_EQ(State(ledger_.Schedules().PasteSchedule(eight)), "2027-01-05 x1 posted 0");
  Pass();
  EXPECT_EQ(Count("tblTransactions"), rows);
  // It is a model for the next one.
  ScheduleRecord again = *ledger_.Schedules().ReadSchedule(finished);
  again.dateFrom = Day("2026-12-01");
  again.noTimes = 3;
  ledger_.Schedules().SaveSchedule(again);
  EXPECT_EQ(Pass().occurrences, 1U);
}

TEST_F(Schedule, AForecastInAnotherCurrencyKeepsItsRate) {
  ScheduleRecord plan = Plan("m", "2026-12-05", 0);
  plan.transferAccountId = euros_;
  const std::int64_t schedule = Save(plan);
  rates_.Answer(1.15);
  Pass();
  rates_.Answer(std::nullopt);
  const auto arrived = [&] {
    return Amount(
        ledger_.Transactions().ReadTransaction(RowOf(schedule, "2026-12-05"))->transferId);
  };
  ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(schedule);
  changed.description = "other";
  ledger_.Schedules().SaveSchedule(changed);
  EXPECT_EQ(arrived(), 46);
  changed.amount = -33.33;
  ledger_.Schedules().SaveSchedule(changed);
  EXPECT_EQ(arrived(), 38.33);
  // Between other currencies there is no rate to go by: it waits for one.
  changed.accountId = euros_;
  changed.transferAccountId = bank_;
  ledger_.Schedules().SaveSchedule(changed);
  EXPECT_EQ(Posted(schedule), Dates{});
}

TEST_F(Schedule, AForecastOfWhichNothingArrivesIsNoRate) {
  ScheduleRecord plan = Plan("m", "2026-12-05", 0);
  plan.transferAccountId = euros_;
  plan.amount = -0.01;
  const std::int64_t schedule = Save(plan);
  rates_.Answer(0.3);
  Pass();
  EXPECT_EQ(Posted(schedule), Dates{"2026-12-05"});
  rates_.Answer(std::nullopt);
  ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(schedule);
  changed.amount = -40;
  ledger_.Schedules().SaveSchedule(changed);
  EXPECT_EQ(Posted(schedule), Dates{}) << "it waits for a rate";
}

TEST_F(Schedule, TheLastDayOfTheMonthStaysTheLast) {
  ScheduleRecord plan = Plan("m", "2026-09-30", 0);
  plan.days.isMonthEnd = true;
  const std::int64_t schedule = Save(plan);
  Pass();
  EXPECT_EQ(Posted(schedule), (Dates{"2026-09-30", "2026-10-31", "2026-11-30"}));
  EXPECT_EQ(ledger_.Schedules().Schedules().front().nextDue, Day("2026-12-31"));
  EXPECT_TRUE(ledger_.Schedules()
                  .ReadSchedule(ledger_.Schedules().PasteSchedule(schedule))
                  ->days.isMonthEnd);
  // The start goes to that day, and a week has none.
  plan.dateFrom = Day("2028-02-03");
  const std::int64_t february = Save(plan);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(february)->dateFrom, Day("2028-02-29"));
  plan.periodId = Period("ww");
  EXPECT_FALSE(ledger_.Schedules().ReadSchedule(Save(plan))->days.isMonthEnd);
}

TEST_F(Schedule, WeekendsMoveTheBookingAndNotTheDueDate) {
  Today("2026-11-20");  // a Friday
  ScheduleRecord plan = Plan("m", "2026-11-22", 0, AddToAccount::WhenDue);
  plan.days.weekend = WeekendRule::Before;
  const std::int64_t before = Save(plan);
  plan.days.weekend = WeekendRule::After;
  const std::int64_t after = Save(plan);
  EXPECT_EQ(Pass().occurrences, 1U);
  EXPECT_EQ(ledger_.Transactions().ReadTransaction(RowOf(before, "2026-11-22"))->date,
            Day("2026-11-20"));
  Today("2026-11-22");
  EXPECT_EQ(Pass().occurrences, 0U);
  Today("2026-11-23");
  EXPECT_EQ(Pass().occurrences, 1U);
  EXPECT_EQ(ledger_.Transactions().ReadTransaction(RowOf(after, "2026-11-22"))->date,
            Day("2026-11-23"));
  // A forecast goes with the rule when that is changed; undo brings both back.
  Post(after, "2027-05-22");
  ledger_.Undo().Start();
  ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(after);
  const auto booked = [&] {
    return ledger_.Transactions().ReadTransaction(RowOf(after, "2027-05-22"))->date;
  };
  EXPECT_EQ(booked(), Day("2027-05-24"));
  changed.days.weekend = WeekendRule::Stay;
  ledger_.Schedules().SaveSchedule(changed);
  EXPECT_EQ(booked(), Day("2027-05-22"));
  ledger_.Undo().Undo();
  EXPECT_EQ(booked(), Day("2027-05-24"));
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(after)->days.weekend, WeekendRule::After);
  // Nothing of it is left of a schedule that is gone, and the catalog shows nothing of it.
  ledger_.Schedules().DeleteSchedule(after, true);
  ledger_.Schedules().DeleteSchedule(before, true);
  EXPECT_EQ(Count("own_ScheduleDays"), 0);
  EXPECT_EQ(Db().TableNames().size(), 16U);
}

TEST_F(Schedule, ForecastsOfATransferStayWhereItsOtherHalfWasTouched) {
  LookAhead("6 Months");
  ScheduleRecord plan = Plan("m", "2026-12-10");
  plan.transferAccountId = savings_;
  const std::int64_t schedule = Save(plan);
  Pass();
  ASSERT_EQ(Posted(schedule).size(), 6U);
  const auto twin = [&](const char* due) {
    return *ledger_.Transactions().ReadTransaction(
        ledger_.Transactions().ReadTransaction(RowOf(schedule, due))->transferId);
  };
  ledger_.Statuses().SetStatus(twin("2026-12-10").transactionId, 1, 1, 0);
  LinkAndAttach(twin("2027-01-10").transactionId);
  TransactionRecord named = twin("2027-02-10");
  named.description = "for the holidays";
  ledger_.Transactions().SaveTransaction(named);
  ScheduleRecord dearer = *ledger_.Schedules().ReadSchedule(schedule);
  dearer.amount = -50;
  ledger_.Schedules().SaveSchedule(dearer);
  EXPECT_EQ(Posted(schedule).size(), 6U);
  EXPECT_EQ(Amount(RowOf(schedule, "2026-12-10")), -40);
  EXPECT_EQ(Amount(RowOf(schedule, "2027-01-10")), -40);
  EXPECT_EQ(Amount(RowOf(schedule, "2027-02-10")), -40);
  EXPECT_EQ(twin("2027-03-10").amount, 50);
}

// Each half is the person's as soon as anything in it is.
TEST_F(Schedule, AForecastWhoseOtherHalfIsDifferentInAnyFieldStays) {
  LookAhead("1 Month");
  const std::int64_t purse = AddAccount("Purse", 0, kPounds);
  struct Case {
    const char* field;
    std::string change;
  };
  const auto key = [](std::int64_t value) { return std::to_string(value); };
  const std::vector<Case> cases = {
      {"account", "AccountID = " + key(purse)},
      {"category", "CategoryID = " + key(category_)},
      {"payment type", "PaymentID = " + key(ledger_.References().FindOrCreatePayment("Cash"))},
      {"payee", "PayeeID = " + key(ledger_.References().FindOrCreatePayee("Baker"))},
      {"amount", "[Amount] = 41"},
      {"reference", "Reference = 'R2'"},
      {"description", "Description = 'mine'"},
      {"date", "[Date] = #12/11/2026#"},
      {"cleared", "BankChk = 1"},
      {"reconciled", "BankRec = 1"}};
  for (const Case& row : cases) {
    ScheduleRecord plan = Plan("m", "2026-12-10", 1);
    plan.transferAccountId = savings_;
    const std::int64_t schedule = Save(plan);
    Pass();
    const std::int64_t forecast = RowOf(schedule, "2026-12-10");
    Run("UPDATE tblTransactions SET " + row.change +
        " WHERE TransactionID = " + key(Column("TransferID", forecast)));
    ScheduleRecord dearer = *ledger_.Schedules().ReadSchedule(schedule);
    dearer.amount = -50;
    ledger_.Schedules().SaveSchedule(dearer);
    EXPECT_EQ(Amount(forecast), -40) << row.field;
    // Of the halves that were made unequal none is left for what is checked at the end.
    ledger_.Schedules().DeleteSchedule(schedule, true);
    ASSERT_FALSE(Exists(forecast)) << row.field;
  }
}

TEST_F(Schedule, AChangedLineReachesTheForecasts) {
  const std::int64_t schedule = Save(Plan("m", "2026-11-15", 0));
  SaveLine(schedule, -10);
  const std::int64_t line = SaveLine(schedule, -20);
  Pass();
  ASSERT_EQ(Posted(schedule), (Dates{"2026-11-15", "2026-12-15"}));
  ScheduleRecord changed = *ledger_.Schedules().ReadSchedule(line);
  changed.amount = -30;
  ledger_.Schedules().SaveSchedule(changed);
  EXPECT_EQ(Amount(RowOf(schedule, "2026-11-15")), -30);
  EXPECT_EQ(Amount(RowOf(schedule, "2026-12-15")), -40);
  EXPECT_EQ(Pass().occurrences, 0U);
  ledger_.Schedules().DeleteSchedule(line, false);
  EXPECT_EQ(Amount(RowOf(schedule, "2026-12-15")), -10);
  EXPECT_EQ(ledger_.Transactions().SplitLines(RowOf(schedule, "2026-12-15")).size(), 1U);
  // What a person split otherwise stays so.
  AddLine(RowOf(schedule, "2026-12-15"), -5);
  ScheduleRecord parent = *ledger_.Schedules().ReadSchedule(schedule);
  parent.description = "other";
  ledger_.Schedules().SaveSchedule(parent);
  EXPECT_EQ(Posted(schedule).size(), 2U);
}

TEST_F(Schedule, DeletingItTakesItsRowsOrLeavesThem) {
  ScheduleRecord plan = Plan("m", "2026-10-15", 0);
  plan.transferAccountId = savings_;
  const std::int64_t kept = Save(plan);
  const std::int64_t gone = Save(plan);
  Pass();
  ledger_.Schedules().DeleteSchedule(kept, false);
  EXPECT_EQ(Count("tblTransactions"), 12);
  EXPECT_EQ(Count("tblTransactions WHERE BankSch <> 0"), 6);
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = " + std::to_string(savings_));
  ledger_.Schedules().DeleteSchedule(gone, true);
  EXPECT_EQ(Count("tblTransactions"), 12);
  EXPECT_EQ(Count("tblTransactions WHERE BankSch <> 0"), 0);
  Run("UPDATE tblAccounts SET CloseAccount = 0");
  const std::int64_t third = Save(plan);
  Pass();
  ledger_.Schedules().DeleteSchedule(third, true);
  EXPECT_EQ(Count("tblTransactions"), 12);
  EXPECT_EQ(Count("tblSchedule"), 0);
}

TEST_F(Schedule, PointsIntoNoDeletedAccount) {
  ScheduleRecord plan = Plan("m", "2026-11-05", 0);
  plan.transferAccountId = savings_;
  const std::int64_t into = Save(plan);
  plan.accountId = savings_;
  plan.transferAccountId = bank_;
  Save(plan);
  Pass();
  store_.platform.prompts.ExpectAsk("Delete Item?", ScriptedPrompts::kAnyText, true);
  store_.platform.prompts.ExpectAsk("Delete Item Confirm", ScriptedPrompts::kAnyText, true);
  store_.platform.prompts.ExpectTell(
      "Delete Item",
      "These schedules transferred into the account and are finished now:\n"
      "Bank, Monthly, -40.00 GBP, It's rent");
  EXPECT_TRUE(ledger_.Accounts().DeleteAccount(savings_, store_.platform.prompts));
  EXPECT_EQ(Count("tblSchedule"), 1);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(into)->transferAccountId, 0);
  EXPECT_TRUE(ledger_.Schedules().ReadSchedule(into)->isFinished);
  EXPECT_EQ(Posted(into), Dates{"2026-11-05"}) << "nothing is still to come of it";
  Today("2027-11-21");
  EXPECT_EQ(Pass().occurrences, 0U);
  ledger_.Accounts().DeleteAccount(bank_);
  EXPECT_EQ(Count("tblSchedule"), 0);
  EXPECT_EQ(Pass().schedules, 0U);
}

}  // namespace
}  // namespace corvanta
