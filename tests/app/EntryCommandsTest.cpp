#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "controls/EmptyState.h"
#include "controls/SortedTable.h"
#include "platform/Files.h"
#include "support/DialogTest.h"
#include "support/LedgerProblems.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace corvanta {
namespace {

// Entering, balancing and printing from the main window, dialogs and all.
class EntryCommands : public DialogTest<WindowTest> {
 protected:
  void Start(bool empty = false) {
    OpenData(empty);
    if (empty) {
      Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,"
          "CloseAccount) VALUES ('Purse',2,17,5,0)");
    }
    ShowWindow();
    window_->Show({kTransactionShow, 1});
    BringForward();
    Table().setFocus();
  }
  void TearDown() override {
    if (!session_.IsOpen()) return;
    EXPECT_EQ(LedgerProblems(session_.Ledger().Store()), std::vector<std::string>());
  }
  SortedTable& Table() { return WindowTest::Find<SortedTable>("lvbank"); }
  const RegisterModel& Model() { return static_cast<const RegisterModel&>(*Table().model()); }
  int Rows() { return Model().rowCount(); }
  std::int64_t Key(int row) { return Model().Row(row).transactionId; }
  std::int64_t Focused() { return window_->findChild<RegisterView*>()->FocusedKey(); }
  std::int64_t Number(const std::string& sql) {
    return session_.Ledger().Store().QueryValue(sql).Int();
  }
  static void RightClick(QWidget& on, QPoint place) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, on.mapToGlobal(place));
    QApplication::sendEvent(&on, &event);
  }
  static void FillExpense(QDialog& form, const QString& payee, const QString& amount) {
    EXPECT_EQ(form.objectName(), QStringLiteral("FrmAccountTrans"));
    Type(form, "cmbPayee", payee);
    Type(form, "cmbCategory", QStringLiteral("Debit"));
    Type(form, "cmbPayment", QStringLiteral("Cash"));
    Type(form, "txtAmount", amount);
  }
};

TEST_F(EntryCommands, AKeyAddsARowThatIsThenChosenAndCounted) {
  Start(true);
  EXPECT_TRUE(WindowTest::Find<QAction>("mnuTransAdd").isEnabled());
  InNextDialog([](QDialog& form) {
    FillExpense(form, QStringLiteral("Corner Shop"), QStringLiteral("12.5+3*4"));
    QTest::keyClick(&Find<QLineEdit>(form, "txtReference"), Qt::Key_Return);
    EXPECT_TRUE(form.isVisible()) << "ready for the next one";
  });
  QTest::keyClick(window_.get(), Qt::Key_N, Qt::ControlModifier);
  ASSERT_EQ(Rows(), 1);
  EXPECT_EQ(Model().Row(0).payee, "Corner Shop");
  EXPECT_DOUBLE_EQ(Model().Row(0).amount, -24.5);
  EXPECT_EQ(Focused(), Key(0));
  Trigger("mnuEditUndo");
  EXPECT_EQ(Rows(), 0);
}

TEST_F(EntryCommands, AnEntryThatThePeriodHidesBringsTheKeysToTheRegisterAsWell) {
  Start(true);
  const DateRange past{*Date::FromYmd(2000, 1, 1), *Date::FromYmd(2000, 1, 31)};
  window_->Show({kTransactionShow, 1, true, true, true, past});
  WindowTest::Find<QTreeWidget>("tvAccounts").setFocus();
  InNextDialog([](QDialog& form) {
    FillExpense(form, QStringLiteral("Corner Shop"), QStringLiteral("3"));
    Click(form, "cmdAccept");
  });
  Trigger("mnuTransAdd");
  EXPECT_EQ(Rows(), 0);
  EXPECT_TRUE(window_->findChild<RegisterView*>()->isAncestorOf(window_->focusWidget()));
}

TEST_F(EntryCommands, TheFirstAccountGetsWhatIsEnteredBeforeItWasLookedAt) {
  OpenData(true);
  ShowWindow();
  window_->Show({kPayeeShow});
  EXPECT_EQ(window_->EntryAccount(), 0);
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Purse',2,17,100,0)");
  Trigger("mnuViewRefresh");
  EXPECT_EQ(window_->EntryAccount(), 1);
}

TEST_F(EntryCommands, EnterEditsOneRowAndSeveralTogether) {
  Start();
  Table().selectRow(2);
  const std::int64_t key = Key(2);
  InNextDialog([](QDialog& form) {
    EXPECT_EQ(form.objectName(), QStringLiteral("FrmAccountTrans"));
    Type(form, "txtDescription", QStringLiteral("a better word"));
    Click(form, "cmdAccept");
    EXPECT_FALSE(form.isVisible());
  });
  QTest::keyClick(&Table(), Qt::Key_Return);
  EXPECT_EQ(Model().Row(2).description, "a better word");
  EXPECT_EQ(Focused(), key);

  QTest::keyClick(&Table(), Qt::Key_Down, Qt::ShiftModifier);
  InNextDialog([](QDialog& form) {
    EXPECT_EQ(form.objectName(), QStringLiteral("FrmAccountTransMulti"));
    Type(form, "cmbPayment", QStringLiteral("Barter"));
    Click(form, "cmdAccept");
  });
  Trigger("mnuTransEdit");
  EXPECT_EQ(Number("Select Count(*) from tblTransactions t INNER JOIN tblPayments p ON "
                   "t.PaymentID = p.PaymentID Where p.Payment = 'Barter' AND AllocatedItem = 0"),
            2);
}

TEST_F(EntryCommands, ARightClickOnTheEmptyRegisterAddsAsTheSettingSays) {
  Start(true);
  QString opened;
  const auto remember = [&opened](QDialog& form) { opened = form.objectName(); };
  auto& empty = *window_->findChild<RegisterView*>()->findChild<EmptyState*>();
  ASSERT_TRUE(empty.isVisible());
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "AutoFill", "1");
  InNextDialog(remember);
  RightClick(empty, QPoint(20, 20));
  EXPECT_EQ(opened, QStringLiteral("FrmAccountAuto"));
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "AutoFill", "0");
  InNextDialog(remember);
  RightClick(empty, QPoint(20, 20));
  EXPECT_EQ(opened, QStringLiteral("FrmAccountTrans"));
}

TEST_F(EntryCommands, AClosedAccountIsNeitherAddedToNorEditedNorBalanced) {
  Start();
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = 1");
  Trigger("mnuViewRefresh");
  Table().selectRow(0);
  constexpr const char* kClosed = "This Account is closed, Items cannot be amended";
  machine_.prompts.ExpectTell("Add Item", kClosed);
  Trigger("mnuTransAdd");
  machine_.prompts.ExpectTell("Add Item", kClosed);
  Trigger("mnuTransAutofill");
  machine_.prompts.ExpectTell("Amend Item", kClosed);
  Trigger("mnuTransEdit");
  machine_.prompts.ExpectTell("Balance Account", kClosed);
  Trigger("mnuTransReconcile");
}

TEST_F(EntryCommands, BalancingSettlesTheRowsOfTheRegister) {
  Start();
  InNextDialog([](QDialog& form) {
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Balance Account"));
    Click(form, "cmdSelect");
    Click(form, "cmdAccept");
  });
  Trigger("mnuTransReconcile");
  for (int row = 0; row < Rows(); ++row) EXPECT_EQ(Model().Row(row).status, "R") << row;
  Trigger("mnuEditUndo");
  EXPECT_NE(Model().Row(Rows() - 1).status, "R") << "one step";
}

TEST_F(EntryCommands, WhatIsShownCanBePreviewedAndConverted) {
  Start();
  QString title;
  const auto remember = [&title](QDialog& form) { title = form.windowTitle(); };
  InNextDialog(remember);
  Trigger("mnuFilePreview");
  EXPECT_EQ(title, QStringLiteral("Print Preview"));
  InNextDialog(remember);
  Trigger("mnuToolsCurrency");
  EXPECT_EQ(title, QStringLiteral("Currency Lookup"));
  Trigger("mnuViewPayees");
  EXPECT_TRUE(WindowTest::Find<QAction>("mnuFilePrint").isEnabled());
  title.clear();
  InNextDialog(remember);
  Trigger("mnuFilePreview");
  EXPECT_EQ(title, QStringLiteral("Print Preview"));
  InNextDialog(remember);
  Trigger("mnuFilePageSetup");
  EXPECT_EQ(title, QStringLiteral("Page Setup"));
}

TEST_F(EntryCommands, WhatIsShownBecomesASpreadsheet) {
  Start();
  const std::string path = machine_.folder.Path("list.csv");
  const auto written = [&] {
    machine_.prompts.ExpectSaveFile("Save File As", path);
    machine_.prompts.ExpectTell("File Export", "File Export Complete\r\n");
    Trigger("mnuFileSpreadsheet");
    const std::string text = ReadFile(path);
    return std::pair(text.substr(0, text.find(',')), std::ranges::count(text, '\n'));
  };
  // The head, the rows, their number and the four figures below them.
  EXPECT_EQ(written(), std::pair(std::string("Date"), 1L + Rows() + 5L)) << "the register";
  Trigger("mnuViewPayees");
  EXPECT_EQ(written().first, "Payee");
}

}  // namespace
}  // namespace corvanta
