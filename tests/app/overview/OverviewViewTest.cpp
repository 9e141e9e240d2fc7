#include "app/WindowTest.h"
#include "app/overview/OverviewTile.h"
#include "app/overview/OverviewView.h"
#include "controls/Style.h"
#include "ledger/investments/RateBook.h"
#include "platform/Settings.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "support/DialogTest.h"

#include <QCheckBox>
#include <QSignalSpy>

namespace corvanta {
namespace {

class OverviewViewTest : public DialogTest<WindowTest> {
 protected:
  void Start() {
    OpenPurse();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Card',2,17,0,0)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (500,'Baker',0)");
    Run("UPDATE tblCategory SET Budget = 50, PeriodID = (Select Max(PeriodID) from tblPeriods "
        "WHERE Period = 'm') WHERE CategoryID = 2");
    const Date today = machine_.clock.Today();
    Add(1, 1, today, 70);
    Add(2, 2, today, -30);
    Add(1, 2, today.AddMonths(-1), -10);
    ShowWindow();
    window_->resize(1400, 900);
    LookAt("mnuViewOverview");
  }
  // Waits until all parts are read.
  void LookAt(const char* action) {
    QSignalSpy whole(&WindowTest::Find<OverviewView>("pnlOverview"), &OverviewView::ReadWhole);
    Trigger(action);
    ASSERT_TRUE(whole.wait());
  }
  void Add(int account, int category, Date day, double amount) {
    Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
        "TransferID,[Date],[Amount],BankChk,BankRec) VALUES (" +
        std::to_string(account) + "," + std::to_string(category) + ",1,500,0,0," + SqlDate(day) +
        "," + std::to_string(amount) + ",0,0)");
  }
  // The lines of a tile, a blank between their cells.
  std::vector<std::string> Lines(const char* tile) {
    std::vector<std::string> lines;
    for (const auto& line : WindowTest::Find<OverviewTile>(tile).Lines()) {
      QStringList cells;
      for (const auto& cell : line.cells) cells.append(cell.text);
      lines.push_back(cells.join(' ').toStdString());
    }
    return lines;
  }
  using Texts = std::vector<std::string>;
};

// Beside the tree no account has another balance than there.
TEST_F(OverviewViewTest, WhatIsHeldIsWorthSomethingAndInBalancesAsInTheTree) {
  Start();
  Run("INSERT INTO tblPayees (PayeeID,Payee,Investment,CurrencyID) VALUES (501,'Fund',1,17)");
  const std::string today = SqlDate(machine_.clock.Today());
  Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (501," + today + ",3)");
  Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
      "TransferID,[Date],[Amount],BankChk,BankRec,[Action],Shares) VALUES (1,2,1,501,0,0," +
      today + ",-20,0,0,1,10)");
  LookAt("mnuViewRefresh");
  EXPECT_EQ(Lines("tileBalances"), (Texts{"Card -30.00 GBP", "Purse 140.00 GBP"}));
  EXPECT_EQ(Lines("tileWorth")[0], "What you have 170.00 GBP");
  Settings(machine_.registry).SetOn(Setting::Investment, true);
  LookAt("mnuViewRefresh");
  EXPECT_EQ(Lines("tileBalances"), (Texts{"Card -30.00 GBP", "Purse 170.00 GBP"}));
  EXPECT_EQ(Lines("tileWorth")[0], "What you have 170.00 GBP");
}

TEST_F(OverviewViewTest, HowThingsStandIsSaidAndLeadsOn) {
  Start();
  EXPECT_EQ(Lines("tileBalances"), (Texts{"Card -30.00 GBP", "Purse 160.00 GBP"}));
  EXPECT_EQ(Lines("tileMonth"), (Texts{"GBP this month last month", "Income 70.00 0.00",
                                       "Expense -30.00 -10.00", "Left over 40.00 -10.00"}));
  EXPECT_EQ(Lines("tileWorth"),
            (Texts{"What you have 160.00 GBP", "What you owe -30.00 GBP", "Net worth 130.00 GBP"}));
  ASSERT_EQ(Lines("tileBudget").size(), 3U);
  EXPECT_EQ(Lines("tileBudget")[1], "Spent 30.00 GBP");
  EXPECT_EQ(Lines("tileDue"), Texts{"Nothing is due in the next two weeks"});
  Click(*window_, "cmdMonth");
  EXPECT_EQ(window_->Shown().name, kReportSelected);
  EXPECT_EQ(window_->Shown().report.report, 2);
  EXPECT_EQ(window_->Shown().report.dates->start.Day(), 1);
  EXPECT_TRUE(window_->Shown().report.withoutTransfers) << "as the tile";
  Trigger("mnuViewBack");
  EXPECT_EQ(window_->Shown().name, kOverviewShow);
  Click(*window_, "cmdBudget");
  EXPECT_EQ(window_->Shown().report.report, 4);
  EXPECT_TRUE(window_->Shown().report.withoutTransfers);
  Trigger("mnuViewBack");
  Click(*window_, "cmdDue");
  EXPECT_EQ(window_->Shown().name, kScheduleShow);
}

TEST_F(OverviewViewTest, AWideWindowTearsNoNameFromItsFigure) {
  OpenData();
  ShowWindow();
  Trigger("mnuViewOverview");
  for (const int width : {700, 1366, 3840}) {
    window_->resize(width, 1000);
    QCoreApplication::processEvents();
    const auto tiles = window_->findChildren<OverviewTile*>();
    ASSERT_FALSE(tiles.isEmpty());
    for (const OverviewTile* tile : tiles) {
      EXPECT_LT(tile->width(), 700) << width;
      EXPECT_GT(tile->width(), 300) << width;
    }
  }
}

TEST_F(OverviewViewTest, MoneyOutCanBeReadAfterThePaletteHasChanged) {
  Start();
  const auto colourOf = [this](const char* text) {
    for (const QLabel* label :
         WindowTest::Find<OverviewTile>("tileMonth").findChildren<QLabel*>()) {
      if (label->text() == QLatin1String(text) && label->isVisible()) {
        return label->palette().color(QPalette::WindowText);
      }
    }
    return QColor();
  };
  const QColor light = colourOf("-30.00");
  ASSERT_TRUE(light.isValid());
  EXPECT_EQ(light, MoneyOutColour(window_->palette()));
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(30, 30, 34));
  dark.setColor(QPalette::Base, QColor(30, 30, 34));
  dark.setColor(QPalette::WindowText, Qt::white);
  dark.setColor(QPalette::Text, Qt::white);
  window_->setPalette(dark);
  EXPECT_NE(colourOf("-30.00"), light);
  EXPECT_EQ(colourOf("-30.00"), MoneyOutColour(dark));
  EXPECT_EQ(colourOf("70.00"), QColor(Qt::white)) << "what is no money out is as all texts";
}

TEST_F(OverviewViewTest, BudgetsAreInTheCurrencyOfThePerson) {
  Start();
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Abroad',2,(Select Min(CurrencyID) from tblCurrency),5,0)");
  LookAt("mnuViewRefresh");
  ASSERT_EQ(Lines("tileBalances").size(), 3U);
  ASSERT_EQ(Lines("tileBudget").size(), 3U);
  EXPECT_EQ(Lines("tileBudget")[1], "Spent 30.00 GBP");
}

TEST_F(OverviewViewTest, WhatIsSpentInAnotherCurrencyCounts) {
  Start();
  Run("UPDATE tblCategory SET Budget = 0 WHERE CategoryID <> 2");
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Abroad',2,(Select CurrencyID from tblCurrency WHERE Currency = 'EUR'),5,0)");
  Add(3, 2, machine_.clock.Today(), -24);
  Add(3, 3, machine_.clock.Today(), -7);  // is not planned
  LookAt("mnuViewRefresh");
  EXPECT_EQ(Lines("tileBudget"),
            (Texts{"To be spent this month 50.00 GBP", "Spent 30.00 GBP", "Left 20.00 GBP",
                   "Spent besides, no rate known 24.00 EUR"}));
  // That of a later day is none yet.
  RateBook& rates = session_.Ledger().Rates();
  rates.Keep({0, "EUR", "GBP", machine_.clock.Today().AddDays(-9), 0.75, kEnteredRate});
  rates.Keep({0, "EUR", "GBP", machine_.clock.Today().AddDays(1), 9, kEnteredRate});
  LookAt("mnuViewRefresh");
  EXPECT_EQ(Lines("tileBudget"),
            (Texts{"To be spent this month 50.00 GBP", "Spent 48.00 GBP", "Left 2.00 GBP",
                   "Other currencies at the last known rates"}));
  // The report asks for rates of today.
  machine_.prompts.ExpectTell("Download Currency for Report", ScriptedPrompts::kAnyText);
  Click(*window_, "cmdBudget");
  EXPECT_TRUE(window_->Shown().report.converts);
  EXPECT_EQ(window_->Shown().report.currency, "GBP");
}

// What goes through the transactions lets the window be drawn first.
TEST_F(OverviewViewTest, FiguresOfTheMonthsComeBehindTheRest) {
  Start();
  Trigger("mnuViewAccounts");
  Add(2, 2, machine_.clock.Today(), -5);
  QSignalSpy whole(&WindowTest::Find<OverviewView>("pnlOverview"), &OverviewView::ReadWhole);
  Trigger("mnuViewOverview");
  EXPECT_EQ(Lines("tileBalances")[0], "Card -35.00 GBP");
  EXPECT_EQ(Lines("tileMonth")[2], "Expense -30.00 -10.00") << "as it was";
  {
    // A change that is under way is waited for.
    Transaction open = session_.Ledger().Store().Begin();
    EXPECT_FALSE(whole.wait(200));
    open.Commit();
  }
  ASSERT_TRUE(whole.wait());
  EXPECT_EQ(Lines("tileMonth")[2], "Expense -35.00 -10.00");
  EXPECT_EQ(Lines("tileBudget")[1], "Spent 35.00 GBP");
}

TEST_F(OverviewViewTest, WhatIsDueStandsThere) {
  OpenPurse();
  AddRent(machine_.clock.Today().AddDays(3), -400, AddToAccount::No);
  ShowWindow();
  Trigger("mnuViewOverview");
  ASSERT_EQ(Lines("tileDue").size(), 1U);
  EXPECT_EQ(Lines("tileDue")[0].substr(0, 8), "Landlord");
  EXPECT_NE(Lines("tileDue")[0].find("-400.00"), std::string::npos);
}

TEST_F(OverviewViewTest, TheProgramBeginsWithItUntilItIsSwitchedOff) {
  OpenPurse();
  machine_.registry.DeleteValue(Hive::CurrentUser, kSettingsKey, "ShowOverview");
  ShowWindow();
  EXPECT_EQ(window_->Shown().name, kOverviewShow);
  auto& tick = WindowTest::Find<QCheckBox>("chkOverview");
  EXPECT_TRUE(tick.isChecked());
  tick.click();
  Trigger("mnuViewPayees");
  window_->close();
  ShowWindow();
  EXPECT_EQ(window_->Shown().name, kPayeeShow);
}

}  // namespace
}  // namespace corvanta
