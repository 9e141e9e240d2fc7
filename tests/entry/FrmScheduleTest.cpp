#include "entry/FrmAccountTrans.h"
#include "entry/FrmEntryTest.h"
#include "entry/FrmSchedule.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/register/StatusFilter.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"

#include <QCheckBox>

namespace corvanta {
namespace {

constexpr const char* kClosing =
    "Allocated items do not match total amount. Do you want to update the total amount?";

class Schedule : public FrmEntryTest {
 protected:
  // A form on the schedule of that key, or on a new one in the bank account.
  std::unique_ptr<FrmSchedule> Open(std::int64_t key = 0) {
    auto form = std::make_unique<FrmSchedule>(Place(), bank_);
    EXPECT_TRUE(form->Open(key));
    Show(*form);
    return form;
  }
  // Monthly from today on, without end.
  std::int64_t AddSchedule(double amount = -25, int noTimes = 0) {
    ScheduleRecord record;
    record.accountId = bank_;
    record.categoryId = ledger_.Categories().FindCategory("Shopping", "Food");
    record.payeeId = ledger_.References().FindOrCreatePayee("Landlord");
    record.paymentId = ledger_.References().FindOrCreatePayment("Card");
    record.periodId = store_.Number("Select PeriodID from tblPeriods Where Period = 'm'");
    record.amount = amount;
    record.dateFrom = Today();
    record.noTimes = noTimes;
    return ledger_.Schedules().SaveSchedule(record);
  }
  // A row that stands for the schedule's first payment.
  std::int64_t AddPosted(std::int64_t schedule) {
    const std::int64_t key = AddRow(bank_, -25);
    store_.Db().Execute("UPDATE tblTransactions SET BankSch = " + std::to_string(schedule) +
                        ", ScheduleDate = [Date] Where TransactionID = " + std::to_string(key));
    return key;
  }
  ScheduleDetails Stored(std::int64_t key) {
    auto row = ledger_.Schedules().ReadSchedule(key);
    EXPECT_TRUE(row) << key;
    return row.value_or(ScheduleDetails());
  }
  std::int64_t LastSchedule() { return store_.Number("Select Max(ScheduleID) from tblSchedule"); }
  static std::string NextOf(const QWidget& form) {
    return Find<QLabel>(form, "lblNext").text().toStdString();
  }
  static void Share(const QWidget& split, const QString& category, const QString& amount) {
    Put(split, "cmbCategory", category);
    Put(split, "txtAmount", amount);
    Click(split, "cmdAccept");
  }
};

TEST_F(Schedule, EachRuleIsToldInItsOrderAndFocusesItsField) {
  const auto form = Open();
  const std::string before = Everything();
  const auto refused = [&](const char* text, const char* field) {
    ExpectRefused(*form, text, field);
  };
  Find<QComboBox>(*form, "cmbType").setCurrentIndex(-1);
  Find<QComboBox>(*form, "cmbPeriod").setCurrentIndex(-1);
  Put(*form, "cmbAccount", {});
  refused("You need to select a Frequency", "cmbPeriod");
  Pick(*form, "cmbPeriod", "Monthly");
  for (const char* amount : {"0", "", "x", "5/0"}) {
    Put(*form, "txtAmount", amount);
    refused("You need to enter a valid Amount", "txtAmount");
  }
  Put(*form, "txtAmount", "5");
  refused("You need to select a Type", "cmbType");
  Pick(*form, "cmbType", "Expense");
  ExpectNamesNeeded(*form, [&] {
    refused("You need to select an Account / Transfer From", "cmbAccount");
    Put(*form, "cmbAccount", "bank");
  });
  Pick(*form, "cmbType", "Transfer");
  refused("You need to select an Account / Transfer To", "cmbAccountTo");
  Put(*form, "cmbAccountTo", "Bank");
  refused("You can not transfer to the the same Account", "cmbAccountTo");
  Put(*form, "cmbAccountTo", "Euro");
  Put(*form, "txtAmount", "10,000,000,000,000");
  refused("You need to enter a valid Amount", "txtAmount");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "10,000,000,000,000");
  Put(*form, "cmbAccountTo", "Bank");
  // Whatever the type, the amount comes first.
  Put(*form, "txtAmount", "0");
  refused("You need to enter a valid Amount", "txtAmount");
  EXPECT_EQ(Everything(), before);
}

TEST_F(Schedule, ANewOneHasItsDefaultsAndItsTypeItsLayout) {
  const auto form = Open();
  EXPECT_EQ(form->windowTitle(), "Add Schedule");
  EXPECT_EQ(FocusOf(*form), "cmbPeriod");
  EXPECT_EQ(TextOfField(*form, "cmbAccount"), "Bank");
  EXPECT_EQ(TextOfField(*form, "cmbType"), "Expense");
  EXPECT_EQ(TextOfField(*form, "dtFrom"), "21/11/2026");
  EXPECT_EQ(TextOfField(*form, "txtNumber"), "0");
  EXPECT_FALSE(Find<QCheckBox>(*form, "chkAutomated").isChecked());
  EXPECT_EQ(Find<QCheckBox>(*form, "chkAutomated").text().remove(u'&'),
            "Add to Account Automatically");
  EXPECT_EQ(Find<QCheckBox>(*form, "chkAutomated").toolTip(),
            "Selecting this option Schedule transactions will be added when due.");
  EXPECT_EQ(Find<QPushButton>(*form, "cmdAllocate").toolTip(), "Allocate Item");
  EXPECT_FALSE(Find<QWidget>(*form, "cmdDelete").isVisible());
  EXPECT_EQ(Find<QLabel>(*form, "lblCurrency").text(), "GBP");
  Put(*form, "cmbAccount", "Euro");
  EXPECT_EQ(Find<QLabel>(*form, "lblCurrency").text(), "EUR");
  Pick(*form, "cmbType", "Transfer");
  EXPECT_FALSE(Find<QWidget>(*form, "cmbPayee").isVisible());
  EXPECT_TRUE(Find<QWidget>(*form, "cmbAccountTo").isVisible());
  EXPECT_EQ(Find<QWidget>(*form, "cmbAccount").accessibleName(), "From");
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "Credit");
  Pick(*form, "cmbType", "Income");
  EXPECT_TRUE(Find<QWidget>(*form, "cmbPayee").isVisible());
  EXPECT_FALSE(Find<QWidget>(*form, "cmbAccountTo").isVisible());
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "");
  EXPECT_EQ(Find<QPushButton>(*form, "cmdAllocate").text(), "&Allocate...");
}

TEST_F(Schedule, EveryColumnIsSavedAndShownAgain) {
  auto form = Open();
  FillExpense(*form, "Landlord");
  Pick(*form, "cmbType", "Income");
  Pick(*form, "cmbPeriod", "Weekly");
  Put(*form, "dtFrom", "5/12/26");
  Put(*form, "txtNumber", "12");
  Put(*form, "txtReference", "R'1");
  Put(*form, "txtDescription", "Lodger");
  Find<QCheckBox>(*form, "chkAutomated").click();
  Click(*form, "cmdAccept");
  const ScheduleDetails row = Stored(form->SavedKey());
  EXPECT_EQ(row.accountId, bank_);
  EXPECT_EQ(row.amount, 25);
  EXPECT_EQ(row.payee, "Landlord");
  EXPECT_EQ(row.payment, "Card");
  EXPECT_EQ(row.subCategory, "Food");
  EXPECT_EQ(row.period, "ww");
  EXPECT_EQ(row.dateFrom.ToIso(), "2026-12-05");
  EXPECT_EQ(row.noTimes, 12);
  EXPECT_EQ(row.addToAccount, AddToAccount::Ahead);
  EXPECT_EQ(row.reference, "R'1");
  EXPECT_EQ(row.description, "Lodger");
  EXPECT_EQ(row.transferAccountId, 0);
  EXPECT_EQ(Count("tblTransactions"), 0) << "posting is another matter";
  EXPECT_TRUE(form->isVisible());
  EXPECT_EQ(NoteOf(*form), "“Landlord, 25.00” was saved.");
  EXPECT_EQ(TextOfField(*form, "cmbPayee"), "") << "cleared for the next";
  EXPECT_EQ(TextOfField(*form, "txtNumber"), "0");

  form = Open(form->SavedKey());
  EXPECT_EQ(form->windowTitle(), "Edit Schedule");
  EXPECT_EQ(TextOfField(*form, "cmbType"), "Income");
  EXPECT_EQ(TextOfField(*form, "cmbPeriod"), "Weekly");
  EXPECT_EQ(TextOfField(*form, "dtFrom"), "05/12/2026");
  EXPECT_EQ(TextOfField(*form, "txtNumber"), "12");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "25.00");
  EXPECT_EQ(TextOfField(*form, "txtDescription"), "Lodger");
  EXPECT_TRUE(Find<QCheckBox>(*form, "chkAutomated").isChecked());
  Type(*form, "txtAmount", "30");
  Click(*form, "cmdAccept");
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(Stored(form->SavedKey()).amount, 30);
  EXPECT_EQ(Stored(form->SavedKey()).period, "ww");
  EXPECT_EQ(Count("tblSchedule"), 1);
}

TEST_F(Schedule, EnterSavesFromEveryField) {
  for (const char* field : {"cmbAccount", "cmbType", "cmbPeriod", "dtFrom", "txtNumber", "cmbPayee",
                            "cmbCategory", "cmbSubCategory", "cmbPayment", "txtAmount",
                            "txtReference", "txtDescription", "chkAutomated"}) {
    const std::int64_t before = Count("tblSchedule");
    const auto form = Open();
    FillExpense(*form, "Landlord");
    Find<QWidget>(*form, field).setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Count("tblSchedule"), before + 1) << field;
  }
}

TEST_F(Schedule, OnceHasOnePayment) {
  const auto form = Open();
  Type(*form, "txtNumber", "6");
  Pick(*form, "cmbPeriod", "Once");
  EXPECT_EQ(TextOfField(*form, "txtNumber"), "1");
  Pick(*form, "cmbPeriod", "Weekly");
  EXPECT_EQ(TextOfField(*form, "txtNumber"), "6") << "passed on the way";
  Pick(*form, "cmbPeriod", "Once");
  FillExpense(*form, "Landlord");
  Click(*form, "cmdAccept");
  EXPECT_EQ(Stored(form->SavedKey()).noTimes, 1);
}

TEST_F(Schedule, TheNumberOfPaymentsIsWhole) {
  const auto form = Open();
  auto& field = Find<QLineEdit>(*form, "txtNumber");
  const auto left = [&](const char* typed) {
    Type(*form, "txtNumber", typed);
    Find<QWidget>(*form, "dtFrom").setFocus();
    return field.text().toStdString();
  };
  Type(*form, "txtNumber", "-1a2.4");
  EXPECT_EQ(field.text(), "12.4") << "neither minus nor letters can be typed";
  EXPECT_EQ(left("12.4"), "12");
  EXPECT_EQ(left("2.5"), "3");
  EXPECT_EQ(left("*"), "0");
  EXPECT_EQ(left(""), "0");
  for (const auto& [pasted, shown] :
       {std::pair("twelve", "0"), std::pair("-5", "5"), std::pair("99999999999", "1,000,000")}) {
    field.setFocus();
    field.selectAll();
    field.insert(pasted);
    Find<QWidget>(*form, "dtFrom").setFocus();
    EXPECT_EQ(field.text(), shown) << pasted;
  }
  FillExpense(*form, "Landlord");
  Type(*form, "txtNumber", "2.5");
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(Stored(form->SavedKey()).noTimes, 3) << "not left before it is saved";
}

TEST_F(Schedule, TheTickSaysWhetherAndTheChoiceHowFarItPosts) {
  const auto saved = [&](bool isTicked, const char* choice) {
    const auto form = Open();
    FillExpense(*form, "Landlord");
    if (isTicked) Find<QCheckBox>(*form, "chkAutomated").click();
    EXPECT_EQ(Find<QWidget>(*form, "cmbAutomated").isEnabled(), isTicked);
    if (choice != nullptr) Pick(*form, "cmbAutomated", choice);
    Click(*form, "cmdAccept");
    return form->SavedKey();
  };
  EXPECT_EQ(Stored(saved(false, nullptr)).addToAccount, AddToAccount::No);
  EXPECT_EQ(Stored(saved(true, nullptr)).addToAccount, AddToAccount::Ahead);
  const std::int64_t key = saved(true, "when due");
  EXPECT_EQ(Stored(key).addToAccount, AddToAccount::WhenDue);
  const auto form = Open(key);
  EXPECT_TRUE(Find<QCheckBox>(*form, "chkAutomated").isChecked());
  EXPECT_EQ(TextOfField(*form, "cmbAutomated"), "when due");
  Click(*form, "cmdAccept");
  EXPECT_EQ(Stored(key).addToAccount, AddToAccount::WhenDue);
}

TEST_F(Schedule, ATransferNamesTheAccountThatReceivesIt) {
  auto form = Open();
  Pick(*form, "cmbType", "Transfer");
  Put(*form, "cmbAccountTo", "Euro");
  Put(*form, "cmbPayment", "Card");
  Put(*form, "txtAmount", "100");
  Click(*form, "cmdAccept");
  const ScheduleDetails row = Stored(form->SavedKey());
  EXPECT_EQ(row.amount, -100) << "of the account it leaves; no rate is fetched before it is posted";
  EXPECT_EQ(row.accountId, bank_);
  EXPECT_EQ(row.transferAccountId, euro_);
  EXPECT_EQ(row.category, "Credit");
  form = Open(row.scheduleId);
  EXPECT_EQ(TextOfField(*form, "cmbType"), "Transfer");
  EXPECT_EQ(TextOfField(*form, "cmbAccountTo"), "Euro");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "100.00");
  Prompt().ExpectTell("Allocate Item Warning",
                      "Please select a Type (Not Transfer) to allocate an Item");
  Click(*form, "cmdAllocate");
}

TEST_F(Schedule, ASavedOneIsSplitAtOnce) {
  const std::int64_t key = AddSchedule(-100);
  const auto form = Open(key);
  Put(*form, "txtAmount", "0");
  Prompt().ExpectTell("Allocate Item Warning", "Please select a valid value for Amount");
  Click(*form, "cmdAllocate");
  EXPECT_EQ(FocusOf(*form), "txtAmount");
  Put(*form, "txtAmount", "100");
  Prompt().ExpectAsk("Exit Allocate Items?", kClosing, true);
  InNextDialog([](QDialog& split) {
    EXPECT_EQ(TextOfField(split, "txtAmount"), "-100.00");
    Share(split, "Gifts", "-60");
    Share(split, "Shopping", "-30");
    QTest::keyClick(&split, Qt::Key_Escape);
  });
  Click(*form, "cmdAllocate");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "90.00") << "read back";
  Click(*form, "cmdAccept");
  EXPECT_EQ(Stored(key).amount, -90);
  const auto lines = ledger_.Schedules().ScheduleLines(key);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].amount, -60);
  EXPECT_EQ(lines[0].category, "Gifts");
  EXPECT_EQ(lines[1].amount, -30);
  EXPECT_EQ(Count("tblTransactions"), 0);
  QTimer::singleShot(0, qApp, [] {
    auto* shown = QApplication::activeModalWidget();
    EXPECT_EQ(TextOfField(*shown, "txtAmount"), "90.00") << "of a line: its parent";
    shown->close();
  });
  EXPECT_FALSE(OpenSchedule({lines[0].scheduleId, bank_, {}}, Place()).isChanged);
}

TEST_F(Schedule, ANewOneIsSavedBeforeItIsSplit) {
  const auto form = Open();
  Put(*form, "txtAmount", "100");
  Prompt().ExpectTell("Save Warning", "You need to enter a Payment Type");
  Click(*form, "cmdAllocate");
  EXPECT_EQ(Count("tblSchedule"), 0);
  FillExpense(*form, "Landlord");
  Put(*form, "txtAmount", "100");
  InNextDialog([](QDialog& split) { Share(split, "Gifts", "-100"); });
  Click(*form, "cmdAllocate");
  EXPECT_EQ(form->windowTitle(), "Edit Schedule");
  EXPECT_EQ(TextOfField(*form, "cmbPayee"), "Landlord");
  EXPECT_EQ(ledger_.Schedules().ScheduleLines(form->SavedKey()).size(), 1U);
  Click(*form, "cmdAccept");
  EXPECT_EQ(Count("tblSchedule Where AllocatedItem = 0"), 1);
}

TEST_F(Schedule, DeletingAsksAndOffersToDeleteWhatItPosted) {
  constexpr const char* kAsked = "Do you wish to delete this item?";
  constexpr const char* kRows = "Do you also wish to delete the transaction posted from it?";
  const auto deleted = [&](std::int64_t key) {
    const auto form = Open(key);
    Click(*form, "cmdDelete");
    return !form->isVisible();
  };
  const std::int64_t first = AddSchedule();
  const std::int64_t kept = AddPosted(first);
  Prompt().ExpectAsk("Delete Item?", kAsked, false);
  EXPECT_FALSE(deleted(first));
  EXPECT_TRUE(ledger_.Schedules().ReadSchedule(first));
  Prompt().ExpectAsk("Delete Item?", kAsked, true);
  Prompt().ExpectAsk("Delete Item?", kRows, false);
  EXPECT_TRUE(deleted(first));
  EXPECT_FALSE(ledger_.Schedules().ReadSchedule(first));
  EXPECT_EQ(Row(kept).scheduleId, 0);
  const std::int64_t second = AddSchedule();
  const std::int64_t gone = AddPosted(second);
  Prompt().ExpectAsk("Delete Item?", kAsked, true);
  Prompt().ExpectAsk("Delete Item?", kRows, true);
  EXPECT_TRUE(deleted(second));
  EXPECT_FALSE(ledger_.Transactions().ReadTransaction(gone));
  EXPECT_EQ(Count("tblSchedule"), 0);
}

TEST_F(Schedule, ItsNextPaymentsFollowFrequencyStartAndNumber) {
  const auto form = Open();
  Put(*form, "dtFrom", "31/12/2026");
  EXPECT_EQ(NextOf(*form), "31/12/2026, 31/01/2027, 28/02/2027 …\nWithout end");
  Type(*form, "txtNumber", "12");
  EXPECT_EQ(NextOf(*form),
            "31/12/2026, 31/01/2027, 28/02/2027 …\n"
            "12 payments, the last on 28/11/2027")
      << "while it is typed";
  Pick(*form, "cmbPeriod", "Annually");
  Type(*form, "txtNumber", "2");
  EXPECT_EQ(NextOf(*form), "31/12/2026, 31/12/2027\n2 payments, the last on 31/12/2027");
  Pick(*form, "cmbPeriod", "Once");
  EXPECT_EQ(NextOf(*form), "31/12/2026\nOne payment");
  Type(*form, "txtNumber", "0");
  EXPECT_EQ(NextOf(*form), "31/12/2026\nOne payment");
  Pick(*form, "cmbPeriod", "Daily");
  Put(*form, "dtFrom", "19/11/2026");
  EXPECT_EQ(NextOf(*form),
            "Overdue: 19/11/2026 and 1 more\n21/11/2026, 22/11/2026, 23/11/2026 …\nWithout end");
  Type(*form, "txtNumber", "2");
  EXPECT_EQ(NextOf(*form), "Overdue: 19/11/2026 and 1 more\n2 payments, the last on 20/11/2026");
  Type(*form, "txtNumber", "900000");
  EXPECT_EQ(NextOf(*form),
            "Overdue: 19/11/2026 and 1 more\n21/11/2026, 22/11/2026, 23/11/2026 …\n"
            "900000 payments");
  Pick(*form, "cmbPeriod", "Weekly");
  Put(*form, "dtFrom", "14/11/2026");
  Type(*form, "txtNumber", "4");
  EXPECT_EQ(NextOf(*form),
            "Overdue: 14/11/2026\n21/11/2026, 28/11/2026, 05/12/2026\n"
            "4 payments, the last on 05/12/2026");
}

TEST_F(Schedule, ItsDayRulesAreShownSavedAndLookedAheadWith) {
  auto form = Open();
  FillExpense(*form, "Landlord");
  Put(*form, "dtFrom", "10/01/2027");
  auto& monthEnd = Find<QCheckBox>(*form, "chkMonthEnd");
  EXPECT_TRUE(monthEnd.isEnabled());
  monthEnd.click();
  EXPECT_EQ(NextOf(*form), "31/01/2027, 28/02/2027, 31/03/2027 …\nWithout end");
  Pick(*form, "cmbWeekend", "working day before");
  EXPECT_EQ(NextOf(*form), "29/01/2027, 26/02/2027, 31/03/2027 …\nWithout end");
  Pick(*form, "cmbPeriod", "Weekly");
  EXPECT_FALSE(monthEnd.isEnabled()) << "a week has no last day of the month";
  EXPECT_EQ(NextOf(*form), "08/01/2027, 15/01/2027, 22/01/2027 …\nWithout end");
  Pick(*form, "cmbPeriod", "Quarterly");
  Click(*form, "cmdAccept");
  const std::int64_t key = form->SavedKey();
  EXPECT_TRUE(Stored(key).days.isMonthEnd);
  EXPECT_EQ(Stored(key).days.weekend, WeekendRule::Before);
  EXPECT_EQ(Stored(key).dateFrom.ToIso(), "2027-01-31");
  form = Open(key);
  EXPECT_TRUE(Find<QCheckBox>(*form, "chkMonthEnd").isChecked());
  EXPECT_EQ(TextOfField(*form, "cmbWeekend"), "working day before");
}

TEST_F(Schedule, AnotherPlanIsShownAsItWillBeSaved) {
  ScheduleRecord record = Stored(AddSchedule(-25, 12));
  record.dateFrom = Today().AddDays(-40);
  ledger_.Schedules().SaveSchedule(record);
  TransactionRecord row = Row(AddPosted(record.scheduleId));
  row.date = *(row.scheduleDate = record.dateFrom);
  ledger_.Transactions().SaveTransaction(row);
  const auto form = Open(record.scheduleId);
  Pick(*form, "cmbPeriod", "Quarterly");
  EXPECT_EQ(NextOf(*form).substr(0, 10), "12/01/2027");
  Click(*form, "cmdAccept");
  EXPECT_EQ(Stored(record.scheduleId).dateFrom.ToIso(), "2027-01-12");
  EXPECT_EQ(Stored(record.scheduleId).noTimes, 11);
}

// At twice the size a screen of 1080 lines has 540 for it, the panel and the title.
TEST_F(Schedule, IsLowEnoughForASmallScreen) {
  const auto form = Open();
  EXPECT_LE(form->sizeHint().height(), 470);
  EXPECT_LE(form->sizeHint().width(), 940);
}

TEST_F(Schedule, WhatIsPostedIsNoLongerNamed) {
  const std::int64_t endless = AddSchedule();
  AddPosted(endless);
  EXPECT_EQ(NextOf(*Open(endless)), "21/12/2026, 21/01/2027, 21/02/2027 …\nWithout end, 1 posted");
  const std::int64_t three = AddSchedule(-25, 3);
  AddPosted(three);
  const auto form = Open(three);
  EXPECT_EQ(NextOf(*form), "21/12/2026, 21/01/2027\n2 of 3 payments left, the last on 21/01/2027");
  Type(*form, "txtNumber", "1");
  EXPECT_EQ(NextOf(*form), "No payment is left to post\nOne payment");
}

TEST_F(Schedule, AFinishedOneSaysSoUntilItBeginsAgain) {
  const std::int64_t key = AddSchedule(-25, -3);
  const auto form = Open(key);
  EXPECT_EQ(NextOf(*form), "Finished, every payment is posted or skipped");
  Put(*form, "dtFrom", "01/01/2027");
  EXPECT_EQ(NextOf(*form),
            "01/01/2027, 01/02/2027, 01/03/2027\n3 payments, the last on 01/03/2027");
  Click(*form, "cmdAccept");
  EXPECT_EQ(Stored(key).noTimes, 3);
}

TEST_F(Schedule, ATransactionFillsANewOne) {
  FrmAccountTrans row(Place(), cash_);
  row.Open(0);
  Show(row);
  FillExpense(row, "Landlord");
  Pick(row, "cmbType", "Income");
  Put(row, "txtDate", "05/12/2026");
  Put(row, "txtReference", "R1");
  Put(row, "txtDescription", "Lodger");
  InNextDialog([](QDialog& form) {
    EXPECT_EQ(form.objectName(), "FrmSchedule");
    EXPECT_EQ(form.windowTitle(), "Add Schedule");
    EXPECT_EQ(TextOfField(form, "dtFrom"), "05/12/2026");
    Click(form, "cmdAccept");
  });
  Click(row, "cmdAddSchedule");
  EXPECT_TRUE(row.IsScheduleChanged());
  EXPECT_TRUE(row.isVisible());
  EXPECT_EQ(TextOfField(row, "cmbPayee"), "Landlord") << "still to be saved itself";
  const ScheduleDetails saved = Stored(LastSchedule());
  EXPECT_EQ(saved.accountId, cash_);
  EXPECT_EQ(saved.amount, 25);
  EXPECT_EQ(saved.payee, "Landlord");
  EXPECT_EQ(saved.payment, "Card");
  EXPECT_EQ(saved.category, "Shopping");
  EXPECT_EQ(saved.subCategory, "Food");
  EXPECT_EQ(saved.reference, "R1");
  EXPECT_EQ(saved.description, "Lodger");
  EXPECT_EQ(saved.dateFrom.ToIso(), "2026-12-05");
}

TEST_F(Schedule, APostedRowShowsTheScheduleItCameFrom) {
  const std::int64_t key = AddSchedule();
  FrmAccountTrans row(Place(), bank_);
  row.Open(AddPosted(key));
  Show(row);
  EXPECT_EQ(Find<QPushButton>(row, "cmdAddSchedule").text(), "View S&chedule");
  InNextDialog([](QDialog& form) {
    EXPECT_EQ(form.windowTitle(), "Edit Schedule");
    EXPECT_EQ(TextOfField(form, "cmbPayee"), "Landlord");
  });
  Click(row, "cmdAddSchedule");
  EXPECT_FALSE(row.IsScheduleChanged()) << "it was only looked at";
  ledger_.Schedules().DeleteSchedule(key, false);
  Prompt().ExpectTell("Schedule Item", "The schedule does not exist any more");
  Click(row, "cmdAddSchedule");
  EXPECT_EQ(Find<QPushButton>(row, "cmdAddSchedule").text(), "Add to Sc&hedule");
}

TEST_F(Schedule, WithoutAnAccountThereIsNothingToSchedule) {
  for (const AccountRow& account : ledger_.Accounts().Accounts(StatusFilter(), true)) {
    ledger_.Accounts().DeleteUnusedAccount(account.accountId);
  }
  Prompt().ExpectTell("Please Add Account",
                      "There are no Accounts set up. Please add an Account to start");
  EXPECT_FALSE(OpenSchedule({}, Place()).isChanged);
}

}  // namespace
}  // namespace corvanta
