#include "ledger/PostingTest.h"
#include "ledger/schedules/ReminderSides.h"
#include "ledger/schedules/Reminders.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/schedules/ScheduleRows.h"
#include "ledger/transactions/StatusBook.h"

namespace corvanta {
namespace {

class RemindersTest : public PostingTest {
 protected:
  // "2026-11-05 Bank -40", with a * behind what is posted.
  static Dates Texts(const std::vector<Reminder>& items) {
    Dates texts;
    for (const Reminder& item : items) {
      texts.push_back(item.due.ToIso() + " " + item.account + " " +
                      std::to_string(static_cast<int>(item.amount)) +
                      (item.IsPosted() ? "*" + std::to_string(item.uncleared) : ""));
    }
    return texts;
  }
  ReminderList Look(std::optional<Date> until = Day("2026-11-28"), bool withOverdue = true) {
    return Reminders(ledger_, Day("2026-11-21"), until, withOverdue);
  }
};

TEST_F(RemindersTest, WhatIsDueAndNotPostedStandsInTwoGroups) {
  const std::int64_t weekly = Save(Plan("ww", "2026-11-07", 0, AddToAccount::No));
  Save(Plan("m", "2026-11-29", 0, AddToAccount::No));
  EXPECT_EQ(Texts(Look().overdue), (Dates{"2026-11-07 Bank -40", "2026-11-14 Bank -40"}));
  EXPECT_EQ(Texts(Look().future), (Dates{"2026-11-21 Bank -40", "2026-11-28 Bank -40"}));
  EXPECT_EQ(Look().dueCount, 3U);
  EXPECT_EQ(Texts(Look(std::nullopt).future), (Dates{"2026-11-21 Bank -40"}));
  const Reminder item = Look().overdue.front();
  EXPECT_EQ(item.scheduleId, weekly);
  EXPECT_EQ(item.payee, "Shop");
  EXPECT_EQ(item.currency, "GBP");
  EXPECT_EQ(item.periodName, "Weekly");
  EXPECT_EQ(item.description, "It's rent");

  Skip(weekly, "2026-11-07");
  Post(weekly, "2026-11-14");
  EXPECT_EQ(Texts(Look().overdue), (Dates{"2026-11-14 Bank -40*1"}));
  EXPECT_EQ(Look().dueCount, 1U);
}

TEST_F(RemindersTest, TheLastDayOfTheCalendarHasNoneBehindIt) {
  Save(Plan("d", "9999-12-30", 0, AddToAccount::No));
  const Date last = Date::Last();
  EXPECT_EQ(last, Day("9999-12-31"));
  const ReminderList list = Reminders(ledger_, last, last, true);
  EXPECT_EQ(Texts(list.overdue), (Dates{"9999-12-30 Bank -40"}));
  EXPECT_EQ(Texts(list.future), (Dates{"9999-12-31 Bank -40"}));
}

TEST_F(RemindersTest, PostedItemsStandThereUntilTheyAreCleared) {
  const std::int64_t schedule = Save(Plan("ww", "2026-11-07"));
  Pass();
  EXPECT_EQ(Texts(Look().overdue), (Dates{"2026-11-07 Bank -40*2"}));
  EXPECT_EQ(Texts(Look().future), (Dates{"2026-11-21 Bank -40*1", "2026-11-28 Bank -40*1"}));
  EXPECT_EQ(Look().dueCount, 0U);
  for (const char* due : {"2026-11-07", "2026-11-21"}) {
    ledger_.Statuses().SetStatus(RowOf(schedule, due), 1, 1, 0);
  }
  EXPECT_EQ(Texts(Look().overdue), (Dates{"2026-11-14 Bank -40*1"}));
  EXPECT_EQ(Texts(Look().future), (Dates{"2026-11-28 Bank -40*1"}));
}

TEST_F(RemindersTest, TransfersStandForBothAccounts) {
  ScheduleRecord plan = Plan("m", "2026-11-20", 0, AddToAccount::No);
  plan.transferAccountId = euros_;
  Save(plan);
  const ReminderList list = Look();
  EXPECT_EQ(Texts(list.overdue), (Dates{"2026-11-20 Bank -40", "2026-11-20 Euros 40"}));
  EXPECT_EQ(list.overdue[0].payee, "Euros");
  EXPECT_FALSE(list.overdue[0].needsRate);
  EXPECT_EQ(list.overdue[1].payee, "Bank");
  EXPECT_TRUE(list.overdue[1].needsRate);
  EXPECT_EQ(list.dueCount, 1U);
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = " + std::to_string(euros_));
  EXPECT_TRUE(Look().IsEmpty());
}

TEST_F(RemindersTest, BothSidesOfATransferComeInOneStatement) {
  ScheduleRecord plan = Plan("m", "2026-11-20", 0, AddToAccount::No);
  const std::int64_t plain = Save(plan);
  plan.transferAccountId = euros_;
  const std::int64_t transfer = Save(plan);
  plan.dateFrom = Day("2026-12-24");
  Save(plan);
  const auto sides = ReadReminderSides(Db(), Day("2026-12-23"));
  ASSERT_EQ(sides.size(), 3U);
  EXPECT_EQ(sides[0].scheduleId, plain);
  EXPECT_FALSE(sides[0].isReceiving);
  EXPECT_EQ(sides[1].scheduleId, transfer);
  EXPECT_FALSE(sides[1].isReceiving);
  EXPECT_TRUE(sides[2].isReceiving);
  EXPECT_EQ(sides[2].transferAccountId, euros_);
  EXPECT_EQ(sides[2].from, Day("2026-11-20"));
  EXPECT_EQ(sides[2].amount, -40);
  EXPECT_EQ(sides[2].period, "Monthly");
}

TEST_F(RemindersTest, APaymentWhosePayeeIsGoneIsStillDue) {
  Save(Plan("m", "2026-11-20", 0, AddToAccount::No));
  Run("UPDATE tblSchedule SET PayeeID = 0, AllocatedItem = NULL");
  EXPECT_EQ(Texts(Look().overdue), (Dates{"2026-11-20 Bank -40"}));
}

// Whether an account is closed is not written in an old file.
TEST_F(RemindersTest, EachSideOfATransferStandsThereByItself) {
  ScheduleRecord plan = Plan("m", "2026-11-20", 0, AddToAccount::No);
  plan.transferAccountId = euros_;
  Save(plan);
  const std::string unwritten = "UPDATE tblAccounts SET CloseAccount = NULL WHERE AccountID = ";
  for (const std::int64_t account : {euros_, bank_}) {
    Run(unwritten + std::to_string(account));
    EXPECT_EQ(Texts(Look().overdue), (Dates{"2026-11-20 Bank -40", "2026-11-20 Euros 40"}));
  }
}

TEST_F(RemindersTest, WhatWaitsForARateSaysSo) {
  ScheduleRecord plan = Plan("m", "2026-11-20", 0);
  plan.transferAccountId = euros_;
  Save(plan);
  plan.addToAccount = AddToAccount::No;
  Save(plan);
  const ReminderList list = Look(Day("2026-12-31"));
  ASSERT_EQ(list.overdue.size(), 4U);
  EXPECT_TRUE(list.overdue[0].waitsForRate);
  EXPECT_TRUE(list.overdue[1].waitsForRate);
  EXPECT_FALSE(list.overdue[2].waitsForRate) << "this one waits for a person";
  EXPECT_TRUE(list.future[0].waitsForRate) << "within the look-ahead";
  EXPECT_EQ(HindranceOf(ledger_.Schedules().Schedules()[0]), "waits for an exchange rate");
  EXPECT_EQ(HindranceOf(ledger_.Schedules().Schedules()[1]), "");
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = " + std::to_string(euros_));
  EXPECT_EQ(HindranceOf(ledger_.Schedules().Schedules()[1]), "the receiving account is closed");
}

TEST_F(RemindersTest, AMovedPaymentStandsAtTheDayItIsBooked) {
  ScheduleRecord plan = Plan("m", "2026-11-21", 0, AddToAccount::No);  // a Saturday, today
  plan.days.weekend = WeekendRule::Before;
  Save(plan);
  plan.days.weekend = WeekendRule::After;
  Save(plan);
  const ReminderList list = Look();
  ASSERT_EQ(list.overdue.size(), 1U);
  EXPECT_EQ(list.overdue[0].date, Day("2026-11-20"));
  EXPECT_EQ(list.overdue[0].due, Day("2026-11-21"));
  ASSERT_EQ(list.future.size(), 1U);
  EXPECT_EQ(list.future[0].date, Day("2026-11-23"));
  EXPECT_EQ(list.dueCount, 1U);
}

TEST_F(RemindersTest, OverdueItemsCanBeLeftOut) {
  Save(Plan("ww", "2026-11-07", 0, AddToAccount::No));
  Save(Plan("ww", "2026-11-13"));
  Pass();
  ASSERT_EQ(Look().overdue.size(), 3U);
  const ReminderList list = Look(Day("2026-11-28"), false);
  EXPECT_TRUE(list.overdue.empty());
  EXPECT_EQ(Texts(list.future), Texts(Look().future));
  EXPECT_EQ(list.dueCount, 1U) << "today's";
}

// Due before today, and booked behind the weekend.
TEST_F(RemindersTest, APostedPaymentThatIsStillToComeIsNotOverdue) {
  ScheduleRecord plan = Plan("m", "2026-11-21");
  plan.days.weekend = WeekendRule::After;
  Save(plan);
  Pass();
  for (const bool withOverdue : {true, false}) {
    const ReminderList list = Reminders(ledger_, Day("2026-11-22"), Day("2026-11-28"), withOverdue);
    EXPECT_TRUE(list.overdue.empty());
    EXPECT_EQ(Texts(list.future), (Dates{"2026-11-21 Bank -40*1"}));
  }
}

TEST_F(RemindersTest, NothingOfFinishedSchedules) {
  const std::int64_t once = Save(Plan("1d", "2026-11-20", 1, AddToAccount::No));
  EXPECT_EQ(Look().dueCount, 1U);
  Skip(once, "2026-11-20");
  EXPECT_TRUE(Look().IsEmpty());
}

}  // namespace
}  // namespace corvanta
