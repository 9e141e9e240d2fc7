#include "ledger/PostingTest.h"

#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleDates.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"

#include <random>

namespace corvanta {
namespace {

TEST_F(PostingTest, RowsCarryTheScheduleAndItsDate) {
  const std::int64_t schedule = Save(Plan("m", "2026-10-31", 2));
  EXPECT_EQ(Pass().occurrences, 2U);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-10-31", "2026-11-30"}));
  const auto row = ledger_.Transactions().ReadTransaction(RowOf(schedule, "2026-11-30"));
  ASSERT_TRUE(row);
  EXPECT_EQ(row->date, Day("2026-11-30"));
  EXPECT_EQ(row->amount, -40);
  EXPECT_EQ(row->reference, "R1");
  EXPECT_EQ(row->description, "It's rent");
  EXPECT_EQ(row->accountId, bank_);
  EXPECT_EQ(row->categoryId, category_);
  EXPECT_EQ(row->payeeId, payee_);
  EXPECT_EQ(row->paymentId, payment_);
  EXPECT_EQ(row->transferId, 0);
  EXPECT_FALSE(row->hasLines);
  const Value time = Db().QueryValue("SELECT UpdateSchedule FROM tblVerification");
  EXPECT_EQ(time.Text().substr(0, 10), "2026-11-21");
}

TEST_F(PostingTest, AnAccountOfAnOldFileThatDoesNotSayWhetherItIsClosedIsOpen) {
  const std::int64_t schedule = Save(Plan("m", "2026-10-31", 2));
  Db().Execute("UPDATE tblAccounts SET CloseAccount = NULL");
  EXPECT_EQ(Pass().occurrences, 2U);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-10-31", "2026-11-30"}));
}

TEST_F(PostingTest, TheLookAheadAndTheChoiceDecideWhatIsPosted) {
  const std::int64_t ahead = Save(Plan("m", "2026-10-21"));
  const std::int64_t whenDue = Save(Plan("m", "2026-10-21", 0, AddToAccount::WhenDue));
  const std::int64_t byHand = Save(Plan("m", "2026-10-21", 0, AddToAccount::No));
  LookAhead("None");
  EXPECT_EQ(Pass().occurrences, 0U);
  LookAhead("1 Month");
  Pass();
  // The look-ahead ends with 21 December.
  EXPECT_EQ(Posted(ahead), (Dates{"2026-10-21", "2026-11-21", "2026-12-21"}));
  EXPECT_EQ(Posted(whenDue), (Dates{"2026-10-21", "2026-11-21"}));
  EXPECT_EQ(Posted(byHand), Dates{});
  LookAhead("2 Years");
  Pass();
  EXPECT_EQ(Posted(ahead).size(), 26U);
  EXPECT_EQ(Posted(ahead).back(), "2028-11-21");
  EXPECT_EQ(Posted(whenDue).size(), 2U);
}

TEST_F(PostingTest, ABillOfTomorrowStandsInTheAccountToday) {
  for (const char* period : {"yyyy", "3q", "4ww"}) {
    SCOPED_TRACE(period);
    const auto dates = FirstScheduleDates({Day("2021-01-01"), 0, period}, 8);
    const std::int64_t schedule = Save(Plan(period, "2021-01-01"));
    Today(dates[6].AddDays(-1).ToIso().c_str());
    Pass();
    EXPECT_EQ(Posted(schedule)[6], dates[6].ToIso());
    Run("DELETE FROM tblTransactions");
    Run("DELETE FROM tblSchedule");
  }
}

TEST_F(PostingTest, ANumberOfPaymentsAndOnceEndForGood) {
  const std::int64_t three = Save(Plan("m", "2026-07-21", 3));
  const std::int64_t once = Save(Plan("1d", "2026-11-01"));
  for (const char* day : {"2026-11-21", "2026-11-21", "2027-03-01", "2029-01-01"}) {
    Today(day);
    Pass();
    EXPECT_EQ(Posted(three), (Dates{"2026-07-21", "2026-08-21", "2026-09-21"}));
    EXPECT_EQ(Posted(once), Dates{"2026-11-01"});
  }
  EXPECT_EQ(State(three), "2026-07-21 x3 posted 3 finished");
  EXPECT_EQ(State(once), "2026-11-01 x1 posted 1 finished");
}

TEST_F(PostingTest, DeletedRowsComeBackAndDetachedOnesDoNotCount) {
  const std::int64_t schedule = Save(Plan("m", "2026-09-10", 3));
  Pass();
  ledger_.Transactions().DeleteTransaction(RowOf(schedule, "2026-10-10"));
  EXPECT_EQ(State(schedule), "2026-09-10 x3 posted 2");
  EXPECT_EQ(Pass().occurrences, 1U);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-09-10", "2026-10-10", "2026-11-10"}));
  ledger_.Schedules().DetachFromSchedule(RowOf(schedule, "2026-11-10"));
  EXPECT_EQ(State(schedule), "2026-09-10 x3 posted 2");
}

TEST_F(PostingTest, ARowThatWasEditedStaysItsOccurrence) {
  const std::int64_t schedule = Save(Plan("m", "2026-11-05", 2));
  Pass();
  TransactionRecord row = *ledger_.Transactions().ReadTransaction(RowOf(schedule, "2026-11-05"));
  row.date = Day("2026-11-09");
  row.accountId = savings_;
  row.amount = -41;
  ledger_.Transactions().SaveTransaction(row);
  EXPECT_EQ(Pass().occurrences, 0U);
  EXPECT_EQ(Posted(schedule), (Dates{"2026-11-05", "2026-12-05"}));
}

TEST_F(PostingTest, ClosedAccountsGetNothing) {
  const std::int64_t own = Save(Plan("m", "2026-11-05"));
  ScheduleRecord into = Plan("m", "2026-11-05");
  into.accountId = euros_;
  into.transferAccountId = bank_;
  const std::int64_t receiving = Save(into);
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = " + std::to_string(bank_));
  EXPECT_EQ(Pass().occurrences, 0U);
  EXPECT_EQ(Post(own, "2026-11-05"), OccurrenceResult::ClosedAccount);
  EXPECT_EQ(Skip(receiving, "2026-11-05"), OccurrenceResult::ClosedAccount);
  Run("UPDATE tblAccounts SET CloseAccount = 0");
  rates_.Answer(1.0);
  EXPECT_EQ(Pass().occurrences, 4U);
}

// As another program may leave it: one of the accounts is not in the file.
TEST_F(PostingTest, AccountsThatAreGoneGetNothing) {
  ScheduleRecord plan = Plan("m", "2026-11-05");
  plan.transferAccountId = savings_;
  const std::int64_t into = Save(plan);
  const std::int64_t own = Save(Plan("m", "2026-11-05"));
  Run("UPDATE tblSchedule SET TfrAccountID = 999 WHERE ScheduleID = " + std::to_string(into));
  Run("UPDATE tblSchedule SET AccountID = 999 WHERE ScheduleID = " + std::to_string(own));
  EXPECT_EQ(Pass().occurrences, 0U);
  EXPECT_EQ(Post(into, "2026-11-05"), OccurrenceResult::ClosedAccount);
  EXPECT_EQ(Post(own, "2026-11-05"), OccurrenceResult::ClosedAccount);
  Run("DELETE FROM tblSchedule");
}

TEST_F(PostingTest, SplitLinesGoWithTheirSchedule) {
  const std::int64_t schedule = Save(Plan("m", "2026-11-05", 2));
  SaveLine(schedule, -25.5, "Flat");
  SaveLine(schedule, -10, "Garage");
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(schedule)->amount, -35.5);
  Pass();
  for (const char* due : {"2026-11-05", "2026-12-05"}) {
    const std::int64_t row = RowOf(schedule, due);
    EXPECT_EQ(Amount(row), -35.5);
    const auto lines = ledger_.Transactions().SplitLines(row);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].description, "Flat");
    EXPECT_EQ(lines[0].amount, -25.5);
    EXPECT_EQ(lines[0].date, Day(due));
    EXPECT_EQ(lines[1].amount, -10);
    EXPECT_EQ(lines[1].payeeId, payee_);
    EXPECT_EQ(lines[1].scheduleId, 0);
  }
  EXPECT_EQ(Pass().occurrences, 0U);
}

TEST_F(PostingTest, TransfersHaveTheirOtherHalf) {
  ScheduleRecord plan = Plan("m", "2026-11-05", 2);
  plan.transferAccountId = savings_;
  const std::int64_t schedule = Save(plan);
  Pass();
  const auto own = ledger_.Transactions().ReadTransaction(RowOf(schedule, "2026-11-05"));
  const auto other = ledger_.Transactions().ReadTransaction(own->transferId);
  ASSERT_TRUE(other);
  EXPECT_EQ(other->transferId, own->transactionId);
  EXPECT_EQ(other->accountId, savings_);
  EXPECT_EQ(other->amount, 40);
  EXPECT_EQ(other->category, "Credit");
  EXPECT_EQ(other->payeeId, payee_);
  EXPECT_EQ(other->paymentId, payment_);
  EXPECT_EQ(other->reference, "R1");
  EXPECT_EQ(other->description, "It's rent");
  EXPECT_EQ(other->date, Day("2026-11-05"));
  EXPECT_EQ(other->scheduleId, schedule);
  EXPECT_FALSE(other->scheduleDate);
  EXPECT_EQ(Posted(schedule).size(), 2U);
  EXPECT_EQ(State(schedule), "2026-11-05 x2 posted 2 finished");
  EXPECT_TRUE(rates_.Asked().empty());
  // One half goes with the other, and both come back.
  ledger_.Transactions().DeleteTransaction(other->transactionId);
  EXPECT_EQ(Posted(schedule).size(), 1U);
  EXPECT_EQ(Pass().occurrences, 1U);
}

TEST_F(PostingTest, TransfersBetweenCurrenciesAskForARateEach) {
  ScheduleRecord plan = Plan("m", "2026-10-05", 3);
  plan.transferAccountId = euros_;
  plan.amount = -33.33;
  const std::int64_t schedule = Save(plan);
  rates_.Answer(1.15);
  EXPECT_EQ(Pass().waiting, 0U);
  EXPECT_EQ(rates_.Asked(), (std::vector<std::string>{"GBPEUR", "GBPEUR", "GBPEUR"}));
  const auto own = ledger_.Transactions().ReadTransaction(RowOf(schedule, "2026-11-05"));
  EXPECT_EQ(own->amount, -33.33);
  EXPECT_EQ(Amount(own->transferId), 38.33);
}

TEST_F(PostingTest, ATransferOfWhichNothingArrivesIsPostedAllTheSame) {
  ScheduleRecord plan = Plan("m", "2026-11-05", 1);
  plan.transferAccountId = euros_;
  plan.amount = -0.01;
  const std::int64_t schedule = Save(plan);
  rates_.Answer(0.3);
  EXPECT_EQ(Pass().occurrences, 1U);
  const auto own = ledger_.Transactions().ReadTransaction(RowOf(schedule, "2026-11-05"));
  EXPECT_EQ(own->amount, -0.01);
  EXPECT_EQ(Amount(own->transferId), 0);
  EXPECT_EQ(Pass().occurrences, 0U);
}

TEST_F(PostingTest, WithoutARateAPaymentStaysPendingUntilThereIsOne) {
  MoveDates(true);
  ScheduleRecord plan = Plan("m", "2026-10-05", 3);
  plan.transferAccountId = euros_;
  const std::int64_t first = Save(plan);
  const std::int64_t second = Save(plan);
  const std::int64_t ordinary = Save(Plan("m", "2026-11-05", 1));
  store_.platform.prompts.ExpectTell("Download Currency", "Could not connect to website");
  const PostingResult result = Pass();
  EXPECT_EQ(result.waiting, 6U);
  EXPECT_EQ(result.occurrences, 1U);
  EXPECT_EQ(rates_.Asked().size(), 1U);
  EXPECT_EQ(Posted(first).size(), 0U);
  EXPECT_EQ(State(first), "2026-10-05 x3 posted 0") << "the start stays before it";
  EXPECT_EQ(Posted(ordinary).size(), 1U);
  store_.platform.prompts.ExpectTell("Download Currency", "Could not connect to website");
  EXPECT_EQ(Post(second, "2026-10-05"), OccurrenceResult::NoRate);
  EXPECT_EQ(Count("tblTransactions"), 1);
  rates_.Answer(1.5);
  EXPECT_EQ(Pass().occurrences, 6U);
  EXPECT_EQ(Amount(ledger_.Transactions().ReadTransaction(RowOf(second, "2026-10-05"))->transferId),
            60);
}

TEST_F(PostingTest, ARateOfAnotherDayServesAndItsDayIsSaidOnce) {
  ScheduleRecord plan = Plan("m", "2026-10-05", 3);
  plan.transferAccountId = euros_;
  plan.amount = -10;
  const std::int64_t schedule = Save(plan);
  rates_.Answer(RateAnswer{1.5, Date::FromIso("2026-09-30"), "The rate of 30/09/2026 was used."});
  store_.platform.prompts.ExpectTell("Download Currency", "The rate of 30/09/2026 was used.");
  EXPECT_EQ(Pass().occurrences, 3U);
  const auto own = ledger_.Transactions().ReadTransaction(RowOf(schedule, "2026-11-05"));
  EXPECT_EQ(Amount(own->transferId), 15);
}

TEST_F(PostingTest, MoreThanAFewHundredAreAskedFor) {
  // A clock that is eighty years ahead.
  Save(Plan("ww", "2026-11-02"));
  ScheduleRecord transfer = Plan("m", "2026-11-02");
  transfer.transferAccountId = euros_;
  Save(transfer);
  Today("2106-11-21");
  const std::string before = Contents();
  store_.platform.prompts.ExpectAsk(
      "Post Schedules?",
      "There are 5,144 scheduled payments to post, the last of them due on 20/12/2106. Today is "
      "21/11/2106, says the clock. Do you wish to post them all?",
      false);
  EXPECT_TRUE(Pass().declined);
  EXPECT_EQ(Contents(), before);
  EXPECT_TRUE(rates_.Asked().empty()) << "before anything is fetched";
  rates_.Answer(1.5);
  EXPECT_EQ(AgreedPass().occurrences, 5144U);
}

TEST_F(PostingTest, DatesMoveWithTheirNumber) {
  MoveDates(true);
  const std::int64_t five = Save(Plan("m", "2026-09-30", 5));
  const std::int64_t endless = Save(Plan("2ww", "2026-11-09"));
  const std::int64_t once = Save(Plan("1d", "2026-11-20"));
  Pass();
  EXPECT_EQ(Posted(five), (Dates{"2026-09-30", "2026-10-30", "2026-11-30"}));
  EXPECT_EQ(State(five), "2026-12-30 x2 posted 0");
  EXPECT_EQ(State(endless), "2027-01-04 x0 posted 0");
  EXPECT_EQ(State(once), "2026-11-20 x-1 posted 1 finished");
  const std::string before = Contents();
  Pass();
  EXPECT_EQ(Contents(), before);
  Today("2027-12-01");
  Pass();
  EXPECT_EQ(Posted(five).back(), "2027-01-30");
  EXPECT_EQ(Posted(five).size(), 5U);
  EXPECT_EQ(State(five), "2027-01-30 x-1 posted 1 finished");
  EXPECT_EQ(Posted(once).size(), 1U);
  // Not even when the last row is deleted.
  ledger_.Transactions().DeleteTransaction(RowOf(five, "2027-01-30"));
  Today("2028-12-01");
  Pass();
  EXPECT_EQ(Posted(five).size(), 4U);
}

TEST_F(PostingTest, SwitchingMovingDatesOnAndOffPostsNothingTwice) {
  const std::int64_t schedule = Save(Plan("m", "2026-10-31", 6));
  Pass();
  EXPECT_EQ(State(schedule), "2026-10-31 x6 posted 2");
  MoveDates(true);
  Today("2026-12-31");
  Pass();
  EXPECT_EQ(State(schedule), "2027-02-28 x2 posted 0");
  MoveDates(false);
  Today("2027-12-31");
  Pass();
  EXPECT_EQ(Posted(schedule), (Dates{"2026-10-31", "2026-11-30", "2026-12-30", "2027-01-30",
                                     "2027-02-28", "2027-03-28"}));
  EXPECT_EQ(State(schedule), "2027-02-28 x2 posted 2 finished");
}

TEST_F(PostingTest, OneOccurrenceAtATime) {
  const std::int64_t schedule = Save(Plan("m", "2026-09-15", 4, AddToAccount::No));
  EXPECT_EQ(Post(schedule, "2026-09-16"), OccurrenceResult::NotDue);
  EXPECT_EQ(Post(schedule, "2027-01-15"), OccurrenceResult::NotDue);
  EXPECT_EQ(Post(0, "2026-09-15"), OccurrenceResult::NotDue);
  EXPECT_EQ(Skip(schedule, "2026-10-15"), OccurrenceResult::EarlierPending);
  EXPECT_EQ(Post(schedule, "2026-09-15"), OccurrenceResult::Done);
  EXPECT_EQ(Post(schedule, "2026-09-15"), OccurrenceResult::AlreadyPosted);
  EXPECT_EQ(Skip(schedule, "2026-09-15"), OccurrenceResult::AlreadyPosted);
  EXPECT_EQ(State(schedule), "2026-09-15 x4 posted 1");
  // What is skipped takes what is posted before it along, and stays skipped.
  EXPECT_EQ(Skip(schedule, "2026-10-15"), OccurrenceResult::Done);
  EXPECT_EQ(State(schedule), "2026-11-15 x2 posted 0");
  EXPECT_EQ(Post(schedule, "2026-10-15"), OccurrenceResult::NotDue);
  EXPECT_EQ(Post(schedule, "2026-12-15"), OccurrenceResult::Done);
  EXPECT_EQ(Skip(schedule, "2026-11-15"), OccurrenceResult::Done);
  EXPECT_EQ(State(schedule), "2026-12-15 x1 posted 1 finished");
  EXPECT_EQ(Posted(schedule), (Dates{"2026-09-15", "2026-12-15"}));
}

TEST_F(PostingTest, SkippingTheLastEndsTheSchedule) {
  const std::int64_t once = Save(Plan("1d", "2026-11-15", 1, AddToAccount::No));
  EXPECT_EQ(Skip(once, "2026-11-15"), OccurrenceResult::Done);
  EXPECT_EQ(State(once), "2026-11-15 x-1 posted 0 finished");
  EXPECT_EQ(Post(once, "2026-11-15"), OccurrenceResult::NotDue);
  const std::int64_t automatic = Save(Plan("m", "2026-11-15", 1));
  EXPECT_EQ(Skip(automatic, "2026-11-15"), OccurrenceResult::Done);
  EXPECT_EQ(Pass().occurrences, 0U);
}

TEST_F(PostingTest, OneOccurrenceMovesTheDateOverWhatIsPostedAlone) {
  MoveDates(true);
  const std::int64_t schedule = Save(Plan("m", "2026-09-15", 4, AddToAccount::No));
  EXPECT_EQ(Post(schedule, "2026-10-15"), OccurrenceResult::Done);
  EXPECT_EQ(State(schedule), "2026-09-15 x4 posted 1");
  EXPECT_EQ(Post(schedule, "2026-09-15"), OccurrenceResult::Done);
  EXPECT_EQ(State(schedule), "2026-11-15 x2 posted 0");
}

TEST_F(PostingTest, StoppingAPassPostsNothing) {
  for (int i = 0; i < 5; ++i) Save(Plan("m", "2026-11-05"));
  RecordingProgress& progress = store_.platform.progress;
  progress.SetStatus("Ready");
  const std::string before = Contents();
  // While the schedules are looked at, while rates are fetched, and while rows are written.
  for (const std::size_t yields : {2U, 7U, 13U}) {
    progress.StopAfter(progress.Yields() + yields);
    const PostingResult result = Pass();
    EXPECT_TRUE(result.stopped);
    EXPECT_EQ(result.occurrences, 0U);
    EXPECT_EQ(Contents(), before) << yields;
    EXPECT_FALSE(Db().InTransaction());
  }
  progress.StopAfter(1000);
  EXPECT_EQ(Pass().occurrences, 10U);
  EXPECT_EQ(progress.Texts()[1], "Please wait updating scheduled records...");
  EXPECT_EQ(progress.Status(), "Ready");
  const auto& steps = progress.Steps();
  ASSERT_GE(steps.size(), 6U);
  EXPECT_EQ(steps.back(), std::pair(std::size_t{0}, std::size_t{0}));
  EXPECT_EQ(steps[steps.size() - 2], std::pair(std::size_t{8}, std::size_t{10}));
}

TEST_F(PostingTest, AThousandSchedulesOverTenYears) {
  Transaction all = Db().Begin();
  for (int i = 0; i < 1000; ++i) Save(Plan("q", "2026-11-21"));
  all.Commit();
  LookAhead("10 Years");
  const PostingResult result = AgreedPass();
  EXPECT_EQ(result.schedules, 1000U);
  EXPECT_EQ(result.occurrences, 41000U);
  EXPECT_EQ(Count("tblTransactions WHERE BankSch > 0"), 41000);
  EXPECT_EQ(Pass().occurrences, 0U);
}

TEST_F(PostingTest, TheScheduleThatFailsTakesNothingAlong) {
  const std::int64_t first = Save(Plan("m", "2026-11-05", 2));
  const std::int64_t broken = Save(Plan("m", "2026-11-05", 2));
  // The column of the transaction is as wide, so only a file changed from outside gets here.
  Run("UPDATE tblSchedule SET [Amount] = NULL WHERE ScheduleID = " + std::to_string(broken));
  Run("CREATE UNIQUE INDEX OneAmount ON tblTransactions ([Amount], ScheduleDate)");
  const std::int64_t twice = Save(Plan("m", "2026-11-05", 2));
  // A file that refuses the rows of one schedule must not keep the others out for ever.
  store_.platform.prompts.ExpectTell("Post Schedules", ScriptedPrompts::kAnyText);
  EXPECT_EQ(Pass().occurrences, 4U);
  EXPECT_NE(store_.platform.prompts.Shown().back().text.find("Bank, It's rent"), std::string::npos);
  EXPECT_EQ(Posted(first).size(), 2U);
  EXPECT_EQ(Posted(broken).size(), 2U);
  EXPECT_EQ(Posted(twice).size(), 0U);
  EXPECT_FALSE(Db().InTransaction());
  EXPECT_EQ(store_.platform.progress.Status(), "");
  // One that is posted alone leaves nothing open either, while the program goes on.
  SchedulePosting posting(ledger_, store_.platform.Get(), rates_);
  EXPECT_THROW(posting.PostOccurrence(twice, Day("2026-11-05")), std::exception);
  EXPECT_FALSE(Db().InTransaction());
}

TEST_F(PostingTest, APassIsOneStepToUndo) {
  ledger_.Undo().Start();
  Save(Plan("m", "2026-11-05", 2));
  const std::string before = Contents();
  MoveDates(true);
  Pass();
  const std::string after = Contents();
  EXPECT_EQ(ledger_.Undo().UndoName(), "Post Schedules");
  ledger_.Undo().Undo();
  EXPECT_EQ(Contents(), before);
  ledger_.Undo().Redo();
  EXPECT_EQ(Contents(), after);
  Pass();
  EXPECT_EQ(ledger_.Undo().UndoName(), "Post Schedules");
  EXPECT_FALSE(ledger_.Undo().CanRedo());
}

// Whatever the schedules, days and settings: a pass leaves nothing for the next one, posts nothing
// twice and never more than the number of payments.
TEST_F(PostingTest, RandomSchedules) {
  std::mt19937 random(20261121);
  const auto pick = [&](int below) { return static_cast<int>(random() % unsigned(below)); };
  const std::vector<PeriodRecord> periods = ledger_.References().Periods();
  rates_.Answer(1.25);
  for (int round = 0; round < 12; ++round) {
    std::vector<std::pair<std::int64_t, int>> limited;
    for (int i = 0; i < 8; ++i) {
      ScheduleRecord plan = Plan("m", "2026-01-01", pick(3) == 0 ? 0 : 1 + pick(20),
                                 static_cast<AddToAccount>(pick(3)));
      plan.periodId = periods[static_cast<std::size_t>(pick(11))].periodId;
      plan.dateFrom = Day("2026-01-01").AddDays(pick(700));
      const int kind = pick(3);
      if (kind == 1) plan.transferAccountId = pick(2) == 0 ? savings_ : euros_;
      const std::int64_t schedule = Save(plan);
      if (kind == 2) SaveLine(schedule, -30), SaveLine(schedule, -10);
      if (plan.noTimes > 0) limited.emplace_back(schedule, plan.noTimes);
    }
    Today(Day("2026-06-01").AddDays(pick(600)).ToIso().c_str());
    LookAhead(round % 4 == 0 ? "None" : round % 4 == 1 ? "1 Month" : "2 Years");
    MoveDates(pick(2) == 0);
    AgreedPass();
    const std::string once = Contents();
    EXPECT_EQ(Pass().occurrences, 0U);
    EXPECT_TRUE(Contents() == once) << "round " << round;
    EXPECT_EQ(LedgerProblems(Db()), std::vector<std::string>{});
    for (const auto& [schedule, number] : limited) {
      EXPECT_LE(Posted(schedule).size(), static_cast<std::size_t>(number));
    }
    Run("DELETE FROM tblTransactions");
    Run("DELETE FROM tblSchedule");
  }
}

}  // namespace
}  // namespace corvanta
