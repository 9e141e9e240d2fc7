#include "app/WindowTest.h"
#include "controls/SortedTable.h"
#include "support/DialogTest.h"

#include <QStatusBar>
#include <QTreeWidget>

namespace corvanta {
namespace {

// What the status bar says of a command that has run.
class Notices : public DialogTest<WindowTest> {
 protected:
  std::string Notice() { return window_->statusBar()->currentMessage().toStdString(); }
  void StartOnRegister() {
    ShowWindow();
    window_->Show({kTransactionShow, 1});
    WindowTest::Find<SortedTable>("lvbank").setFocus();
  }
};

TEST_F(Notices, UndoAndRedoNameWhatTheyTookBack) {
  OpenData();
  StartOnRegister();
  auto& list = WindowTest::Find<SortedTable>("lvbank");
  list.selectRow(1);
  QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
  machine_.prompts.ExpectAsk("Delete Items?", "Do you wish to delete these 2 items?", true);
  Trigger("mnuEditDelete");
  Trigger("mnuEditUndo");
  EXPECT_EQ(Notice(), "Undone: Delete Transactions (2 rows are back)");
  Trigger("mnuEditRedo");
  EXPECT_EQ(Notice(), "Done again: Delete Transactions (2 rows are gone)");
}

TEST_F(Notices, PostingSaysHowManyPaymentsItPosted) {
  OpenPurse();
  AddRent(machine_.clock.Today().AddDays(-70), -5, AddToAccount::WhenDue);
  session_.PostSchedules();
  StartOnRegister();
  EXPECT_EQ(Notice(), "3 payments were posted") << "at the start";
  AddRent(machine_.clock.Today(), -6, AddToAccount::No);
  Trigger("mnuViewReminders");
  Trigger("mnuViewRefresh");
  auto& reminders = WindowTest::Find<QTreeWidget>("tvReminders");
  const auto choose = [&reminders](const QString& name) {
    for (QTreeWidgetItem* item : reminders.findItems(name, Qt::MatchExactly | Qt::MatchRecursive)) {
      if (!item->data(0, Qt::AccessibleTextRole).toString().contains(QStringLiteral("posted"))) {
        return reminders.setCurrentItem(item);
      }
    }
  };
  choose(QStringLiteral("Landlord"));
  Trigger("mnuReminderPost");
  EXPECT_EQ(Notice(), "Posted: Landlord -6.00 GBP");
}

TEST_F(Notices, BalancingCountsItsRows) {
  OpenData();
  StartOnRegister();
  std::size_t rows = 0;
  InNextDialog([&rows](QDialog& form) {
    rows = static_cast<std::size_t>(Find<QTableView>(form, "lvBalance").model()->rowCount());
    Click(form, "cmdSelect");
    Click(form, "cmdAccept");
  });
  Trigger("mnuTransReconcile");
  EXPECT_EQ(Notice(), std::to_string(rows) + " transactions reconciled");
  InNextDialog([](QDialog& form) { form.reject(); });
  window_->statusBar()->clearMessage();
  Trigger("mnuTransReconcile");
  EXPECT_EQ(Notice(), "") << "nothing was done";
}

TEST_F(Notices, ValidatingSaysWhatItFound) {
  OpenPurse();
  Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,[Date]) "
      "VALUES (1,1,1,1,4711,#01/01/2026#)");
  Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,[Date]) "
      "VALUES (1,1,1,1,0,#01/01/2026#)");
  AddRent(machine_.clock.Today(), -5, AddToAccount::WhenDue);
  StartOnRegister();
  machine_.prompts.ExpectAsk(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText, true);
  Trigger("mnuFileValidate");
  EXPECT_EQ(Notice(),
            "The data file is sound: 1 row of transactions, 1 that belonged to nothing removed; "
            "1 payment was posted");
}

}  // namespace
}  // namespace corvanta
