#include "app/LedgerSession.h"
#include "app/WindowTest.h"
#include "controls/SortedTable.h"
#include "ledger/investments/RateBook.h"
#include "platform/Settings.h"
#include "store/sql/SqlText.h"
#include "support/DialogTest.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QStatusBar>
#include <QTabBar>

namespace corvanta {
namespace {

class PlanCellsTest : public DialogTest<WindowTest> {
 protected:
  // The categories "Alpha", "Beta:One" and "Beta:Two", of which the first is planned.
  void Start() {
    OpenPurse();
    Run("DELETE FROM tblCategory WHERE CategoryID > 2");
    const auto add = [this](int key, const char* names, const char* budget) {
      Run("INSERT INTO tblCategory (CategoryID,Category,SubCategory,[Type],Budget,PeriodID) VALUES "
          "(" +
          std::to_string(key) + "," + names + ",-1," + budget + ")");
    };
    add(50, "'Alpha',''", "40,(Select Max(PeriodID) from tblPeriods WHERE Period = 'm')");
    add(51, "'Beta','One'", "0,0");
    add(52, "'Beta','Two'", "0,0");
    ShowWindow();
    window_->resize(1400, 900);
    BringForward();
    Page(false);
  }
  // An account of euros, of which 10 were spent on "Beta:One" today, and the rates of yesterday, as
  // none can be fetched.
  void AddEuros() {
    clsCorvanta& ledger = session_.Ledger();
    const Date today = machine_.clock.Today();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Euros',2,(Select CurrencyID from tblCurrency WHERE Currency = 'EUR'),0,0)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (500,'Baker',0)");
    Run("INSERT INTO tblTransactions "
        "(AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,TransferID,"
        "[Date],[Amount],BankChk,BankRec) VALUES (2,51,1,500,0,0," +
        SqlDate(today) + ",-10,0,0)");
    ledger.Rates().Keep({0, "EUR", "GBP", today.AddDays(-1), 0.5, "x"});
    ledger.Rates().Keep({0, "GBP", "EUR", today.AddDays(-1), 2, "x"});
  }
  // All converted into that currency, which asks for rates, or nothing.
  void Page(bool folds, const char* into = "") {
    if (*into != '\0') {
      machine_.prompts.ExpectTell("Download Currency for Report", ScriptedPrompts::kAnyText);
    }
    ViewCommand page{kReportSelected};
    page.report.report = 14;
    page.report.foldsSubCategories = folds;
    page.report.converts = *into != '\0';
    if (page.report.converts) page.report.currency = into;
    page.rows.SetKeys(FilterKind::Category, {50, 51, 52});
    window_->Show(page);
    window_->FocusView();
  }
  SortedTable& List() { return WindowTest::Find<SortedTable>("lvReportSelect"); }
  std::string Plan(int row) {
    return List().model()->index(row, 2).data().toString().toStdString();
  }
  std::string CurrencyOf(int row) {
    return List().model()->index(row, 6).data().toString().toStdString();
  }
  std::string Notice() { return window_->statusBar()->currentMessage().toStdString(); }
  // The one that is open; null for none.
  QLineEdit* Field() {
    for (auto* field : List().findChildren<QLineEdit*>("txtPlan")) {
      if (field->isVisible()) return field;
    }
    return nullptr;
  }
  void Key(int key) {
    ASSERT_NE(Field(), nullptr);
    QTest::keyClick(Field(), static_cast<Qt::Key>(key));
    QApplication::processEvents();
  }
  // Begins in the first row, with that typed over what stands there.
  void Begin(const char* typed) {
    List().setCurrentIndex(List().model()->index(0, 2));
    QTest::keyClick(&List(), Qt::Key_F2);
    ASSERT_NE(Field(), nullptr);
    QTest::keyClicks(Field(), typed);
  }
  void ClickCell(int row, int column) {
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                      List().visualRect(List().model()->index(row, column)).center());
    QApplication::processEvents();
  }
  double Budget(int category) {
    return session_.Ledger()
        .Store()
        .QueryValue("Select Budget from tblCategory WHERE CategoryID = " + std::to_string(category))
        .Double();
  }
};

TEST_F(PlanCellsTest, AmountsAreTypedFromRowToRow) {
  Start();
  ASSERT_EQ(Plan(0), "-40.00");
  List().setCurrentIndex(List().model()->index(0, 2));
  QTest::keyClick(&List(), Qt::Key_5);
  ASSERT_NE(Field(), nullptr);
  EXPECT_EQ(Field()->text(), "5") << "it takes the place of what stood there";
  QTest::keyClicks(Field(), "0+2");
  Key(Qt::Key_Return);
  EXPECT_EQ(Plan(0), "-52.00");
  ASSERT_NE(Field(), nullptr) << "and on with the next row";
  EXPECT_EQ(List().currentIndex().row(), 1);
  QTest::keyClicks(Field(), "30");
  Key(Qt::Key_Up);
  EXPECT_EQ(Plan(1), "-30.00");
  EXPECT_EQ(List().currentIndex().row(), 0);
  EXPECT_EQ(Field()->text(), "52.00");
  QTest::keyClicks(Field(), "99");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Field(), nullptr);
  EXPECT_EQ(Plan(0), "-52.00") << "what was typed is taken back";
  EXPECT_TRUE(List().hasFocus());
  Trigger("mnuEditUndo");
  EXPECT_EQ(Budget(51), 0);
  Trigger("mnuEditUndo");
  EXPECT_EQ(Plan(0), "-40.00");
}

TEST_F(PlanCellsTest, WhatIsNoAmountIsRefusedInWordsAndStays) {
  Start();
  List().setCurrentIndex(List().model()->index(0, 2));
  QTest::keyClick(&List(), Qt::Key_F2);
  ASSERT_NE(Field(), nullptr);
  EXPECT_EQ(Field()->selectedText(), "40.00");
  QTest::keyClicks(Field(), "(5");
  machine_.prompts.ExpectTell("Save Warning", "You need to enter a valid Budget");
  Key(Qt::Key_Return);
  ASSERT_NE(Field(), nullptr);
  EXPECT_EQ(Field()->text(), "(5");
  EXPECT_TRUE(Field()->hasFocus());
  EXPECT_EQ(Budget(50), 40);
  // Away from the page it cannot stay, which is said.
  machine_.prompts.ExpectTell("Save Warning", "\"(5\" is no amount and was not planned");
  List().setFocus(Qt::MouseFocusReason);
  Trigger("mnuViewRefresh");
  QApplication::processEvents();
  EXPECT_EQ(Field(), nullptr);
  EXPECT_EQ(Budget(50), 40);
}

TEST_F(PlanCellsTest, AClickElsewhereSavesWhatWasTyped) {
  Start();
  ClickCell(0, 2);
  ASSERT_NE(Field(), nullptr) << "a click on a plan edits it";
  EXPECT_EQ(window_->Shown().report.report, 14);
  QTest::keyClicks(Field(), "12");
  ClickCell(1, 2);
  EXPECT_EQ(Budget(50), 12);
  EXPECT_EQ(Plan(0), "-12.00");
}

TEST_F(PlanCellsTest, AskedForAgainTheFieldKeepsWhatWasTyped) {
  Start();
  Begin("61");
  QTest::keyClick(Field(), Qt::Key_F2);
  ASSERT_NE(Field(), nullptr);
  EXPECT_EQ(Field()->text(), "61");
  Key(Qt::Key_Return);
  EXPECT_EQ(Budget(50), 61);
}

TEST_F(PlanCellsTest, WhoeverEndsLosesNothingThatWasTyped) {
  Start();
  Begin("62");
  window_->close();
  EXPECT_EQ(Field(), nullptr);
  EXPECT_EQ(Budget(50), 62);
  window_->show();
  BringForward();
  Page(false);
  Begin("63");
  // The data file goes between the two halves of a click elsewhere.
  List().setFocus(Qt::MouseFocusReason);
  session_.Close();
  QApplication::processEvents();
  EXPECT_EQ(Field(), nullptr);
  ASSERT_TRUE(session_.Open(true));
  EXPECT_EQ(Budget(50), 63);
}

TEST_F(PlanCellsTest, WhatCannotBeWrittenIsToldOnceAndCanBeLeft) {
  Start();
  Begin("64");
  Run("DROP TABLE tblPeriods");
  machine_.prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  ClickCell(1, 2);
  ASSERT_NE(Field(), nullptr) << "it stays to be tried again";
  EXPECT_TRUE(Field()->hasFocus());
  EXPECT_EQ(Field()->text(), "64.00");
  EXPECT_TRUE(machine_.prompts.AllMet());
  // A tab leads away: the keys go first, then the page.
  machine_.prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  List().setFocus(Qt::MouseFocusReason);
  WindowTest::Find<QTabBar>("tbReport").setCurrentIndex(0);
  QApplication::processEvents();
  EXPECT_EQ(Field(), nullptr);
  EXPECT_EQ(window_->Shown().name, kReportShow);
  EXPECT_EQ(Budget(50), 40);
}

TEST_F(PlanCellsTest, APlanOfSeveralSubCategoriesIsNotEdited) {
  Start();
  Page(true);
  List().setCurrentIndex(List().model()->index(1, 2));
  QTest::keyClick(&List(), Qt::Key_7);
  EXPECT_EQ(Field(), nullptr);
  List().setCurrentIndex(List().model()->index(0, 2));
  QTest::keyClick(&List(), Qt::Key_7);
  ASSERT_NE(Field(), nullptr);
  Key(Qt::Key_Return);
  EXPECT_EQ(Budget(50), 7);
  EXPECT_EQ(Field(), nullptr) << "no other row can be";
}

TEST_F(PlanCellsTest, APlanIsTypedInTheCurrencyThatItIsKeptIn) {
  Start();
  AddEuros();
  Page(false);
  ASSERT_EQ(CurrencyOf(1), "GBP") << "which every category has a row of";
  ASSERT_EQ(CurrencyOf(2), "EUR");
  List().setCurrentIndex(List().model()->index(2, 2));
  QTest::keyClick(&List(), Qt::Key_7);
  EXPECT_EQ(Field(), nullptr);
  EXPECT_EQ(Notice(), "Plans are in GBP: change the category's other row");
  List().setCurrentIndex(List().model()->index(1, 2));
  QTest::keyClick(&List(), Qt::Key_7);
  Key(Qt::Key_Return);
  EXPECT_EQ(Budget(51), 7);
  EXPECT_EQ(Notice(), "Planned for a month: 7.00 GBP");
  ASSERT_NE(Field(), nullptr);
  EXPECT_EQ(List().currentIndex().row(), 3) << "past the row of the other currency";
}

TEST_F(PlanCellsTest, AConvertedPlanIsNotEdited) {
  Start();
  AddEuros();
  Page(false, "EUR");
  EXPECT_EQ(Plan(0), "-80.00");
  EXPECT_EQ(CurrencyOf(0), "EUR");
  List().setCurrentIndex(List().model()->index(0, 2));
  QTest::keyClick(&List(), Qt::Key_7);
  EXPECT_EQ(Field(), nullptr);
  EXPECT_EQ(Notice(), "Plans are kept in GBP. Untick \"Convert into\" to change them.");
  EXPECT_EQ(Budget(50), 40);
}

TEST_F(PlanCellsTest, RatesAreAskedForOnceAndNotForEachPlan) {
  Start();
  AddEuros();
  Page(false, "GBP");
  EXPECT_TRUE(machine_.prompts.AllMet());
  ASSERT_EQ(CurrencyOf(1), "GBP");
  EXPECT_EQ(List().model()->index(1, 4).data().toString(), "-5.00");
  Begin("12");
  Key(Qt::Key_Return);
  EXPECT_EQ(Plan(0), "-12.00");
  EXPECT_EQ(List().model()->index(1, 4).data().toString(), "-5.00");
  QTest::keyClicks(Field(), "13");
  ClickCell(0, 2);
  EXPECT_EQ(Plan(1), "-13.00");
}

TEST_F(PlanCellsTest, WhatIsLeftIsCarriedOnOrNot) {
  Start();
  auto& carry = WindowTest::Find<QCheckBox>("chkCarry");
  EXPECT_TRUE(carry.isVisible());
  EXPECT_TRUE(carry.isChecked());
  Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (500,'Baker',0)");
  Run("INSERT INTO tblTransactions "
      "(AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,TransferID,"
      "[Date],[Amount],BankChk,BankRec) VALUES (1,50,1,500,0,0,#01/05/" +
      std::to_string(machine_.clock.Today().Year()) + "#,-10,0,0)");
  Trigger("mnuViewRefresh");
  const auto carried = [this] {
    return List().model()->index(0, 3).data().toString().toStdString();
  };
  // January's 40 less 10, and 40 of each month after it.
  const int months = machine_.clock.Today().Month() - 1;
  ASSERT_GT(months, 0);
  const QString left = QStringLiteral("-%1.00").arg(months * 40 - 10);
  EXPECT_EQ(carried(), left.toStdString());
  carry.click();
  EXPECT_EQ(carried(), "0.00");
  EXPECT_FALSE(Settings(machine_.registry).IsOn(Setting::CarryBudget));
  Trigger("mnuReport1");
  EXPECT_FALSE(carry.isVisible());
}

}  // namespace
}  // namespace corvanta
