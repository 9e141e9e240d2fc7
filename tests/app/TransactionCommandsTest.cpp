#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "controls/SortedTable.h"
#include "ledger/transactions/StatusBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"
#include "support/LedgerProblems.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QDialog>
#include <QHeaderView>
#include <QMenu>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>

namespace corvanta {
namespace {

constexpr const char* kClosed = "This Account is closed, Items cannot be amended";

class TransactionCommands : public WindowTest {
 protected:
  void Start() {
    OpenData();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Purse',2,17,5,0)");
    machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Investment", "0");
    ShowWindow();
    BringForward();
    Table().setFocus();
  }
  SortedTable& Table() { return Find<SortedTable>("lvbank"); }
  const RegisterModel& Model() { return static_cast<const RegisterModel&>(*Table().model()); }
  int Rows() { return Model().rowCount(); }
  std::int64_t Key(int row) { return Model().Row(row).transactionId; }
  std::string Flags(std::int64_t key) {
    const RowMarks marks = session_.Ledger().Statuses().MarksOf(key);
    return std::to_string(marks.flags.bankChk) + '/' + std::to_string(marks.flags.bankRec);
  }
  std::int64_t Number(const std::string& sql) {
    return session_.Ledger().Store().QueryValue(sql).Int();
  }
  std::string Text(const char* label) { return Find<QLabel>(label).text().toStdString(); }
  // The label of the register, which other views have, too.
  std::string Total(const char* label) {
    return window_->findChild<RegisterView*>()
        ->findChild<QLabel*>(QLatin1String(label))
        ->text()
        .toStdString();
  }
  std::string TreeBalance() {
    return Find<QTreeWidget>("tvAccounts").topLevelItem(0)->child(0)->text(1).toStdString();
  }
  void RightClick(int row) {
    const QPoint place = Table().visualRect(Model().index(row, 1)).center();
    QTest::mouseClick(Table().viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                            Table().viewport()->mapToGlobal(place));
    QApplication::sendEvent(Table().viewport(), &event);
  }
  // The dialog that the command opens; closes it.
  static std::string OpenedBy(const std::function<void()>& command) {
    std::string name = "(none)";
    QTimer::singleShot(0, qApp, [&name] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      name = dialog->objectName().toStdString();
      dialog->reject();
    });
    command();
    return name;
  }
  // What the pop-up menu shows, ticks before the entries; closes it.
  std::string PopUp() {
    auto& menu = Find<QMenu>("mnuTransaction");
    if (!menu.isVisible()) return "(closed)";
    std::string shown;
    for (const QAction* entry : menu.actions()) {
      if (!entry->isVisible()) continue;
      shown += entry->isSeparator() ? "-" : entry->isChecked() ? "*" : " ";
      if (!entry->isSeparator()) shown += entry->text().toStdString();
    }
    menu.close();
    return shown;
  }
};

TEST_F(TransactionCommands, ThePopUpMenuFollowsTheRow) {
  Start();
  const std::int64_t key = Key(0);
  Run("UPDATE tblTransactions SET BankChk = 1, BankRec = 0, BankSch = 0, TransferID = 0 "
      "WHERE TransactionID = " +
      std::to_string(key));
  RightClick(0);
  EXPECT_EQ(PopUp(),
            " &Add... &Edit...- Cop&y &Paste &Delete- &Uncleared*&Cleared &Reconciled- "
            "&Keywords... Attach&ments...");
  Run("UPDATE tblTransactions SET BankChk = 0, BankRec = 1, BankSch = 1 WHERE TransactionID = " +
      std::to_string(key));
  RightClick(0);
  EXPECT_EQ(PopUp(),
            " &Add... &Edit...- Cop&y &Paste &Delete- &Uncleared &Cleared &Reconciled- "
            "&Keywords... Attach&ments...- &Schedule Item");
  EXPECT_EQ(OpenedBy([this] { Trigger("mnuTransSchedule"); }), "FrmSchedule");
  // The menu key asks for the row that has the focus.
  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, Table().viewport()->rect().center(),
                          QPoint());
  QApplication::sendEvent(Table().viewport(), &byKey);
  EXPECT_NE(PopUp(), "(closed)");
  Table().clearSelection();
  EXPECT_EQ(OpenedBy([&] { QApplication::sendEvent(Table().viewport(), &byKey); }),
            "FrmAccountAuto")
      << "nothing is chosen: one is added";
  EXPECT_EQ(PopUp(), "(closed)");
}

TEST_F(TransactionCommands, StatusIsSetAndTakenBackOnAllChosenRows) {
  Start();
  const std::int64_t first = Key(0);
  const std::int64_t third = Key(2);
  Run("UPDATE tblTransactions SET BankChk = 0, BankRec = 0");
  Trigger("mnuViewRefresh");
  const auto chooseThree = [this] {
    Table().selectRow(0);
    QTest::keyClick(&Table(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&Table(), Qt::Key_Down, Qt::ShiftModifier);
  };
  struct Step {
    const char* command;
    const char* flags;
  };
  for (const auto& [command, flags] :
       {Step{"mnuTransChk", "1/0"}, Step{"mnuTransChk", "0/0"}, Step{"mnuTranRec", "1/1"},
        Step{"mnuTranRec", "1/0"}, Step{"mnuTranRec", "1/1"}, Step{"mnuTransChk", "1/0"},
        Step{"mnuTransUChk", "0/0"}, Step{"mnuTransUChk", "0/0"}}) {
    chooseThree();
    const std::size_t yields = machine_.progress.Yields();
    Trigger(command);
    EXPECT_EQ(Flags(first), flags) << command;
    EXPECT_EQ(Flags(third), flags) << command;
    EXPECT_EQ(Flags(Key(3)), "0/0") << command;
    EXPECT_EQ(machine_.progress.Yields() - yields, 3U);
  }
  EXPECT_EQ(machine_.progress.Texts().front(), "Please wait updating records...");
  EXPECT_EQ(machine_.progress.Status(), "");
  EXPECT_EQ(Table().currentIndex().row(), 2) << "the row that had the focus";
  EXPECT_TRUE(Table().selectionModel()->isRowSelected(2));
  EXPECT_EQ(LedgerProblems(session_.Ledger().Store()), std::vector<std::string>());
}

TEST_F(TransactionCommands, AClosedAccountRefusesThemAll) {
  Start();
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = 1");
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Closed", "1");
  Trigger("mnuViewRefresh");
  machine_.prompts.ExpectTell("Add Item", kClosed);
  RightClick(1);
  EXPECT_EQ(PopUp(), "(closed)");
  const std::string before = Flags(Key(1));
  for (const char* command : {"mnuTransUChk", "mnuTransChk", "mnuTranRec", "mnuEditDelete"}) {
    machine_.prompts.ExpectTell("Amend Item", kClosed);
    Trigger(command);
  }
  EXPECT_EQ(Flags(Key(1)), before);
  EXPECT_EQ(Rows(), 13);
  EXPECT_FALSE(session_.Ledger().Undo().CanUndo() &&
               session_.Ledger().Undo().UndoName() == "Change Status");
}

TEST_F(TransactionCommands, TheTicksOfTheViewMenuChooseWhatIsShownAndCounted) {
  Start();
  Run("UPDATE tblTransactions SET BankChk = 1, BankRec = 1");
  Run("UPDATE tblTransactions SET BankChk = 1, BankRec = 0 WHERE TransactionID = " +
      std::to_string(Key(0)));
  Run("UPDATE tblTransactions SET BankChk = 0, BankRec = 0 WHERE TransactionID = " +
      std::to_string(Key(12)));
  Trigger("mnuViewRefresh");
  EXPECT_EQ(Text("lblUncleared"), "Number of Uncleared records = 1");
  Trigger("mnuViewReconciled");
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(Total("lblPaidIn"), "Paid In : 900.00");
  EXPECT_EQ(Total("lblPaidOut"), "Paid Out : -316.00");
  EXPECT_EQ(Total("lblThisPeriod"), "This Period: 1,084.00");
  EXPECT_EQ(TreeBalance(), "1,084.00");
  Trigger("mnuViewCleared");
  EXPECT_EQ(Rows(), 1);
  EXPECT_EQ(Total("lblBalance"), "Balance: 184.00");
  Trigger("mnuViewUnCleared");
  EXPECT_EQ(Rows(), 13) << "nothing ticked shows all";
  EXPECT_EQ(Total("lblBalance"), "Balance: 314.49");
  Trigger("mnuViewAccounts");
  EXPECT_FALSE(Find<QAction>("mnuViewCleared").isChecked());
  EXPECT_FALSE(Find<QLabel>("lblUncleared").isVisible());
}

TEST_F(TransactionCommands, APeriodKeepsTheRegisterToItsDays) {
  Start();
  auto& tick = Find<QCheckBox>("chkUnset");
  const Date today = machine_.clock.Today();
  EXPECT_EQ(Find<QDateEdit>("dtpTo").date(), QDate(today.Year(), today.Month(), today.Day()));
  EXPECT_EQ(Find<QDateEdit>("dtpFrom").date().daysTo(Find<QDateEdit>("dtpTo").date()), 30);
  tick.setFocus();
  QTest::keyClick(&tick, Qt::Key_Space);
  EXPECT_TRUE(window_->Shown().dates.has_value());
  Find<QDateEdit>("dtpFrom").setDate(QDate(2000, 1, 1));
  Find<QDateEdit>("dtpTo").setDate(QDate(2000, 1, 31));
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(Total("lblThisPeriod"), "This Period: ");
  EXPECT_EQ(Total("lblPaidIn"), "Paid In: ");
  EXPECT_EQ(Total("lblPaidOut"), "Paid Out: ");
  EXPECT_EQ(Total("lblBalance"), "Balance: ");
  window_->close();
  EXPECT_EQ(Setting("Dates"), "2000-01-01#2000-01-31");
  EXPECT_EQ(Setting("SetDate"), "1");
  ShowWindow();
  EXPECT_EQ(Rows(), 0);
  QTest::mouseClick(&Find<QCheckBox>("chkUnset"), Qt::LeftButton, {}, QPoint(8, 12));
  EXPECT_EQ(Rows(), 13);
}

TEST_F(TransactionCommands, DeleteAsksAndUndoBringsBack) {
  Start();
  Table().selectRow(3);
  machine_.prompts.ExpectAsk("Delete Item?", "Do you wish to delete this item?", false);
  QTest::keyClick(&Table(), Qt::Key_Delete);
  EXPECT_EQ(Rows(), 13);
  QTest::keyClick(&Table(), Qt::Key_Down, Qt::ShiftModifier);
  machine_.prompts.ExpectAsk("Delete Items?", "Do you wish to delete these 2 items?", true);
  const RegisterView& view = *window_->findChild<RegisterView*>();
  const std::vector<std::int64_t> gone = view.ChosenKeys();
  QTest::keyClick(&Table(), Qt::Key_Delete);
  EXPECT_EQ(Rows(), 11);
  const std::string after = Total("lblBalance");
  EXPECT_TRUE(Find<QAction>("mnuEditUndo").isEnabled());
  EXPECT_TRUE(Find<QAction>("mnuEditUndo").text().startsWith(QStringLiteral("&Undo Delete")));
  EXPECT_FALSE(Find<QAction>("mnuEditRedo").isEnabled());
  QTest::keyClick(&Table(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Rows(), 13);
  EXPECT_EQ(view.FocusedKey(), std::ranges::min(gone)) << "the next key is meant for it";
  EXPECT_EQ(Total("lblBalance"), "Balance: 314.49");
  EXPECT_TRUE(Find<QAction>("mnuEditRedo").text().startsWith(QStringLiteral("&Redo Delete")));
  QTest::keyClick(&Table(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Rows(), 11);
  EXPECT_EQ(Total("lblBalance"), after);
  EXPECT_EQ(TreeBalance(), after.substr(after.find(' ') + 1));
}

TEST_F(TransactionCommands, CopiesArePastedIntoTheAccountShown) {
  Start();
  Table().selectRow(0);
  QTest::keyClick(&Table(), Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&Table(), Qt::Key_C, Qt::ControlModifier);
  window_->Show({kTransactionShow, 2});
  EXPECT_EQ(Rows(), 0);
  ASSERT_TRUE(Find<QAction>("mnuEditPaste").isEnabled());
  Trigger("mnuEditPaste");
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(
      Number("Select Count(*) from tblTransactions Where AccountID = 2 AND AllocatedItem = 0"), 2);
  Trigger("mnuEditUndo");
  EXPECT_EQ(Rows(), 0) << "both at once";
}

TEST_F(TransactionCommands, ATransferLeadsToItsOtherHalf) {
  Start();
  TransactionRecord from = *session_.Ledger().Transactions().ReadTransaction(Key(5));
  from.transactionId = 0;
  from.amount = -12;
  TransactionRecord to = from;
  to.accountId = 2;
  to.amount = 12;
  session_.Ledger().Transactions().SaveTransfer(from, to);
  Trigger("mnuViewRefresh");
  window_->findChild<RegisterView*>()->ChooseKey(from.transactionId);
  EXPECT_TRUE(Find<QAction>("mnuTransTransfer").isVisible());
  Trigger("mnuTransTransfer");
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 2}));
  EXPECT_EQ(window_->findChild<RegisterView*>()->FocusedKey(), to.transactionId);
  Trigger("mnuViewBack");
  EXPECT_EQ(window_->Shown().accountId, 1);
}

TEST_F(TransactionCommands, ColumnsSortByValueAndAreRemembered) {
  Start();
  QHeaderView& head = *Table().horizontalHeader();
  const auto press = [&](int column) {
    const QPoint place(head.sectionViewportPosition(column) + 12, head.height() / 2);
    QTest::mouseClick(head.viewport(), Qt::LeftButton, {}, place);
  };
  const auto isSorted = [this](int column, bool descending) {
    for (int row = 1; row < Rows(); ++row) {
      const double before = Model().Row(row - 1).balance;
      const double now = Model().Row(row).balance;
      if (column == RegisterModel::kBalance && (descending ? before < now : before > now)) {
        return false;
      }
    }
    return true;
  };
  press(RegisterModel::kBalance);
  EXPECT_TRUE(isSorted(RegisterModel::kBalance, false));
  press(RegisterModel::kBalance);
  EXPECT_TRUE(isSorted(RegisterModel::kBalance, true));
  press(RegisterModel::kPayee);
  EXPECT_EQ(Model().Row(0).payee, "Acme Company");
  press(RegisterModel::kPaidIn);
  EXPECT_LT(Model().Row(0).amount, 0) << "rows without a figure first";
  press(RegisterModel::kPaidIn);
  EXPECT_GT(Model().Row(0).amount, Model().Row(Rows() - 1).amount);
  window_->close();
  EXPECT_EQ(Setting("ColNo"), std::to_string(RegisterModel::kPaidIn + 1));
  EXPECT_EQ(Setting("ColSort"), "1");
  ShowWindow();
  EXPECT_EQ(Table().Sorted(), (SortState{RegisterModel::kPaidIn, true}));
}

}  // namespace
}  // namespace corvanta
