// Where each row of each report leads, the way back from there, and what may be chosen of each.
#include "app/reports/ReportsViewTest.h"
#include "reports/query/ReportCatalogue.h"

#include <QComboBox>
#include <QMenu>
#include <QPushButton>

#include <string_view>

namespace corvanta {
namespace {

class ReportsDrillTest : public ReportsViewTest {
 protected:
  void StartWithShares() {
    Start();
    Run("INSERT INTO tblPayees (PayeeID,Payee,[Symbol],Investment,CurrencyID) VALUES "
        "(502,'Fund','F',1,17)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,[Symbol],Investment,CurrencyID) VALUES "
        "(503,'Gold','G',1,17)");
    for (const int payee : {502, 503}) Add(1, 2, payee, "#03/05/2026#,-50");
    Run("UPDATE tblTransactions SET [Action] = 1, Shares = 2, [Price] = 25 WHERE PayeeID > 501");
    Run("UPDATE tblCategory SET Budget = 80, PeriodID = 6 WHERE CategoryID = 2");
    Trigger("mnuViewRefresh");
  }
  void ShowReport(int number) {
    ViewCommand command{kReportSelected};
    command.report.report = number;
    if (number == kBalanceForecast) {
      command.report.dates = DateRange{*Date::FromIso("2026-11-21"), *Date::FromIso("2026-11-30")};
    }
    window_->Show(command);
  }
  // It stands for a group.
  bool HasSign(int row) { return !List().model()->index(row, 0).data(Qt::DecorationRole).isNull(); }
  bool IsTotal(int row) {
    return List().model()->index(row, 0).data().toString().startsWith(QLatin1String("Total"));
  }
};

TEST_F(ReportsDrillTest, EveryRowOfAGroupLeadsOnAndBackAndEveryTotalNowhere) {
  StartWithShares();
  for (const ReportInfo& info : ReportCatalogue()) {
    SCOPED_TRACE(info.name);
    ShowReport(info.number);
    const ViewCommand shown = window_->Shown();
    ASSERT_GT(Rows(), 0);
    for (int row = 0; row < Rows(); ++row) {
      SCOPED_TRACE(row);
      if (IsTotal(row)) {
        EXPECT_FALSE(HasSign(row));
        ClickRow(row);
        EXPECT_EQ(window_->Shown(), shown);
        QTest::keyClick(&List(), Qt::Key_Return);
        EXPECT_EQ(window_->Shown(), shown);
        continue;
      }
      if (!HasSign(row)) continue;
      ClickRow(row);
      EXPECT_EQ(Shown(), "Account Transactions");
      EXPECT_FALSE(window_->Shown() == shown);
      const bool setsFilter = info.number != kCashFlow && info.number != kNetWorth;
      EXPECT_EQ(Get<QPushButton>("cmdNoFilter").isEnabled(), setsFilter);
      Trigger("mnuViewBack");
      EXPECT_EQ(window_->Shown(), shown);
      EXPECT_FALSE(Get<QPushButton>("cmdNoFilter").isEnabled());
    }
  }
}

TEST_F(ReportsDrillTest, ATransactionOfAnInvestmentLeadsToAllOfThatOneAndThenToTheRegister) {
  StartWithShares();
  ShowReport(kInvestmentTransactions);
  ASSERT_EQ(Rows(), 4);
  EXPECT_EQ(Cell(1, "Account"), "Total for Fund");
  EXPECT_EQ(Cell(3, "Account"), "Total for Gold");
  ClickRow(2);
  EXPECT_EQ(Shown(), "Investment Transactions");
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(Cell(0, "Symbol"), "G");
  EXPECT_EQ(Get<QLabel>("lblInvestmentFilter").text(), "Gold");
  EXPECT_EQ(Get<QLabel>("lblInvestmentFilter").property("tag"), "Yes");
  EXPECT_TRUE(Get<QPushButton>("cmdNoFilter").isEnabled());
  const ViewCommand narrowed = window_->Shown();
  ClickRow(0);
  EXPECT_EQ(window_->Shown(), narrowed) << "it is chosen there";
  QTest::keyClick(&List(), Qt::Key_Return);
  EXPECT_EQ(window_->Shown().name, kTransactionShow);
  Trigger("mnuViewBack");
  EXPECT_EQ(window_->Shown(), narrowed);
  Trigger("mnuViewBack");
  EXPECT_EQ(Rows(), 4);
  ShowReport(kAccountTransactions);
  const ViewCommand all = window_->Shown();
  ClickRow(0);
  EXPECT_EQ(window_->Shown(), all) << "a click chooses it";
}

TEST_F(ReportsDrillTest, TheMenuHasTheStandardReportsInTheirOrder) {
  Start();
  const QList<QAction*> all = Get<QMenu>("mnuReports").actions();
  const auto first = all.indexOf(&Get<QAction>("mnuReport1"));
  ASSERT_GE(first, 0);
  const QList<QAction*> entries = all.mid(first);
  ASSERT_GT(entries.size(), kStandardReports);
  for (int number = 1; number <= kStandardReports; ++number) {
    const QAction& entry = *entries[number - 1];
    EXPECT_EQ(entry.objectName(), QStringLiteral("mnuReport%1").arg(number));
    EXPECT_EQ(entry.text().remove(u'&').toStdString(), FindReport(number)->name);
    Trigger(entry.objectName().toLatin1().constData());
    EXPECT_EQ(Shown(), FindReport(number)->name);
    EXPECT_EQ(window_->Shown().name, kReportSelected);
    EXPECT_EQ(Tabs().currentIndex(), 1);
    EXPECT_EQ(List().model()->columnCount(),
              static_cast<int>(ColumnsOf(*FindReport(number)).size()));
  }
  EXPECT_TRUE(entries.contains(&Get<QAction>("mnuReportCustom")));
}

TEST_F(ReportsDrillTest, AReportThatCannotBeReadIsToldAndTheOthersGoOn) {
  StartWithShares();
  ShowReport(kAccountSummary);
  Run("DROP TABLE tblPeriods");
  machine_.prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  Trigger("mnuReport4");
  EXPECT_TRUE(machine_.prompts.AllMet());
  EXPECT_EQ(Rows(), 0) << "nothing of another report stands there";
  Trigger("mnuReport5");
  EXPECT_EQ(Shown(), "Spending by Category");
  EXPECT_GT(Rows(), 0);
}

TEST_F(ReportsDrillTest, EachReportOffersWhatCountsInIt) {
  StartWithShares();
  for (const ReportInfo& info : ReportCatalogue()) {
    SCOPED_TRACE(info.name);
    ShowReport(info.number);
    const int number = info.number;
    const auto isShown = [&](const char* name) { return !Get<QWidget>(name).isHidden(); };
    const bool isOfCategories = std::string_view(info.headers).starts_with("Category");
    EXPECT_EQ(isShown("chkSubCategories"), isOfCategories);
    EXPECT_EQ(isShown("cmdActionFilter"), number == kInvestmentTransactions);
    EXPECT_EQ(Get<QWidget>("chkOther").isVisible(), number == kTwoPeriods);
    EXPECT_EQ(isShown("chkCarry"), number == kBudgetOfMonth);
    for (const char* always : {"chkUnsetR", "DTPickSRep", "DTPickERep", "chkTransfers",
                               "chkDefaultCurrency", "cmbCurrencyR"}) {
      EXPECT_TRUE(Get<QWidget>(always).isVisible()) << always;
    }
    const auto isOn = [&](const char* name) { return Get<QAction>(name).isEnabled(); };
    EXPECT_TRUE(isOn("mnuReportSave") && isOn("mnuReportColumns"));
    EXPECT_EQ(Tabs().count(), info.hasChart ? 3 : 2);
  }
  EXPECT_TRUE(Get<QComboBox>("cmbCurrencyR").currentText().endsWith(QLatin1String(" (GBP)")));
  Tabs().setCurrentIndex(0);
  for (const char* name : {"mnuReportSave", "mnuReportColumns", "mnuReportExplain"}) {
    EXPECT_FALSE(Get<QAction>(name).isEnabled()) << name;
  }
}

}  // namespace
}  // namespace corvanta
