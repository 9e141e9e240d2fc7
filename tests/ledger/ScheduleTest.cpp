// Reading, writing and deleting schedules.
#include "ledger/PostingTest.h"

namespace corvanta {
namespace {

class Schedule : public PostingTest {};

TEST_F(Schedule, IsReadAsItWasSaved) {
  ScheduleRecord plan = Plan("2ww", "2026-11-30", 7, AddToAccount::WhenDue);
  plan.transferAccountId = euros_;
  const std::int64_t key = ledger_.SaveSchedule(plan);
  EXPECT_EQ(plan.scheduleId, key);
  const auto read = ledger_.ReadSchedule(key);
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
  EXPECT_FALSE(ledger_.ReadSchedule(key + 1));
  ScheduleRecord gone = plan;
  gone.scheduleId = key + 1;
  EXPECT_EQ(ledger_.SaveSchedule(gone), 0);
  EXPECT_EQ(ledger_.DueDates(key, {}).size(), 7U);
  EXPECT_TRUE(ledger_.DueDates(key + 1, {}).empty());
}

TEST_F(Schedule, ListsShowWhatIsNext) {
  const std::int64_t late = Save(Plan("m", "2026-12-05", 0, AddToAccount::No));
  const std::int64_t posted = Save(Plan("m", "2026-10-25", 0));
  const std::int64_t finished = Save(Plan("1d", "2026-11-01"));
  const std::int64_t split = Save(Plan("q", "2026-11-30", 0, AddToAccount::No));
  SaveLine(split, -5);
  Pass();
  const auto list = ledger_.Schedules();
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
  EXPECT_EQ(ledger_.ReadSchedule(parent)->amount, -19.75);
  EXPECT_TRUE(ledger_.ReadSchedule(parent)->hasLines);
  // The parent's amount is theirs, and they follow its account.
  ScheduleRecord moved = *ledger_.ReadSchedule(parent);
  moved.amount = -99;
  moved.accountId = savings_;
  moved.periodId = Period("q");
  ledger_.SaveSchedule(moved);
  EXPECT_EQ(ledger_.ReadSchedule(parent)->amount, -19.75);
  const auto lines = ledger_.ScheduleLines(parent);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].scheduleId, first);
  EXPECT_EQ(lines[0].accountId, savings_);
  EXPECT_EQ(lines[0].period, "q");
  ScheduleRecord changed = lines[1];
  changed.amount = -8;
  changed.allocatedItem = 0;  // a line stays one
  ledger_.SaveSchedule(changed);
  EXPECT_EQ(ledger_.ReadSchedule(parent)->amount, -20.25);
  ledger_.DeleteSchedule(second, false);
  EXPECT_EQ(ledger_.ReadSchedule(parent)->amount, -12.25);
  // No lines of lines, of transfers or of what is not there.
  EXPECT_EQ(SaveLine(first, -1), 0);
  EXPECT_EQ(SaveLine(9999, -1), 0);
  ScheduleRecord transfer = *ledger_.ReadSchedule(parent);
  transfer.transferAccountId = bank_;
  ledger_.SaveSchedule(transfer);
  EXPECT_TRUE(ledger_.ScheduleLines(parent).empty());
  EXPECT_EQ(SaveLine(parent, -1), 0);
}

TEST_F(Schedule, ATransferIntoItsOwnAccountIsNone) {
  ScheduleRecord plan = Plan("m", "2026-12-05");
  plan.transferAccountId = bank_;
  EXPECT_EQ(ledger_.ReadSchedule(Save(plan))->transferAccountId, 0);
}

TEST_F(Schedule, AChangeMakesItsForecastsAnew) {
  LookAhead("3 Months");
  const std::int64_t schedule = Save(Plan("m", "2026-11-10", 0));
  Pass();
  ASSERT_EQ(Posted(schedule).size(), 4U);  // from November to February
  // One of them is the person's own now, and one the bank's.
  TransactionRecord own = *ledger_.ReadTransaction(RowOf(schedule, "2026-12-10"));
  own.amount = -77;
  ledger_.SaveTransaction(own);
  const std::int64_t attached = RowOf(schedule, "2027-01-10");
  LinkAndAttach(attached);
  ScheduleRecord same = *ledger_.ReadSchedule(schedule);
  ledger_.SaveSchedule(same);
  EXPECT_EQ(Posted(schedule).size(), 4U);
  ScheduleRecord dearer = same;
  dearer.amount = -50;
  ledger_.SaveSchedule(dearer);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-11-10", "2026-12-10", "2027-01-10"}));
  Pass();
  EXPECT_EQ(Amount(RowOf(schedule, "2026-11-10")), -40);
  EXPECT_EQ(Amount(RowOf(schedule, "2026-12-10")), -77);
  EXPECT_EQ(Amount(RowOf(schedule, "2027-01-10")), -40);
  EXPECT_EQ(Amount(RowOf(schedule, "2027-02-10")), -50);
  ScheduleRecord later = dearer;
  later.dateFrom = Day("2026-11-12");
  later.addToAccount = AddToAccount::No;
  ledger_.SaveSchedule(later);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-11-10", "2026-12-10", "2027-01-10"}));
}

TEST_F(Schedule, ForecastsOfATransferStayWhereItsOtherHalfWasTouched) {
  LookAhead("6 Months");
  ScheduleRecord plan = Plan("m", "2026-12-10");
  plan.transferAccountId = savings_;
  const std::int64_t schedule = Save(plan);
  Pass();
  ASSERT_EQ(Posted(schedule).size(), 6U);
  const auto twin = [&](const char* due) {
    return *ledger_.ReadTransaction(ledger_.ReadTransaction(RowOf(schedule, due))->transferId);
  };
  ledger_.SetStatus(twin("2026-12-10").transactionId, 1, 1, 0);
  LinkAndAttach(twin("2027-01-10").transactionId);
  TransactionRecord named = twin("2027-02-10");
  named.description = "for the holidays";
  ledger_.SaveTransaction(named);
  ScheduleRecord dearer = *ledger_.ReadSchedule(schedule);
  dearer.amount = -50;
  ledger_.SaveSchedule(dearer);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-12-10", "2027-01-10", "2027-02-10"}));
  Pass();
  EXPECT_EQ(Amount(RowOf(schedule, "2027-02-10")), -40);
  EXPECT_EQ(twin("2027-03-10").amount, 50);
}

TEST_F(Schedule, AChangedLineMakesForecastsAnew) {
  const std::int64_t schedule = Save(Plan("m", "2026-11-15", 0));
  SaveLine(schedule, -10);
  const std::int64_t line = SaveLine(schedule, -20);
  Pass();
  ASSERT_EQ(Posted(schedule), (Dates{"2026-11-15", "2026-12-15"}));
  ScheduleRecord changed = *ledger_.ReadSchedule(line);
  changed.amount = -30;
  ledger_.SaveSchedule(changed);
  Pass();
  EXPECT_EQ(Amount(RowOf(schedule, "2026-11-15")), -30);
  EXPECT_EQ(Amount(RowOf(schedule, "2026-12-15")), -40);
  ledger_.DeleteSchedule(line, false);
  Pass();
  EXPECT_EQ(Amount(RowOf(schedule, "2026-12-15")), -10);
  EXPECT_EQ(ledger_.SplitLines(RowOf(schedule, "2026-12-15")).size(), 1U);
  // What a person split otherwise stays so.
  AddLine(RowOf(schedule, "2026-12-15"), -5);
  ScheduleRecord parent = *ledger_.ReadSchedule(schedule);
  parent.description = "other";
  ledger_.SaveSchedule(parent);
  EXPECT_EQ(Posted(schedule).size(), 2U);
}

TEST_F(Schedule, DeletingItTakesItsRowsOrLeavesThem) {
  ScheduleRecord plan = Plan("m", "2026-10-15", 0);
  plan.transferAccountId = savings_;
  const std::int64_t kept = Save(plan);
  const std::int64_t gone = Save(plan);
  Pass();
  ledger_.DeleteSchedule(kept, false);
  EXPECT_EQ(Count("tblTransactions"), 12);
  EXPECT_EQ(Count("tblTransactions WHERE BankSch <> 0"), 6);
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = " + std::to_string(savings_));
  ledger_.DeleteSchedule(gone, true);
  EXPECT_EQ(Count("tblTransactions"), 12);
  EXPECT_EQ(Count("tblTransactions WHERE BankSch <> 0"), 0);
  Run("UPDATE tblAccounts SET CloseAccount = 0");
  const std::int64_t third = Save(plan);
  Pass();
  ledger_.DeleteSchedule(third, true);
  EXPECT_EQ(Count("tblTransactions"), 12);
  EXPECT_EQ(Count("tblSchedule"), 0);
}

TEST_F(Schedule, PointsIntoNoDeletedAccount) {
  ScheduleRecord plan = Plan("m", "2026-11-05", 2);
  plan.transferAccountId = savings_;
  const std::int64_t into = Save(plan);
  plan.accountId = savings_;
  plan.transferAccountId = bank_;
  Save(plan);
  Pass();
  ledger_.DeleteAccount(savings_);
  EXPECT_EQ(Count("tblSchedule"), 1);
  EXPECT_EQ(ledger_.ReadSchedule(into)->transferAccountId, 0);
  EXPECT_EQ(Pass().occurrences, 0U);
  ledger_.DeleteAccount(bank_);
  EXPECT_EQ(Count("tblSchedule"), 0);
  EXPECT_EQ(Pass().schedules, 0U);
}

}  // namespace
}  // namespace corvanta
