// The register in the window: its columns, its filters, its order, and whose the keys are.
#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "controls/EmptyState.h"
#include "controls/SortedTable.h"
#include "support/DialogTest.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

namespace corvanta {
namespace {

class RegisterInWindow : public DialogTest<WindowTest> {
 protected:
  ~RegisterInWindow() override { QApplication::setFont(font_); }
  void Start() {
    OpenData();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Purse',2,17,5,0)");
    ShowWindow();
    window_->Show({kTransactionShow, 1});
    BringForward();
  }
  template <typename Widget>
  Widget& Get(const char* name) {
    return WindowTest::Find<Widget>(name);
  }
  SortedTable& Table() { return Get<SortedTable>("lvbank"); }
  const RegisterModel& Model() { return static_cast<const RegisterModel&>(*Table().model()); }
  RegisterView& View() { return *window_->findChild<RegisterView*>(); }
  QTreeWidget& Tree() { return Get<QTreeWidget>("tvAccounts"); }
  void ClickTree(QTreeWidgetItem* item) {
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, Tree().visualItemRect(item).center());
  }
  QColor Background(int row) {
    const QRect cell = Table().visualRect(Model().index(row, RegisterModel::kPayee));
    return Table().viewport()->grab().toImage().pixelColor(cell.topLeft() + QPoint(2, 2));
  }
  bool SeesBalance() {
    const QHeaderView& head = *Table().horizontalHeader();
    return head.sectionViewportPosition(RegisterModel::kBalance) +
               Table().columnWidth(RegisterModel::kBalance) <=
           Table().viewport()->width();
  }

  QFont font_ = QApplication::font();
};

TEST_F(RegisterInWindow, FiltersThatHideEverythingSaySoAndCanBeClearedThere) {
  Start();
  auto& empty = *View().findChild<EmptyState*>();
  EXPECT_FALSE(Get<QAction>("mnuViewAll").isEnabled());
  Get<QCheckBox>("chkUnset").click();
  Get<QDateEdit>("dtpFrom").setDate(QDate(2000, 1, 1));
  Get<QDateEdit>("dtpTo").setDate(QDate(2000, 1, 31));
  Trigger("mnuViewUnCleared");
  Trigger("mnuViewCleared");
  ASSERT_TRUE(empty.isVisible());
  QString text;
  for (const QLabel* label : empty.findChildren<QLabel*>()) text += label->text() + u'\n';
  EXPECT_TRUE(text.contains("All 13 transactions are hidden")) << text.toStdString();
  EXPECT_TRUE(text.contains("2000")) << text.toStdString();
  EXPECT_TRUE(text.contains("only reconciled funds")) << text.toStdString();
  auto& button = *empty.findChild<QPushButton*>("cmdEmptyState");
  ASSERT_TRUE(button.isVisible());
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(Model().rowCount(), 13);
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 1}));
  EXPECT_FALSE(Get<QCheckBox>("chkUnset").isChecked());
  EXPECT_TRUE(Get<QAction>("mnuViewCleared").isChecked());
  EXPECT_TRUE(Table().hasFocus());
  // An account without any is no matter of filters.
  window_->Show({kTransactionShow, 2, true, false, false});
  for (const QLabel* label : empty.findChildren<QLabel*>()) {
    EXPECT_FALSE(label->text().contains("hidden"));
  }
}

TEST_F(RegisterInWindow, ALongRegisterIsReadBeforeItIsGoneTo) {
  OpenPurse();
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Bank',2,17,5,0)");
  const std::string columns = "AccountID,CategoryID,PaymentID,PayeeID,[Amount],[Date]";
  Run("INSERT INTO tblTransactions (" + columns + ") VALUES (2,3,1,1,-1,#01/02/2026#)");
  for (int rows = 1; rows < 20000; rows *= 2) {
    Run("INSERT INTO tblTransactions (" + columns + ") SELECT " + columns +
        " FROM tblTransactions");
  }
  ShowWindow();
  window_->Show({kTransactionShow, 2});
  EXPECT_TRUE(View().IsReading()) << "so it is gone to at once, and read by and by";
  window_->Show({kTransactionShow, 1});
  // What changes meanwhile is read anew.
  Run("DELETE FROM tblTransactions WHERE TransactionID = 1");
  window_->Reload();
  auto& timer = *window_->findChild<QTimer*>("tmrReadAhead");
  EXPECT_TRUE(timer.isActive());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !timer.isActive(); }, 120000));
  window_->Show({kTransactionShow, 2});
  EXPECT_FALSE(View().IsReading());
  EXPECT_EQ(Model().rowCount(), 32767);
  EXPECT_EQ(Model().Entry(0).balance, 4);
  EXPECT_EQ(Model().Entry(32766).balance, 5 - 32767);
}

TEST_F(RegisterInWindow, NewestFirstTurnsTheDaysRoundToo) {
  Start();
  Run("UPDATE tblTransactions SET [Date] = #03/01/2026# WHERE AccountID = 1 AND TransactionID < 8");
  Trigger("mnuViewRefresh");
  Table().ChooseColumn(RegisterModel::kDate);
  ASSERT_TRUE(Table().Sorted().isDescending);
  for (int row = 0; row + 1 < Model().rowCount(); ++row) {
    EXPECT_NEAR(Model().Row(row).balance - Model().Row(row).amount, Model().Row(row + 1).balance,
                0.001)
        << row;
  }
  // It opens at the newest row, not at the end of the list.
  window_->Show({kTransactionShow, 2});
  window_->Show({kTransactionShow, 1});
  EXPECT_EQ(Table().currentIndex().row(), 0);
}

TEST_F(RegisterInWindow, AfterAClickOnAnAccountTheKeysAreTheRegisters) {
  Start();
  Table().setFocus();
  Table().selectRow(0);
  const QColor inUse = Background(0);
  QTreeWidgetItem* bank = Tree().topLevelItem(0)->child(0);
  QTreeWidgetItem* purse = Tree().topLevelItem(1)->child(0);
  ClickTree(purse);
  EXPECT_EQ(window_->Shown().accountId, 2);
  EXPECT_FALSE(Tree().hasFocus());
  ClickTree(bank);
  EXPECT_EQ(window_->Shown().accountId, 1);
  EXPECT_TRUE(Table().hasFocus());
  // By key one walks through the accounts, and Enter goes to the register.
  Tree().setFocus();
  Table().selectRow(0);
  const QColor muted = Background(0);
  EXPECT_NE(muted, inUse) << "a selection without keys is muted";
  EXPECT_NE(muted, Background(1));
  QTest::keyClick(&Tree(), Qt::Key_Down);
  QTest::keyClick(&Tree(), Qt::Key_Down);
  EXPECT_EQ(window_->Shown().accountId, 2);
  EXPECT_TRUE(Tree().hasFocus());
  QTest::keyClick(&Tree(), Qt::Key_Up);
  QTest::keyClick(&Tree(), Qt::Key_Up);
  QTest::keyClick(&Tree(), Qt::Key_Return);
  EXPECT_TRUE(Table().hasFocus());
  // From another view, too, where the account is still the tree's current one.
  Trigger("mnuViewPayees");
  ClickTree(bank);
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 1}));
  EXPECT_TRUE(Table().hasFocus());
}

TEST_F(RegisterInWindow, AfterASaveTheKeysAreTheRegisters) {
  Start();
  View().ChooseKey(Model().Row(2).transactionId);
  Tree().setFocus();
  InNextDialog([](QDialog& form) {
    Type(form, "txtDescription", QStringLiteral("a better word"));
    Click(form, "cmdAccept");
  });
  Trigger("mnuTransEdit");
  EXPECT_EQ(Model().Row(2).description, "a better word");
  EXPECT_EQ(window_->focusWidget(), &Table());
}

TEST_F(RegisterInWindow, TotalsOfTheTreeCannotBeChosen) {
  Start();
  QTreeWidgetItem* bank = Tree().topLevelItem(0)->child(0);
  ClickTree(bank);
  ClickTree(Tree().topLevelItem(0)->child(1));
  EXPECT_EQ(Tree().currentItem(), bank);
  EXPECT_TRUE(bank->isSelected());
  ClickTree(Tree().topLevelItem(0));
  EXPECT_TRUE(bank->isSelected()) << "a group opens and folds, and chooses nothing either";
  EXPECT_EQ(window_->Shown().accountId, 1);
}

TEST_F(RegisterInWindow, TheBalanceStaysInSight) {
  QFont large = font_;
  large.setPointSizeF(11);
  QApplication::setFont(large);
  Start();
  Run("UPDATE tblTransactions SET [Amount] = 123456.78 WHERE TransactionID = 1");
  Trigger("mnuViewRefresh");
  Trigger("mnuViewReminders");
  window_->resize(800, 560);
  QApplication::processEvents();
  EXPECT_EQ(window_->width(), 800);
  EXPECT_TRUE(SeesBalance()) << Table().viewport()->width();
  EXPECT_FALSE(Table().isColumnHidden(RegisterModel::kPayee));
  Trigger("mnuViewReminders");
  window_->resize(1700, 560);
  QApplication::processEvents();
  for (int column = 0; column < RegisterModel::kColumns; ++column) {
    EXPECT_FALSE(Table().isColumnHidden(column)) << column;
  }
}

TEST_F(RegisterInWindow, ADraggedColumnKeepsItsWidthUntilAllAreReset) {
  Start();
  window_->resize(1200, 560);
  QHeaderView& head = *Table().horizontalHeader();
  head.resizeSection(RegisterModel::kPayee, 222);
  EXPECT_EQ(head.length(), Table().viewport()->width()) << "the others fill";
  window_->resize(1400, 560);
  QApplication::processEvents();
  EXPECT_EQ(Table().columnWidth(RegisterModel::kPayee), 222);
  EXPECT_EQ(head.length(), Table().viewport()->width());
  head.resizeSection(RegisterModel::kBalance, 20);
  EXPECT_GT(Table().columnWidth(RegisterModel::kBalance), 50) << "no figure is cut";
  Trigger("mnuViewWidths");
  EXPECT_EQ(Table().Widths(), "");
  EXPECT_NE(Table().columnWidth(RegisterModel::kPayee), 222);
}

}  // namespace
}  // namespace corvanta
