#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "controls/DateField.h"
#include "controls/SortedTable.h"
#include "controls/ucCalendar.h"
#include "support/DialogTest.h"

#include <QLineEdit>

namespace corvanta {
namespace {

// What can be done from the calendar of the main window.
class CalendarCommands : public DialogTest<WindowTest> {
 protected:
  void Start() {
    OpenPurse();
    ShowWindow();
    window_->Show({kTransactionShow, 1});
    BringForward();
  }
  ucCalendar& Calendar() { return WindowTest::Find<ucCalendar>("ucCalendar"); }
  const RegisterModel& Model() {
    return static_cast<const RegisterModel&>(*WindowTest::Find<SortedTable>("lvbank").model());
  }
  static void AddExpense(QDialog& form) {
    EXPECT_EQ(form.objectName(), QStringLiteral("FrmAccountTrans"));
    Type(form, "cmbPayee", QStringLiteral("Baker"));
    Type(form, "cmbCategory", QStringLiteral("Debit"));
    Type(form, "cmbPayment", QStringLiteral("Cash"));
    Type(form, "txtAmount", QStringLiteral("3"));
    QTest::keyClick(&Find<QLineEdit>(form, "txtReference"), Qt::Key_Return);
  }
};

TEST_F(CalendarCommands, EnterAndADoubleClickAddATransactionOfThatDay) {
  Start();
  Calendar().setFocus();
  QTest::keyClick(&Calendar(), Qt::Key_Left);
  InNextDialog(AddExpense);
  QTest::keyClick(&Calendar(), Qt::Key_Return);
  ASSERT_EQ(Model().rowCount(), 1);
  EXPECT_EQ(Model().Row(0).date.ToIso(), "2026-11-20");
  InNextDialog(AddExpense);
  const QPoint place = Calendar().DayRect(QDate(2026, 11, 5)).center();
  QTest::mouseClick(&Calendar(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(&Calendar(), Qt::LeftButton, {}, place);
  ASSERT_EQ(Model().rowCount(), 2);
  EXPECT_EQ(Model().Row(0).date.ToIso(), "2026-11-05");
}

TEST_F(CalendarCommands, TheDayThatIsProposedCountsAsNotTyped) {
  Start();
  InNextDialog([](QDialog& form) {
    EXPECT_EQ(FocusOf(form), "txtDate");
    EXPECT_EQ(Find<DateField>(form, "txtDate").Day().ToIso(), "2026-11-21");
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible()) << "nothing is asked";
  });
  QTest::keyClick(&Calendar(), Qt::Key_Return);
}

TEST_F(CalendarCommands, WhatIsDueStandsOnItsDayInEveryMonth) {
  Start();
  AddRent(machine_.clock.Today(), -500, AddToAccount::No);
  Trigger("mnuViewRefresh");
  EXPECT_TRUE(
      Calendar().accessibleDescription().contains(QStringLiteral("Due: Landlord -500.00 GBP")))
      << Calendar().accessibleDescription().toStdString();
  EXPECT_TRUE(Calendar().Describe(QDate(2027, 1, 21)).contains(QStringLiteral("Landlord")));
  Calendar().SetSelected(QDate(2029, 2, 21));
  EXPECT_TRUE(Calendar().accessibleDescription().contains(QStringLiteral("Landlord")));
  Calendar().SetSelected(QDate(2030, 2, 20));
  EXPECT_FALSE(Calendar().accessibleDescription().contains(QStringLiteral("Landlord")));
}

TEST_F(CalendarCommands, TheRemindersKeepTheirOwnLookAhead) {
  Start();
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "NoReminders", "None");
  AddRent(machine_.clock.Today().AddDays(2), -500, AddToAccount::No);
  Trigger("mnuViewRefresh");
  EXPECT_TRUE(WindowTest::Find<QLabel>("lblNoReminders")
                  .isVisibleTo(&WindowTest::Find<QWidget>("pnlReminders")));
  EXPECT_TRUE(Calendar().Describe(QDate(2026, 11, 23)).contains(QStringLiteral("Landlord")));
}

}  // namespace
}  // namespace corvanta
