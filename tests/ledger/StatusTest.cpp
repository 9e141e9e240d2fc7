#include "ledger/RecordsTest.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/transactions/StatusBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"

namespace corvanta {
namespace {

class Status : public RecordsTest {
 protected:
  StatusFlags After(StatusCommand command, StatusFlags before) {
    TransactionRecord record = Row(bank_, -1);
    record.status = before;
    const std::int64_t key = ledger_.Transactions().SaveTransaction(record);
    const RowMarks marks = ledger_.Statuses().MarksOf(key);
    const bool isTicked = (command == StatusCommand::Uncleared && marks.isUncleared) ||
                          (command == StatusCommand::Cleared && marks.isCleared) ||
                          (command == StatusCommand::Reconciled && marks.isReconciled);
    ledger_.Statuses().ApplyStatus(command, std::vector{key}, isTicked);
    return ledger_.Statuses().MarksOf(key).flags;
  }
};

TEST_F(Status, TheCommandsToggle) {
  struct Case {
    StatusCommand command;
    StatusFlags before;
    StatusFlags after;
  };
  const Case cases[] = {
      {StatusCommand::Uncleared, {0, 0}, {0, 0}},  {StatusCommand::Uncleared, {1, 0}, {0, 0}},
      {StatusCommand::Uncleared, {1, 1}, {0, 0}},  {StatusCommand::Uncleared, {0, 1}, {0, 0}},
      {StatusCommand::Cleared, {0, 0}, {1, 0}},    {StatusCommand::Cleared, {1, 0}, {0, 0}},
      {StatusCommand::Cleared, {1, 1}, {1, 0}},    {StatusCommand::Cleared, {0, 1}, {1, 0}},
      {StatusCommand::Reconciled, {0, 0}, {1, 1}}, {StatusCommand::Reconciled, {1, 0}, {1, 1}},
      {StatusCommand::Reconciled, {1, 1}, {1, 0}}, {StatusCommand::Reconciled, {0, 1}, {1, 1}},
  };
  for (const Case& tested : cases) {
    EXPECT_EQ(After(tested.command, tested.before), tested.after)
        << static_cast<int>(tested.command) << " on " << tested.before.bankChk
        << tested.before.bankRec;
  }
}

TEST_F(Status, MarksTellWhatTheMenuShows) {
  const auto [from, to] = AddTransfer(bank_, savings_, 1);
  EXPECT_EQ(ledger_.Statuses().MarksOf(from).transferId, to);
  EXPECT_TRUE(ledger_.Statuses().MarksOf(from).isUncleared);
  Run("UPDATE tblTransactions SET BankRec = 1, BankChk = 0");
  const RowMarks marks = ledger_.Statuses().MarksOf(from);
  EXPECT_FALSE(marks.isUncleared || marks.isCleared || marks.isReconciled);
  EXPECT_EQ(StatusFrom(marks.flags), TransactionStatus::Reconciled);
}

TEST_F(Status, LinesCarryTheirParentsStatus) {
  const std::int64_t key = Add(bank_, -3);
  const std::int64_t line = AddLine(key, -3);
  const std::int64_t other = Add(bank_, -1);
  ledger_.Statuses().ApplyStatus(StatusCommand::Reconciled, std::vector{key}, false);
  EXPECT_EQ(ledger_.Statuses().MarksOf(line).flags, (StatusFlags{1, 1}));
  ledger_.Statuses().ApplyStatus(StatusCommand::Uncleared, std::vector{line, std::int64_t{4711}},
                                 false);
  EXPECT_EQ(ledger_.Statuses().MarksOf(key).flags, (StatusFlags{0, 0}));
  EXPECT_EQ(ledger_.Statuses().MarksOf(line).flags, (StatusFlags{0, 0}));
  EXPECT_EQ(ledger_.Statuses().MarksOf(other).flags, (StatusFlags{0, 0}));
}

TEST_F(Status, OneColumnIsSetAtATime) {
  const std::int64_t key = Add(bank_, -3);
  ledger_.Statuses().SetStatus(key, 1, 0, 1);
  EXPECT_EQ(ledger_.Statuses().MarksOf(key).flags, (StatusFlags{0, 1}));
  ledger_.Statuses().SetStatus(key, 1, 1, 0);
  EXPECT_EQ(ledger_.Statuses().MarksOf(key).flags, (StatusFlags{1, 1}));
  ledger_.Statuses().SetStatus(0, 0, 1, 1);
  ledger_.Statuses().SetStatus(key, 0, 0, 0);
  EXPECT_EQ(ledger_.Statuses().MarksOf(key).flags, (StatusFlags{1, 1}));
}

TEST_F(Status, SchedulesLetTheirRowsGoOrTakeThemAlong) {
  const auto post = [&](std::int64_t schedule) {
    auto [from, to] = AddTransfer(bank_, savings_, 5);
    Run("UPDATE tblTransactions SET BankSch = " + std::to_string(schedule) +
        " WHERE TransactionID IN (" + std::to_string(from) + "," + std::to_string(to) + ")");
    return std::pair(from, to);
  };
  const std::int64_t schedule = AddSchedule(bank_, -5, savings_);
  const auto kept = post(schedule);
  post(schedule);
  ledger_.Schedules().DetachFromSchedule(kept.first);
  EXPECT_EQ(ledger_.Statuses().MarksOf(kept.first).scheduleId, 0);
  ledger_.Schedules().DeleteSchedule(0, true);
  EXPECT_EQ(Count("tblTransactions"), 4) << "rows entered by hand are nobody's";
  ledger_.Schedules().DeleteSchedule(schedule, true);
  EXPECT_EQ(Count("tblTransactions"), 2);
  EXPECT_TRUE(Exists(kept.second));

  const std::int64_t other = AddSchedule(bank_, -5, savings_);
  const auto left = post(other);
  ledger_.Schedules().DeleteSchedule(other, false);
  EXPECT_EQ(Count("tblSchedule"), 0);
  EXPECT_EQ(ledger_.Statuses().MarksOf(left.first).scheduleId, 0);
}

TEST_F(Status, DeletingASchedulesLineChangesItsAmount) {
  const std::int64_t schedule = AddSchedule(bank_, -10);
  AddSchedule(bank_, -4, 0, schedule);
  const std::int64_t line = AddSchedule(bank_, -6, 0, schedule);
  ledger_.Schedules().DeleteSchedule(line, false);
  EXPECT_EQ(
      Number("SELECT [Amount] FROM tblSchedule WHERE ScheduleID = " + std::to_string(schedule)),
      -4);
  ledger_.Schedules().DeleteSchedule(schedule, false);
  EXPECT_EQ(Count("tblSchedule"), 0);
}

}  // namespace
}  // namespace corvanta
