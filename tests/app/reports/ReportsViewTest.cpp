#include "app/reports/ReportsViewTest.h"

#include "app/LedgerSession.h"
#include "app/reports/ReportsView.h"
#include "platform/Settings.h"
#include "reports/chart/ucReportChart.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace corvanta {
namespace {

TEST_F(ReportsViewTest, AReportIsChosenFromItsListAndStandsBehindItsTab) {
  Start();
  Trigger("mnuViewReports");
  EXPECT_EQ(window_->Shown().name, kReportShow);
  EXPECT_EQ(Tabs().count(), 1);
  auto& list = Get<QTreeWidget>("tvReports");
  QTreeWidgetItem& root = *list.topLevelItem(0);
  EXPECT_EQ(root.text(0), "Corvanta Reports");
  ASSERT_GE(root.childCount(), 11);
  EXPECT_EQ(root.child(0)->text(0), "Account Summary");
  EXPECT_EQ(root.child(10)->text(0), "Investment Transactions");
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                    list.visualItemRect(root.child(0)).center());
  EXPECT_EQ(window_->Shown().name, kReportSelected);
  ASSERT_EQ(Tabs().count(), 3);
  EXPECT_EQ(Shown(), "Account Summary");
  EXPECT_EQ(Tabs().currentIndex(), 1);
  EXPECT_EQ(Tabs().tabText(2), "Charts");
  EXPECT_EQ(Cell(0, "Account"), "Bank");
  EXPECT_EQ(Cell(0, "Balance"), "1,100.00");
  EXPECT_EQ(Cell(2, "Account"), "Total (GBP)");
  Trigger("mnuReport11");
  EXPECT_EQ(Tabs().count(), 2) << "it has no chart";
  Trigger("mnuReport2");
  EXPECT_EQ(Tabs().count(), 3);
  Tabs().setCurrentIndex(2);
  EXPECT_EQ(window_->Shown().name, kReportChart);
  Tabs().setCurrentIndex(0);
  EXPECT_EQ(window_->Shown().name, kReportShow);
  EXPECT_EQ(Tabs().count(), 3) << "the report stays";
  Trigger("mnuViewBack");
  EXPECT_EQ(window_->Shown().name, kReportChart);
}

TEST_F(ReportsViewTest, AClickLooksIntoARowAndBackShowsTheReportAsItWas) {
  Start();
  Trigger("mnuReport1");
  EXPECT_FALSE(Get<QAction>("mnuFilterNone").isEnabled());
  EXPECT_FALSE(List().model()->index(0, 0).data(Qt::DecorationRole).isNull());
  EXPECT_TRUE(List().model()->index(2, 0).data(Qt::DecorationRole).isNull());
  ClickRow(2);
  EXPECT_EQ(Shown(), "Account Summary") << "a total leads nowhere";
  ClickRow(1);
  EXPECT_EQ(Shown(), "Account Transactions");
  EXPECT_EQ(Get<QLabel>("lblAccountFilter").text(), "Purse");
  EXPECT_EQ(Get<QLabel>("lblAccountFilter").property("tag"), "Yes");
  EXPECT_TRUE(Get<QAction>("mnuFilterNone").isEnabled());
  EXPECT_TRUE(Get<QPushButton>("cmdNoFilter").isEnabled());
  EXPECT_EQ(Cell(0, "Payee"), "Baker");
  Trigger("mnuViewBack");
  EXPECT_EQ(Shown(), "Account Summary");
  EXPECT_EQ(Get<QLabel>("lblAccountFilter").property("tag"), "No");
  Trigger("mnuReport2");
  EXPECT_EQ(Cell(1, "Year/Month"), "202602");
  ClickRow(1);
  EXPECT_EQ(Shown(), "Account Transactions");
  EXPECT_TRUE(Get<QCheckBox>("chkUnsetR").isChecked());
  EXPECT_EQ(Get<QDateEdit>("DTPickSRep").date(), QDate(2026, 2, 1));
  EXPECT_EQ(Get<QDateEdit>("DTPickERep").date(), QDate(2026, 2, 28));
  Trigger("mnuViewBack");
  EXPECT_FALSE(Get<QCheckBox>("chkUnsetR").isChecked());
  Trigger("mnuReport9");
  ClickRow(0);
  EXPECT_EQ(Shown(), "Account Transactions");
  EXPECT_TRUE(Get<QAction>("mnuFilterNone").isEnabled()) << "by the payment type";
  Trigger("mnuFilterNone");
  EXPECT_TRUE(window_->Shown().report.paymentTypes.empty());
  Trigger("mnuReport9");
  EXPECT_TRUE(window_->Shown().report.paymentTypes.empty()) << "used once";
}

TEST_F(ReportsViewTest, ABudgetOfTheMonthSaysWhichAndLeadsIntoItsDays) {
  Start();
  Run("UPDATE tblCategory SET Budget = 50, PeriodID = (Select Max(PeriodID) from tblPeriods "
      "WHERE Period = 'm') WHERE CategoryID = 2");
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Abroad',2,(Select Min(CurrencyID) from tblCurrency),5,0)");
  ViewCommand year{kReportSelected};
  year.report.report = 14;
  year.rows.SetKeys(FilterKind::Category, {2});
  year.report.dates = DateRange{*Date::FromIso("2026-02-01"), *Date::FromIso("2026-02-28")};
  // A currency that nothing is converted into.
  year.report.currency = "USD";
  window_->Show(year);
  EXPECT_EQ(Cell(0, "Currency"), "GBP");
  EXPECT_EQ(Cell(0, "Carried Over"), "-30.00") << "January's 50 less 20";
  year.report.dates->start = *Date::FromIso("2025-03-01");
  window_->Show(year);
  ClickRow(0);
  EXPECT_EQ(Shown(), "Account Transactions");
  EXPECT_EQ(Get<QDateEdit>("DTPickSRep").date(), QDate(2026, 2, 1));
  EXPECT_EQ(Get<QDateEdit>("DTPickERep").date(), QDate(2026, 2, 28));
}

TEST_F(ReportsViewTest, TwoPeriodsAreChosenApart) {
  Start();
  Trigger("mnuReport12");
  EXPECT_FALSE(Get<QCheckBox>("chkOther").isVisible()) << "of the comparison alone";
  ViewCommand compared{kReportSelected};
  compared.report.report = 13;
  compared.report.dates = DateRange{*Date::FromIso("2026-02-01"), *Date::FromIso("2026-02-28")};
  window_->Show(compared);
  auto& tick = Get<QCheckBox>("chkOther");
  ASSERT_TRUE(tick.isVisible());
  EXPECT_EQ(Get<QDateEdit>("DTPickSOther").date(), QDate(2026, 1, 4)) << "as long, before it";
  EXPECT_EQ(Get<QDateEdit>("DTPickEOther").date(), QDate(2026, 1, 31));
  const auto otherExpense = [this] {
    for (int row = 0; row < Rows(); ++row) {
      if (Cell(row, "This Period") == "-9.00") return Cell(row, "Other Period");
    }
    return std::string("no such row");
  };
  EXPECT_EQ(otherExpense(), "-20.00");
  tick.click();
  Get<QDateEdit>("DTPickSOther").setDate(QDate(2026, 1, 10));
  EXPECT_EQ(otherExpense(), "0.00");
  EXPECT_EQ(window_->Shown().report.otherDates->start.ToIso(), "2026-01-10");
  Trigger("mnuReport7");
  Trigger("mnuViewBack");
  EXPECT_TRUE(tick.isChecked()) << "it is shown again as it was";
  EXPECT_EQ(otherExpense(), "0.00");
}

TEST_F(ReportsViewTest, TheChartIsOfTheSameRowsAndLeadsWhereTheyLead) {
  Start();
  Trigger("mnuReport7");
  Tabs().setCurrentIndex(2);
  EXPECT_EQ(window_->Shown().name, kReportChart);
  auto* chart = window_->findChild<ucReportChart*>();
  ASSERT_NE(chart, nullptr);
  EXPECT_TRUE(chart->isVisible());
  EXPECT_FALSE(chart->Shown().IsEmpty());
  Q_EMIT chart->RowChosen(0);
  QApplication::processEvents();
  EXPECT_EQ(Shown(), "Account Transactions");
  EXPECT_EQ(Get<QLabel>("lblPayeeFilter").text(), "Baker");
  Trigger("mnuViewBack");
  EXPECT_EQ(window_->Shown().name, kReportChart);
}

TEST_F(ReportsViewTest, OneThatConvertsWaitsUntilTheDialogBeforeItHasClosed) {
  Start();
  Trigger("mnuReport7");
  const MainView& view = Get<ReportsView>("pnlReports");
  EXPECT_TRUE(view.FollowsDialogs());
  Get<QCheckBox>("chkDefaultCurrency").click();
  ASSERT_TRUE(window_->Shown().report.converts);
  EXPECT_FALSE(view.FollowsDialogs()) << "each time the rates would be asked for";
  Tabs().setCurrentIndex(0);
  EXPECT_TRUE(view.FollowsDialogs()) << "the list of reports asks nothing";
}

TEST_F(ReportsViewTest, WhatIsChosenIsRememberedInEverySlot) {
  Start();
  Trigger("mnuReport5");
  Get<QCheckBox>("chkTransfers").click();
  Get<QCheckBox>("chkUnsetR").click();
  Get<QDateEdit>("DTPickSRep").setDate(QDate(2026, 2, 1));
  EXPECT_TRUE(window_->Shown().report.withoutTransfers);
  EXPECT_EQ(window_->Shown().report.dates->start.ToIso(), "2026-02-01");
  Trigger("mnuReport7");
  EXPECT_TRUE(Get<QCheckBox>("chkTransfers").isChecked()) << "the choices go along";
  Get<QCheckBox>("chkTransfers").click();
  Trigger("mnuViewPayees");
  Trigger("mnuViewBack");
  EXPECT_EQ(Shown(), "Spending by Payee");
  EXPECT_FALSE(Get<QCheckBox>("chkTransfers").isChecked());
  Trigger("mnuViewBack");
  EXPECT_EQ(Shown(), "Spending by Category");
  EXPECT_TRUE(Get<QCheckBox>("chkTransfers").isChecked());
  EXPECT_FALSE(Get<QCheckBox>("chkSubCategories").isHidden());
  EXPECT_TRUE(Get<QCheckBox>("chkSubCategories").isChecked()) << "unless they are folded";
  Trigger("mnuViewAll");
  EXPECT_FALSE(window_->Shown().report.withoutTransfers);
  EXPECT_FALSE(window_->Shown().report.dates);
  EXPECT_EQ(Shown(), "Spending by Category");
}

TEST_F(ReportsViewTest, TheDaysAreInForceAsTheyWereLeft) {
  Settings(machine_.registry).SetOn(Setting::SetReportDate, true);
  Start();
  Trigger("mnuReport2");
  EXPECT_TRUE(Get<QCheckBox>("chkUnsetR").isChecked());
  EXPECT_EQ(Get<QDateEdit>("DTPickSRep").date(), WindowTest::Find<QDateEdit>("dtpFrom").date())
      << "those of the register";
  Get<QCheckBox>("chkUnsetR").click();
  EXPECT_EQ(Rows(), 3) << "two months and their total";
  window_->close();
  EXPECT_EQ(WindowTest::Setting("SetReportDate"), "0");
}

TEST_F(ReportsViewTest, TheReportListIsShownFromWhereverOneIsAndKnowsTheReport) {
  Start();
  BringForward();
  Trigger("mnuReport2");
  for (const char* from : {"mnuReport2", "mnuViewPayees"}) {
    Trigger(from);
    QTest::keyClick(window_.get(), Qt::Key_9, Qt::ControlModifier);
    EXPECT_EQ(window_->Shown().name, kReportShow) << from;
    auto& list = Get<QTreeWidget>("tvReports");
    EXPECT_TRUE(list.hasFocus()) << from;
    EXPECT_EQ(list.currentItem()->text(0), "Monthly Cash Flow") << from;
    EXPECT_EQ(Tabs().tabText(1), "Monthly Cash Flow") << from;
  }
  QTest::keyClick(&Get<QTreeWidget>("tvReports"), Qt::Key_Return);
  EXPECT_EQ(window_->Shown().name, kReportSelected);
  EXPECT_EQ(Shown(), "Monthly Cash Flow");
}

TEST_F(ReportsViewTest, TheKeyboardGoesAllTheWay) {
  Start();
  Trigger("mnuViewReports");
  QTest::keyClick(&Get<QTreeWidget>("tvReports"), Qt::Key_Return);
  EXPECT_EQ(Shown(), "Account Summary");
  QTest::keyClick(&List(), Qt::Key_Down);
  QTest::keyClick(&List(), Qt::Key_Return);
  EXPECT_EQ(Shown(), "Account Transactions");
  EXPECT_EQ(Get<QLabel>("lblAccountFilter").text(), "Purse");
  QTest::keyClick(&List(), Qt::Key_Return);
  EXPECT_EQ(window_->Shown().name, kTransactionShow) << "the way ends at the transaction";
}

TEST_F(ReportsViewTest, TabGoesThroughTheChoicesAsTheyStand) {
  Start();
  ViewCommand command{kReportSelected};
  const auto stops = [&](int report) {
    command.report.report = report;
    window_->Show(command);
    QStringList names;
    const auto& bar = Get<QWidget>("pnlReport");
    QWidget* at = &Get<QCheckBox>("chkUnsetR");
    for (; bar.isAncestorOf(at) && names.size() < 20; at = at->nextInFocusChain()) {
      const bool isStop = at->isVisible() && !at->isWindow() && at->focusPolicy() != Qt::NoFocus &&
                          bar.isAncestorOf(at) && !at->objectName().startsWith("qt_");
      if (isStop) names.append(at->objectName());
    }
    return names.join(' ').toStdString();
  };
  EXPECT_EQ(stops(13),
            "chkUnsetR DTPickSRep DTPickERep cmdPeriodsR chkOther DTPickSOther DTPickEOther "
            "cmdPeriodsOther chkTransfers chkDefaultCurrency cmbCurrencyR chkSubCategories");
  command.report.whatIf = {{window_->Today().AddDays(3), 1, -5, "One"},
                           {window_->Today().AddDays(3), 1, -6, "Two"}};
  EXPECT_EQ(stops(15),
            "chkUnsetR DTPickSRep DTPickERep cmdPeriodsR chkTransfers chkDefaultCurrency "
            "cmbCurrencyR cmdWhatIf pceWhatIf0 pceWhatIf1");
}

// Nothing between the tree and the list is passed by, and the way back is the same.
TEST_F(ReportsViewTest, TabReachesEveryFieldOfTheWindowInBothDirections) {
  Start();
  Trigger("mnuReport5");
  const auto walk = [&](Qt::Key key) {
    QStringList names;
    Get<QWidget>("tvAccounts").setFocus();
    do {
      names.append(QApplication::focusWidget()->objectName());
      QTest::keyClick(QApplication::focusWidget(), key);
    } while (names.size() < 99 && QApplication::focusWidget()->objectName() != "tvAccounts");
    return names;
  };
  const QStringList onward = walk(Qt::Key_Tab);
  for (const char* stop : {"ucCalendar", "txtFind", "cmdFilter", "chkUnsetR", "cmbCurrencyR",
                           "chkSubCategories", "tbReport", "lvReportSelect"}) {
    EXPECT_TRUE(onward.contains(QLatin1String(stop))) << stop;
  }
  EXPECT_EQ(walk(Qt::Key_Backtab).size(), onward.size());
}

}  // namespace
}  // namespace corvanta
