// Finding rows from the box in the head of the register, and narrowing the other lists.
#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "app/search/SearchBox.h"
#include "controls/EmptyState.h"
#include "controls/ListTable.h"
#include "controls/SortedTable.h"

#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QTimer>

namespace corvanta {
namespace {

class Finding : public WindowTest {
 protected:
  void Start() {
    OpenData();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Purse',2,77,5,0)");
    Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
        "[Amount],[Date],Description) VALUES (2,3,1,1,0,-7.25,#11/02/2026#,'Zürich tram')");
    Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
        "[Amount],[Date],Description) VALUES (2,3,1,1,0,-9,#11/03/2026#,'Museum')");
    Run("DELETE FROM tblTransactions WHERE AllocatedItem = 3");
    // Three rows of the first account have the grocer then.
    Run("UPDATE tblTransactions SET Description = 'for the Grocer' WHERE TransactionID IN (1, 9)");
    ShowWindow();
    window_->Show({kTransactionShow, 1});
    BringForward();
  }
  // Of the view in front.
  template <typename Widget>
  Widget& Box(const char* name) {
    for (auto* found : window_->findChildren<Widget*>(QLatin1String(name))) {
      if (found->isVisible()) return *found;
    }
    throw std::runtime_error(std::string("nothing to be seen: ") + name);
  }
  QLineEdit& Text() { return Box<QLineEdit>("txtFind"); }
  // Types over what the box holds, as a person does.
  void Type(const QString& text) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(Text().hasFocus());
    QTest::keyClicks(&Text(), text);
    WaitUntilFound();
  }
  void WaitUntilFound() {
    auto& timer = Find<QTimer>("tmrFind");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !timer.isActive(); }, 60000));
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(&Text(), key, held); }
  std::string Found() { return Box<QLabel>("lblFound").text().toStdString(); }
  SortedTable& Table() { return Find<SortedTable>("lvbank"); }
  ListTable& Everywhere() { return Find<ListTable>("lvfound"); }
  const RegisterModel& Model() { return static_cast<const RegisterModel&>(*Table().model()); }
  // Whether the row in use has the grocer.
  bool IsAtGrocer() {
    const RegisterRow& row = Model().Row(Table().currentIndex().row());
    return row.payee == "The Good Grocer" || row.description == "for the Grocer";
  }
};

TEST_F(Finding, GoesFromRowToRowAsItIsTyped) {
  Start();
  const double balance = Model().Row(Model().rowCount() - 1).balance;
  const int rows = Model().rowCount();
  Type("GROCER");
  EXPECT_EQ(Found().substr(Found().size() - 5), " of 3");
  EXPECT_TRUE(IsAtGrocer());
  EXPECT_EQ(Table().selectionModel()->selectedRows().size(), 1);
  EXPECT_TRUE(Text().hasFocus()) << "typing goes on";
  std::set<int> met;
  for (int i = 0; i < 3; ++i) {
    met.insert(Table().currentIndex().row());
    EXPECT_TRUE(IsAtGrocer());
    Press(Qt::Key_Return);
  }
  EXPECT_EQ(met.size(), 3U);
  EXPECT_TRUE(met.contains(Table().currentIndex().row())) << "after the last one the first again";
  const int here = Table().currentIndex().row();
  Press(Qt::Key_Return);
  Press(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(Table().currentIndex().row(), here);
  // Rows are found, not hidden: the balances are those of the account.
  EXPECT_EQ(Model().rowCount(), rows);
  EXPECT_EQ(Model().Row(rows - 1).balance, balance);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(Table().hasFocus());
  EXPECT_TRUE(Text().text().isEmpty());
  EXPECT_EQ(Table().currentIndex().row(), here);
  // What was looked for last is there again.
  QTest::keyClick(&Table(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(Text().text(), "GROCER");
  EXPECT_EQ(Text().selectedText(), "GROCER");
}

TEST_F(Finding, BeginsWithTheRowNearestToTheOneInUse) {
  Start();
  Type("grocer");
  const int last = Table().currentIndex().row();
  EXPECT_GT(last, Model().rowCount() / 2) << "the register was opened at its end";
  Press(Qt::Key_Escape);
  Table().ChooseRow(0);
  Type("grocer");
  EXPECT_LT(Table().currentIndex().row(), last);
  // The keys that move in the list do so from the box.
  const int row = Table().currentIndex().row();
  Press(Qt::Key_Down);
  EXPECT_EQ(Table().currentIndex().row(), row + 1);
  EXPECT_EQ(Found(), "3 found");
}

TEST_F(Finding, SaysWhatIsFoundNowhereAndWhatIsElsewhere) {
  Start();
  Type("no such word");
  EXPECT_EQ(Found(), "Nothing found");
  EXPECT_EQ(Text().accessibleDescription(), "Nothing found");
  Type("zurich");
  EXPECT_EQ(Found(), "None here, 1 in all");
}

TEST_F(Finding, ListsWhatIsInAllAccountsAndGoesThere) {
  Start();
  Type("7,25");
  Box<QCheckBox>("chkEverywhere").click();
  WaitUntilFound();
  ASSERT_TRUE(Everywhere().isVisible());
  ASSERT_EQ(Everywhere().model()->rowCount(), 1);
  const auto cell = [&](int column) {
    return Everywhere().model()->index(0, column).data().toString().toStdString();
  };
  EXPECT_EQ(cell(0), "Purse");
  EXPECT_EQ(cell(1), "02/11/2026");
  EXPECT_EQ(cell(4), "Zürich tram");
  EXPECT_EQ(cell(5), "-7.25");
  // Nobody can change rows that are not to be seen.
  Table().selectAll();
  EXPECT_TRUE(window_->findChild<RegisterView*>()->ChosenKeys().empty());
  EXPECT_FALSE(Find<QAction>("mnuEditDelete").isEnabled());
  Text().setFocus();
  Press(Qt::Key_Return);
  EXPECT_EQ(window_->Shown().accountId, 2);
  EXPECT_TRUE(Table().isVisible());
  EXPECT_TRUE(Table().hasFocus());
  EXPECT_EQ(Model().Row(Table().currentIndex().row()).description, "Zürich tram");
  EXPECT_TRUE(Text().text().isEmpty());
  // The list of all accounts comes again with the keys, as it was left.
  QTest::keyClick(&Table(), Qt::Key_F, Qt::ControlModifier);
  WaitUntilFound();
  EXPECT_TRUE(Everywhere().isVisible());
  QTest::keyClick(&Everywhere(), Qt::Key_Escape);
  EXPECT_TRUE(Table().isVisible());
  EXPECT_TRUE(Table().hasFocus());
}

TEST_F(Finding, TheChosenOfAllAccountsAreSummedByCurrencyAndCopied) {
  Start();
  Type("e");
  Box<QCheckBox>("chkEverywhere").click();
  WaitUntilFound();
  Everywhere().setFocus();
  Everywhere().selectAll();
  const std::string chosen = Find<QLabel>("lblChosen").text().toStdString();
  EXPECT_NE(chosen.find(" chosen: "), std::string::npos) << chosen;
  EXPECT_NE(chosen.find(" GBP"), std::string::npos) << chosen;
  QTest::keyClick(&Everywhere(), Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QGuiApplication::clipboard()->text().split(u'\n');
  EXPECT_EQ(lines.size(), Everywhere().model()->rowCount() + 2);
  EXPECT_TRUE(lines[0].startsWith("Account\tDate\tPayee")) << lines[0].toStdString();
}

TEST_F(Finding, ASplitIsUnfoldedWhereOnlyItsLinesHaveIt) {
  Start();
  Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,[Amount],"
      "[Date],Description) VALUES (1,30,1,1,3,-45.46,#11/13/2026#,'Herrings')");
  Trigger("mnuViewRefresh");
  const int single = Table().verticalHeader()->defaultSectionSize();
  Type("grocer");
  EXPECT_EQ(Table().rowHeight(Model().RowOf(3)), single);
  Type("herring");
  EXPECT_EQ(Found(), "1 of 1");
  EXPECT_EQ(Table().currentIndex().row(), Model().RowOf(3));
  EXPECT_EQ(Table().rowHeight(Model().RowOf(3)), 2 * single);
}

TEST_F(Finding, TheAccountIsShownAgainWhenItIsGoneTo) {
  Start();
  Type("7.25");
  Box<QCheckBox>("chkEverywhere").click();
  WaitUntilFound();
  ASSERT_TRUE(Everywhere().isVisible());
  window_->OpenAccount(1);
  EXPECT_TRUE(Table().isVisible());
  EXPECT_TRUE(Table().hasFocus());
}

TEST_F(Finding, AnotherFilterEndsTheListOfAllAccounts) {
  Start();
  Type("7.25");
  Box<QCheckBox>("chkEverywhere").click();
  WaitUntilFound();
  Trigger("mnuViewRefresh");
  WaitUntilFound();
  ASSERT_TRUE(Everywhere().isVisible()) << "nothing else is shown than before";
  RowFilter filter;
  filter.SetKeys(FilterKind::Account, {1});
  window_->ShowRows(filter);
  EXPECT_FALSE(Everywhere().isVisible());
  EXPECT_TRUE(Text().text().isEmpty());
}

TEST_F(Finding, WhatIsTypedForThePersonLeavesNothingBehind) {
  Start();
  Type("museum");
  Press(Qt::Key_Escape);
  for (const Qt::Key end : {Qt::Key_Escape, Qt::Key_Return}) {
    Box<SearchBox>("pnlFind").Find("7.25", true);
    WaitUntilFound();
    ASSERT_TRUE(Everywhere().isVisible());
    Press(end);
    EXPECT_TRUE(Table().hasFocus());
    QTest::keyClick(&Table(), Qt::Key_F, Qt::ControlModifier);
    WaitUntilFound();
    EXPECT_EQ(Text().text(), "museum");
    EXPECT_FALSE(Box<QCheckBox>("chkEverywhere").isChecked());
    EXPECT_FALSE(Everywhere().isVisible());
    Press(Qt::Key_Escape);
  }
}

TEST_F(Finding, FollowsChangesAndTheAccount) {
  Start();
  Type("grocer");
  Run("UPDATE tblTransactions SET Description = 'for the grocer' WHERE TransactionID = 5");
  Trigger("mnuViewRefresh");
  WaitUntilFound();
  EXPECT_EQ(Found().substr(Found().size() - 5), " of 4") << Found();
  window_->Show({kTransactionShow, 2});
  WaitUntilFound();
  EXPECT_EQ(Found(), "None here, 4 in all");
  EXPECT_EQ(Text().text(), "grocer");
  // A register that keeps to some days has only their rows.
  ViewCommand command{kTransactionShow, 1};
  command.dates = DateRange{*Date::FromYmd(2026, 1, 1), *Date::FromYmd(2026, 1, 2)};
  window_->Show(command);
  WaitUntilFound();
  EXPECT_EQ(Found(), "None here, 4 in all");
}

TEST_F(Finding, ALongRegisterIsSearchedAsItIsRead) {
  OpenPurse();
  const std::string columns = "AccountID,CategoryID,PaymentID,PayeeID,[Amount],[Date],Description";
  Run("INSERT INTO tblTransactions (" + columns + ") VALUES (1,3,1,1,-1,#01/02/2026#,'common')");
  for (int rows = 1; rows < 30000; rows *= 2) {
    Run("INSERT INTO tblTransactions (" + columns + ") SELECT " + columns +
        " FROM tblTransactions");
  }
  Run("UPDATE tblTransactions SET Description = 'needle' WHERE TransactionID IN (5, 20000)");
  ShowWindow();
  window_->Show({kTransactionShow, 1});
  BringForward();
  Type("needle");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Found().ends_with(" of 2"); }, 60000)) << Found();
  Press(Qt::Key_Return);
  Press(Qt::Key_Return);
  EXPECT_EQ(Model().Row(Table().currentIndex().row()).description, "needle");
  // Closing the file while something is looked for lets its rows go.
  Text().setText("comm");
  session_.Close();
  EXPECT_TRUE(Text().text().isEmpty());
}

TEST_F(Finding, OtherListsShowTheRowsAlone) {
  Start();
  window_->ShowView(kPayeeShow);
  auto& payees = Find<SortedTable>("lvpayee");
  payees.setFocus();
  const int all = payees.model()->rowCount();
  QTest::keyClick(&payees, Qt::Key_F, Qt::ControlModifier);
  ASSERT_TRUE(Text().hasFocus());
  QTest::keyClicks(&Text(), "ac");
  const int some = payees.model()->rowCount();
  EXPECT_LT(some, all);
  ASSERT_GE(some, 2);
  EXPECT_EQ(Found(), std::to_string(some) + " of " + std::to_string(all));
  EXPECT_EQ(payees.currentIndex().row(), 0);
  Press(Qt::Key_Return);
  EXPECT_EQ(payees.currentIndex().row(), 1);
  Press(Qt::Key_Return, Qt::ShiftModifier);
  Press(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(payees.currentIndex().row(), some - 1);
  const QString chosen = payees.currentIndex().siblingAtColumn(0).data().toString();
  QTest::keyClicks(&Text(), "zzz");
  EXPECT_EQ(Found(), "Nothing found");
  Press(Qt::Key_Escape);
  EXPECT_EQ(payees.model()->rowCount(), all);
  EXPECT_TRUE(payees.hasFocus());
  EXPECT_TRUE(Text().text().isEmpty());
  // A row that does not fit is shown all the same when it is gone to.
  QTest::keyClick(&payees, Qt::Key_F, Qt::ControlModifier);
  QTest::keyClick(&Text(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&Text(), chosen);
  EXPECT_EQ(payees.model()->rowCount(), 1);
  const auto key = session_.Ledger().References().FindOrCreatePayee("Somebody New");
  window_->Reload();
  EXPECT_TRUE(window_->ChooseRow(kPayeeShow, key));
  EXPECT_EQ(payees.model()->rowCount(), all + 1);
}

TEST_F(Finding, AReloadOfAListKeepsWhatIsLookedFor) {
  Start();
  ReferenceBook& references = session_.Ledger().References();
  const auto first = references.FindOrCreatePayee("Quagmire Brothers");
  references.FindOrCreatePayee("Quagmire Sisters");
  window_->Reload();
  window_->ShowView(kPayeeShow);
  auto& payees = Find<SortedTable>("lvpayee");
  payees.setFocus();
  QTest::keyClick(&payees, Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(&Text(), "quagmire");
  ASSERT_EQ(payees.model()->rowCount(), 2);
  ASSERT_EQ(payees.currentIndex().row(), 0);
  // The chosen row has another name now, and the next one takes its place.
  Run("UPDATE tblPayees SET Payee = 'Somebody' WHERE PayeeID = " + std::to_string(first));
  Trigger("mnuViewRefresh");
  EXPECT_EQ(Text().text(), "quagmire");
  EXPECT_EQ(payees.model()->rowCount(), 1);
  EXPECT_EQ(payees.selectionModel()->selectedRows().size(), 1);
}

TEST_F(Finding, EveryViewHasABox) {
  Start();
  for (const std::string_view view :
       {kAccountShow, kTransactionShow, kCategoryShow, kPayeeShow, kScheduleShow, kInvestmentShow,
        kInvestmentTransShow, kHoldingShow}) {
    window_->ShowView(view);
    window_->FocusView();
    EXPECT_TRUE(Find<QAction>("mnuEditFind").isEnabled()) << view;
    Trigger("mnuEditFind");
    EXPECT_TRUE(Text().hasFocus()) << view;
  }
  // The copied row of a list stands on the clipboard with its headings.
  window_->ShowView(kCategoryShow);
  auto& categories = Find<SortedTable>("lvcategory");
  categories.setFocus();
  categories.ChooseRow(0);
  Trigger("mnuEditCopy");
  const QStringList lines = QGuiApplication::clipboard()->text().split(u'\n');
  ASSERT_EQ(lines.size(), 3);
  EXPECT_TRUE(lines[0].startsWith("Category\tSub Category"));
  EXPECT_TRUE(lines[1].startsWith(categories.model()->index(0, 0).data().toString() + u'\t'));
}

}  // namespace
}  // namespace corvanta
