#include "app/LedgerSession.h"
#include "app/WindowTest.h"
#include "controls/ListTable.h"
#include "controls/SortedTable.h"
#include "platform/Settings.h"
#include "reports/chart/ucReportChart.h"
#include "reports/custom/ReportDefinitions.h"
#include "support/DialogTest.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QToolButton>
#include <QTreeWidget>

namespace corvanta {
namespace {

class ReportsViewTest : public DialogTest<WindowTest> {
 protected:
  // Two accounts of pounds, a baker who is paid and a boss who pays.
  void Start() {
    OpenPurse();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Bank',2,17,1000,0)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (500,'Baker',0)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (501,'Boss',0)");
    Add(1, 2, 500, "#01/05/2026#,-20");
    Add(1, 2, 500, "#02/05/2026#,-9");
    Add(2, 1, 501, "#02/20/2026#,100");
    ShowWindow();
    window_->resize(1400, 900);
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  void Add(int account, int category, int payee, const std::string& values) {
    Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
        "TransferID,[Date],[Amount],BankChk,BankRec) VALUES (" +
        std::to_string(account) + "," + std::to_string(category) + ",1," + std::to_string(payee) +
        ",0,0," + values + ",0,0)");
  }
  template <typename Widget>
  Widget& Get(const char* name) {
    return WindowTest::Find<Widget>(name);
  }
  SortedTable& List() { return Get<SortedTable>("lvReportSelect"); }
  QTabBar& Tabs() { return Get<QTabBar>("tbReport"); }
  int Rows() { return List().model()->rowCount(); }
  std::string Cell(int row, const char* head) {
    const QAbstractItemModel& model = *List().model();
    for (int column = 0; column < model.columnCount(); ++column) {
      if (model.headerData(column, Qt::Horizontal).toString() != QLatin1String(head)) continue;
      return model.index(row, column).data().toString().toStdString();
    }
    return "no such column";
  }
  std::string Shown() { return Tabs().count() > 1 ? Tabs().tabText(1).toStdString() : "none"; }
  // What the click leads to comes once the list is done with it.
  void ClickRow(int row, int column = 0, Qt::KeyboardModifiers held = {},
                const std::function<void(QDialog&)>& inDialog = {}) {
    const QRect cell = List().visualRect(List().model()->index(row, column));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, held, cell.center());
    if (inDialog) InNextDialog(inDialog);
    QApplication::processEvents();
  }
  // Of the columns that are shown.
  std::vector<std::string> Headings() {
    std::vector<std::string> shown;
    for (int column = 0; column < List().model()->columnCount(); ++column) {
      if (List().isColumnHidden(column)) continue;
      shown.push_back(List().model()->headerData(column, Qt::Horizontal).toString().toStdString());
    }
    return shown;
  }
};

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

TEST_F(ReportsViewTest, ASpreadsheetHasTheColumnsThatAreShown) {
  Start();
  Trigger("mnuReport7");
  ViewCommand some = window_->Shown();
  some.report.columns = {"Payee", "Total"};
  window_->Show(some);
  const std::string path = machine_.folder.Path("payees.csv");
  machine_.prompts.ExpectSaveFile("Save File As", path);
  machine_.prompts.ExpectTell("File Export", ScriptedPrompts::kAnyText);
  Trigger("mnuFileSpreadsheet");
  const std::string text = ReadFile(path);
  EXPECT_EQ(text.substr(0, text.find('\r')), "Payee,Total");
  EXPECT_NE(text.find("Baker,-29"), std::string::npos) << text;
  // The rows are those of the list, in its order.
  List().ChooseColumn(0);
  List().ChooseColumn(0);
  ASSERT_EQ(Cell(0, "Payee"), "Boss");
  const std::string sorted = machine_.folder.Path("sorted.csv");
  machine_.prompts.ExpectSaveFile("Save File As", sorted);
  machine_.prompts.ExpectTell("File Export", ScriptedPrompts::kAnyText);
  Trigger("mnuFileSpreadsheet");
  EXPECT_LT(ReadFile(sorted).find("Boss"), ReadFile(sorted).find("Baker"));
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

TEST_F(ReportsViewTest, RowsSortByValueAboveTheirTotalsAndAreSearchedAndCopied) {
  Start();
  Trigger("mnuReport7");
  ASSERT_EQ(Rows(), 3);
  List().ChooseColumn(List().model()->columnCount() - 3);  // Expense or so
  List().ChooseColumn(0);
  EXPECT_EQ(Cell(0, "Payee"), "Baker");
  List().ChooseColumn(0);
  EXPECT_EQ(Cell(0, "Payee"), "Boss");
  EXPECT_EQ(Cell(2, "Payee"), "Total (GBP)") << "in whatever order";
  const int total = 4;
  ASSERT_EQ(List().model()->headerData(total, Qt::Horizontal).toString(), "Total");
  List().ChooseColumn(total);
  EXPECT_EQ(Cell(0, "Total"), "-29.00");
  EXPECT_EQ(Cell(1, "Total"), "100.00");
  Trigger("mnuEditFind");
  QTest::keyClicks(QApplication::focusWidget(), "boss");
  EXPECT_EQ(Rows(), 1);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(Rows(), 3);
  Trigger("mnuEditSelect");
  Trigger("mnuEditCopy");
  EXPECT_EQ(QApplication::clipboard()->text().section('\n', 0, 0),
            "Payee\tRecords\tIncome\tExpense\tTotal\tCurrency");
}

TEST_F(ReportsViewTest, AReportIsSavedWithAllThatWasChosenAndOpenedAgain) {
  Start();
  Trigger("mnuReport7");
  InNextDialog([](QDialog& dialog) {
    ASSERT_EQ(dialog.objectName(), "FrmColumns");
    Click(dialog, "cmdDSelect");
    auto& list = Find<QListWidget>(dialog, "lvColumns");
    for (const char* name : {"Payee", "Total"}) {
      list.findItems(QLatin1String(name), Qt::MatchExactly).front()->setCheckState(Qt::Checked);
    }
    Click(dialog, "cmdAccept");
  });
  Trigger("mnuReportColumns");
  EXPECT_EQ(Headings(), (std::vector<std::string>{"Payee", "Total"}));
  ClickRow(0);
  Trigger("mnuViewBack");
  EXPECT_EQ(Headings(), (std::vector<std::string>{"Payee", "Total"}));
  ViewCommand filtered = window_->Shown();
  filtered.rows.SetKeys(FilterKind::Payee, {500});
  window_->Show(filtered);
  machine_.prompts.ExpectText("Save Custom Report", "Name of the report:", " Bread ");
  Trigger("mnuReportSave");
  const auto read = ReportDefinitions(machine_.registry).Find("Bread");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->definition.report, 7);
  EXPECT_EQ(read->definition.columns, (std::vector<std::string>{"Payee", "Total"}));
  EXPECT_EQ(read->definition.widths.size(), 2U);
  EXPECT_FALSE(read->definition.range);
  Trigger("mnuFilterNone");
  Trigger("mnuReport1");
  EXPECT_EQ(Headings().size(), 5U);
  InNextDialog([](QDialog& dialog) {
    ASSERT_EQ(dialog.objectName(), "FrmReport");
    Click(dialog, "cmdAccept");
  });
  Trigger("mnuReportCustom");
  EXPECT_EQ(Shown(), "Spending by Payee");
  EXPECT_EQ(Headings(), (std::vector<std::string>{"Payee", "Total"}));
  EXPECT_EQ(Get<QLabel>("lblPayeeFilter").text(), "Baker");
  EXPECT_EQ(Cell(0, "Payee"), "Baker");
  EXPECT_EQ(Rows(), 2);
  // It stands in the list of reports, too.
  auto& list = Get<QTreeWidget>("tvReports");
  EXPECT_EQ(list.topLevelItem(1)->child(0)->text(0), "Bread");
}

TEST_F(ReportsViewTest, ASavedReportOfWhatIsGoneSaysSoAndShowsNoOtherRows) {
  Start();
  ReportDefinition gone;
  gone.name = "Gone";
  gone.report = 7;
  gone.filter.SetKeys(FilterKind::Account, {77});
  ReportDefinitions(machine_.registry).Save(gone);
  InNextDialog([](QDialog& dialog) { Click(dialog, "cmdAccept"); });
  machine_.prompts.ExpectTell("Open Custom Report", ScriptedPrompts::kAnyText);
  Trigger("mnuReportCustom");
  EXPECT_EQ(Shown(), "Spending by Payee");
  EXPECT_EQ(Rows(), 0);
  Trigger("mnuViewRefresh");
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(ReportDefinitions(machine_.registry).Find("Gone")->definition, gone);
  machine_.prompts.ExpectText("Save Custom Report", "Name of the report:", "Still");
  Trigger("mnuReportSave");
  EXPECT_TRUE(ReportDefinitions(machine_.registry)
                  .Find("Still")
                  ->definition.filter.IsSet(FilterKind::Account))
      << "or it would be of all";
  Trigger("mnuReport7");
  EXPECT_EQ(Rows(), 3) << "the report itself is of all";
}

TEST_F(ReportsViewTest, AFigureSaysWhatItIsMadeOfAndLeadsToTheRegister) {
  Start();
  Trigger("mnuReport7");
  ASSERT_EQ(Cell(0, "Payee"), "Baker");
  List().setCurrentIndex(List().model()->index(0, 4));
  InNextDialog([](QDialog& dialog) {
    ASSERT_EQ(dialog.objectName(), "FrmExplain");
    auto& list = Find<ListTable>(dialog, "lvExplain");
    EXPECT_EQ(list.model()->rowCount(), 2);
    EXPECT_TRUE(Find<QLabel>(dialog, "lblSum").text().contains("-29.00"));
    QTest::keyClick(&list, Qt::Key_Return);
  });
  QTest::keyClick(&List(), Qt::Key_F8);
  EXPECT_EQ(window_->Shown().name, kTransactionShow);
  EXPECT_EQ(window_->Shown().accountId, 1);
  Trigger("mnuViewBack");
  EXPECT_EQ(Shown(), "Spending by Payee");
  EXPECT_EQ(window_->Shown().name, kReportSelected);
  // Ctrl and a click on the figure ask the same.
  bool isAsked = false;
  ClickRow(0, 4, Qt::ControlModifier,
           [&](QDialog& dialog) { isAsked = dialog.objectName() == "FrmExplain"; });
  EXPECT_TRUE(isAsked);
  EXPECT_EQ(Shown(), "Spending by Payee");
  // How many there are is no money.
  std::string sum;
  ClickRow(1, 1, Qt::ControlModifier,
           [&](QDialog& dialog) { sum = Find<QLabel>(dialog, "lblSum").text().toStdString(); });
  EXPECT_EQ(sum, "1 row makes 1");
}

TEST_F(ReportsViewTest, APointOfAChartSaysWhatItIsMadeOf) {
  Start();
  for (int payee = 600; payee < 620; ++payee) {
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (" + std::to_string(payee) +
        ",'Shop " + std::to_string(payee) + "',0)");
    Add(1, 2, payee, "#03/05/2026#,-1");
  }
  Trigger("mnuReport7");
  Tabs().setCurrentIndex(2);
  auto& chart = Get<QWidget>("chartReport");
  ASSERT_TRUE(chart.hasFocus()) << "the keys are on the chart";
  const auto sum = [&] {
    std::string said;
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    InNextDialog([&](QDialog& dialog) {
      said = Find<QLabel>(dialog, "lblFigure").text().toStdString() + ": " +
             Find<QLabel>(dialog, "lblSum").text().toStdString();
    });
    QTest::keyClick(&chart, Qt::Key_F8);
    std::erase_if(said, [](char c) { return c < ' ' || c > '~'; });
    return said;
  };
  EXPECT_EQ(sum(), "Spending by Payee: Expense of Baker: 2 rows make -29.00 GBP");
  QTest::keyClick(&chart, Qt::Key_End);
  EXPECT_EQ(sum(), "Spending by Payee: Expense of Others (10): 10 rows make -10.00 GBP");
  // Of a stacked chart the columns of the report stand along the axis.
  Trigger("mnuReport8");
  Tabs().setCurrentIndex(2);
  QTest::keyClick(&chart, Qt::Key_Home);
  QTest::keyClick(&chart, Qt::Key_Right);
  EXPECT_EQ(sum(), "Monthly Spending by Payee: February of Baker: 1 row makes -9.00 GBP");
  QTest::keyClick(&chart, Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(Shown(), "Account Transactions");
}

TEST_F(ReportsViewTest, FiguresHaveTheirRoomAndTextsShareWhatIsLeft) {
  Start();
  const QString name = "A shop with a name that is longer than any column of a list can be made";
  Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (502,'" + name.toStdString() +
      "',0)");
  Add(1, 2, 502, "#02/21/2026#,-123456789.01");
  window_->resize(1366, 768);
  Trigger("mnuReport3");
  QApplication::processEvents();
  const QAbstractItemModel& model = *List().model();
  int payee = 0;
  for (int column = 0; column < model.columnCount(); ++column) {
    const std::string head = model.headerData(column, Qt::Horizontal).toString().toStdString();
    if (head == "Payee") payee = column;
    if (head != "Expense" && head != "Balance") continue;
    for (int row = 0; row < Rows(); ++row) {
      const QModelIndex cell = model.index(row, column);
      QFont font = List().font();
      if (const QVariant own = cell.data(Qt::FontRole); own.isValid()) font = own.value<QFont>();
      EXPECT_GE(List().columnWidth(column),
                QFontMetrics(font).horizontalAdvance(cell.data().toString()))
          << qPrintable(cell.data().toString());
    }
  }
  EXPECT_LE(List().horizontalHeader()->length(), List().viewport()->width());
  const int reference = payee + 2;
  EXPECT_GT(List().columnWidth(payee), List().columnWidth(reference)) << "by what they hold";
  EXPECT_EQ(model.index(3, payee).data(Qt::ToolTipRole).toString(), name);
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

}  // namespace
}  // namespace corvanta
