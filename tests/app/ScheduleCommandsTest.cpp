#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "controls/SortedTable.h"
#include "support/DialogTest.h"
#include "support/LedgerProblems.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>

namespace corvanta {
namespace {

constexpr int kLong = 60000;  // on a busy machine; it does not take that long

// Schedules, their posting and the reminders, from the main window.
class ScheduleCommands : public DialogTest<WindowTest> {
 protected:
  void Start() {
    OpenPurse();
    ShowWindow();
    Trigger("mnuViewReminders");
    BringForward();
  }
  void TearDown() override {
    if (!session_.IsOpen()) return;
    EXPECT_EQ(LedgerProblems(session_.Ledger().Store()), std::vector<std::string>());
  }
  // A monthly payment that begins so many months from today.
  std::int64_t AddSchedule(int months, double amount, AddToAccount add) {
    return AddRent(machine_.clock.Today().AddDays(30 * months), amount, add);
  }
  SortedTable& List() { return WindowTest::Find<SortedTable>("lvschedule"); }
  QTreeWidget& Reminders() { return WindowTest::Find<QTreeWidget>("tvReminders"); }
  int Posted() {
    return static_cast<int>(
        session_.Ledger()
            .Store()
            .QueryValue("Select Count(*) from tblTransactions Where BankSch <> 0")
            .Int());
  }
  QString RibbonText() { return WindowTest::Find<QAction>("mnuViewReminders").text(); }
};

TEST_F(ScheduleCommands, ASavedScheduleStandsInTheListAndInTheAccount) {
  Start();
  Trigger("mnuViewSchedules");
  EXPECT_EQ(window_->Shown().name, kScheduleShow);
  InNextDialog([](QDialog& form) {
    EXPECT_EQ(form.objectName(), QStringLiteral("FrmSchedule"));
    Type(form, "txtAmount", QStringLiteral("500"));
    Type(form, "cmbPayee", QStringLiteral("Landlord"));
    Type(form, "cmbCategory", QStringLiteral("Debit"));
    Type(form, "cmbPayment", QStringLiteral("Bank"));
    Find<QAbstractButton>(form, "chkAutomated").setChecked(true);
    Click(form, "cmdAccept");
  });
  List().setFocus();
  Trigger("mnuScheduleAdd");
  ASSERT_EQ(List().model()->rowCount(), 1);
  EXPECT_GE(Posted(), 1) << "the pass runs after schedules change";
  Trigger("mnuEditUndo");
  EXPECT_EQ(Posted(), 0) << "undone with the schedule";
  EXPECT_EQ(List().model()->rowCount(), 0);
  Trigger("mnuEditRedo");
  ASSERT_GE(Posted(), 1);
  window_->Show({kTransactionShow, 1});
  const auto& rows =
      static_cast<const RegisterModel&>(*WindowTest::Find<SortedTable>("lvbank").model());
  EXPECT_EQ(rows.rowCount(), Posted());
  window_->findChild<RegisterView*>()->ChooseKey(rows.Row(0).transactionId);
  QString opened;
  const QString undo = WindowTest::Find<QAction>("mnuEditUndo").text();
  InNextDialog([&opened](QDialog& form) { opened = form.objectName(); });
  Trigger("mnuTransSchedule");
  EXPECT_EQ(opened, QStringLiteral("FrmSchedule"));
  EXPECT_EQ(WindowTest::Find<QAction>("mnuEditUndo").text(), undo) << "a look changes nothing";
}

TEST_F(ScheduleCommands, SchedulesAreCopiedAndDeleted) {
  Start();
  AddSchedule(1, -20, AddToAccount::No);
  Trigger("mnuViewSchedules");
  List().selectRow(0);
  List().setFocus();
  QTest::keyClick(&List(), Qt::Key_C, Qt::ControlModifier);
  QTest::keyClick(&List(), Qt::Key_V, Qt::ControlModifier);
  ASSERT_EQ(List().model()->rowCount(), 2);
  machine_.prompts.ExpectAsk("Delete Item?", "Do you wish to delete this item?", false);
  QTest::keyClick(&List(), Qt::Key_Delete);
  EXPECT_EQ(List().model()->rowCount(), 2);
  machine_.prompts.ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  QTest::keyClick(&List(), Qt::Key_Delete);
  EXPECT_EQ(List().model()->rowCount(), 1);
  Trigger("mnuEditUndo");
  EXPECT_EQ(List().model()->rowCount(), 2);
  EXPECT_EQ(List().currentIndex().row(), 1) << "what came back is chosen";
}

TEST_F(ScheduleCommands, ACopyBeginsWhereItsOriginalStands) {
  Start();
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "NoShedule", "1 Month");
  AddSchedule(-6, -20, AddToAccount::Ahead);
  session_.PostSchedules();
  const int posted = Posted();
  ASSERT_GE(posted, 6);
  Trigger("mnuViewSchedules");
  List().selectRow(0);
  Trigger("mnuScheduleCopy");
  Trigger("mnuSchedulePaste");
  EXPECT_EQ(List().model()->rowCount(), 2);
  EXPECT_EQ(Posted(), posted) << "nothing comes a second time";
}

TEST_F(ScheduleCommands, RemindersArePostedAndSkippedWithOneKeyEach) {
  Start();
  EXPECT_TRUE(WindowTest::Find<QLabel>("lblNoReminders").isVisible());
  AddSchedule(0, -20, AddToAccount::No);
  AddSchedule(-3, -7, AddToAccount::No);
  Trigger("mnuViewRefresh");
  EXPECT_FALSE(WindowTest::Find<QLabel>("lblNoReminders").isVisible());
  ASSERT_GE(Reminders().topLevelItemCount(), 1);
  QTreeWidgetItem* overdue = Reminders().topLevelItem(0);
  EXPECT_EQ(overdue->text(0), QStringLiteral("Overdue Items"));
  const QString before = RibbonText();
  EXPECT_TRUE(before.contains(u'('));
  Reminders().setCurrentItem(overdue->child(0));
  Reminders().setFocus();
  QTest::keyClick(&Reminders(), Qt::Key_P);
  EXPECT_EQ(Posted(), 1);
  EXPECT_NE(RibbonText(), before);
  Trigger("mnuEditUndo");
  EXPECT_EQ(Posted(), 0);
  EXPECT_EQ(RibbonText(), before);
  Reminders().setCurrentItem(Reminders().topLevelItem(0)->child(0));
  Reminders().setFocus();
  QTest::keyClick(&Reminders(), Qt::Key_S);
  EXPECT_EQ(Posted(), 0);
  EXPECT_NE(RibbonText(), before) << "a skipped one stays skipped";
}

TEST_F(ScheduleCommands, AKeyBringsTheRemindersAndTheOptionLeavesOverdueOnesOut) {
  Start();
  AddSchedule(0, -20, AddToAccount::No);
  AddSchedule(-1, -7, AddToAccount::No);
  Trigger("mnuViewRefresh");
  Trigger("mnuViewReminders");
  QTest::keyClick(window_.get(), Qt::Key_F9);
  ASSERT_TRUE(Reminders().isVisible());
  EXPECT_TRUE(Reminders().hasFocus());
  ASSERT_EQ(Reminders().topLevelItemCount(), 2);
  EXPECT_TRUE(RibbonText().contains(QStringLiteral("(2)"))) << RibbonText().toStdString();
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Overdue", "0");
  Trigger("mnuViewRefresh");
  ASSERT_EQ(Reminders().topLevelItemCount(), 1);
  EXPECT_EQ(Reminders().topLevelItem(0)->text(0), QStringLiteral("Future Items"));
  EXPECT_TRUE(RibbonText().contains(QStringLiteral("(1)"))) << RibbonText().toStdString();
}

TEST_F(ScheduleCommands, AnotherFileHasRemindersOfItsOwn) {
  Start();
  AddSchedule(0, -20, AddToAccount::No);
  Trigger("mnuViewRefresh");
  ASSERT_TRUE(RibbonText().contains(u'('));
  const std::string other = machine_.folder.Path("other");
  {
    DataFileOpener second(machine_.Get(), "a test");
    second.SetDataPath(other);
    const DataFile made = second.CreateNew(true);
    made.connection->Execute("DELETE FROM tblSchedule");
  }
  machine_.prompts.ExpectOpenFile("Select File to Open", other + "/Corvanta.dat");
  Trigger("mnuFileOpen");
  ASSERT_TRUE(session_.IsOpen());
  EXPECT_FALSE(RibbonText().contains(u'(')) << RibbonText().toStdString();
  EXPECT_EQ(Reminders().topLevelItemCount(), 0);
}

TEST_F(ScheduleCommands, ANewDayPostsWhatItBrings) {
  Start();
  AddSchedule(1, -60, AddToAccount::WhenDue);
  AddSchedule(1, -5, AddToAccount::No);
  Trigger("mnuViewRefresh");
  window_->Show({kTransactionShow, 1});
  auto& rows = static_cast<RegisterModel&>(*WindowTest::Find<SortedTable>("lvbank").model());
  const int posted = Posted();
  const QString ribbon = RibbonText();
  machine_.clock.SetToday(machine_.clock.Today().AddDays(30));
  // Not below an operation that lets window messages through, nor below a window in front.
  auto& clock = WindowTest::Find<QTimer>("tmrDay");
  clock.setInterval(1);
  int beats = 0;
  QObject listener;
  QObject::connect(&clock, &QTimer::timeout, &listener, [&beats] { ++beats; });
  const auto pass = [&] {
    return QTest::qWaitFor([&, from = beats] { return beats > from + 2; }, kLong);
  };
  const std::string former = progress_.SetStatus("Please wait...");
  ASSERT_TRUE(pass());
  EXPECT_EQ(Posted(), posted);
  {
    QDialog front(window_.get());
    front.setModal(true);
    front.show();
    progress_.SetStatus(former);
    ASSERT_TRUE(pass());
    EXPECT_EQ(Posted(), posted);
  }
  ASSERT_TRUE(QTest::qWaitFor([&] { return Posted() == posted + 1; }, kLong));
  EXPECT_EQ(rows.rowCount(), Posted());
  EXPECT_FALSE(rows.IsAhead(rows.rowCount() - 1));
  EXPECT_NE(RibbonText(), ribbon) << "what waits for a person is due as well";
  ASSERT_TRUE(pass());
  EXPECT_EQ(Posted(), posted + 1) << "once a day";
  Trigger("mnuEditUndo");
  EXPECT_EQ(Posted(), posted);
}

TEST_F(ScheduleCommands, AScheduleCanBeAddedWhileAClosedAccountIsShown) {
  Start();
  window_->Show({kTransactionShow, 1});
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Open',2,17,0,0)");
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = 1");
  Trigger("mnuViewRefresh");
  QString opened;
  InNextDialog([&opened](QDialog& form) {
    opened = form.objectName() + Find<QComboBox>(form, "cmbAccount").currentText();
  });
  Trigger("mnuScheduleAdd");
  EXPECT_EQ(opened, QStringLiteral("FrmSchedule")) << "no account is chosen";
}

TEST_F(ScheduleCommands, TheForecastIsMarkedAndItsLowestPointNamed) {
  Start();
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "NoShedule", "6 Months");
  AddSchedule(1, -60, AddToAccount::Ahead);
  session_.PostSchedules();
  window_->Show({kTransactionShow, 1});
  const auto& rows =
      static_cast<const RegisterModel&>(*WindowTest::Find<SortedTable>("lvbank").model());
  ASSERT_GE(rows.rowCount(), 3);
  EXPECT_TRUE(rows.IsAhead(rows.rowCount() - 1));
  EXPECT_TRUE(rows.data(rows.index(0, RegisterModel::kPayee), Qt::AccessibleTextRole)
                  .toString()
                  .contains(QStringLiteral("still to come")));
  const QLabel* details = window_->findChild<RegisterView*>()->findChild<QLabel*>("lblDetails");
  EXPECT_TRUE(details->toolTip().contains(QStringLiteral("Lowest ahead: -")))
      << details->toolTip().toStdString();
}

}  // namespace
}  // namespace corvanta
