#include "app/reports/ReportsView.h"
#include "app/reports/ReportsViewTest.h"
#include "platform/Files.h"
#include "reports/print/PrintTable.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>

#include <algorithm>

namespace corvanta {
namespace {

bool Has(const std::vector<std::string>& headings, const char* head) {
  return std::ranges::find(headings, head) != headings.end();
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

TEST_F(ReportsViewTest, ASpreadsheetDoesNotSayHowAPlanIsTyped) {
  Start();
  Run("UPDATE tblCategory SET Budget = 50, PeriodID = (Select Max(PeriodID) from tblPeriods "
      "WHERE Period = 'm') WHERE CategoryID = 2");
  Trigger("mnuReport14");
  const std::string path = machine_.folder.Path("plans.csv");
  machine_.prompts.ExpectSaveFile("Save File As", path);
  machine_.prompts.ExpectTell("File Export", ScriptedPrompts::kAnyText);
  Trigger("mnuFileSpreadsheet");
  const std::string text = ReadFile(path);
  EXPECT_NE(text.find(" to "), std::string::npos) << "its days: " << text;
  EXPECT_EQ(text.find("type over a plan"), std::string::npos) << text;
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

TEST_F(ReportsViewTest, WhatIsEmptyLeavesBeforeNamesAreCutAndIsPrintedAllTheSame) {
  Start();
  Run("UPDATE tblTransactions SET Description = 'what it was for, told at some length'");
  Trigger("mnuReport3");
  EXPECT_TRUE(Has(Headings(), "Ref")) << "there is room for it";
  window_->resize(1000, 640);
  QApplication::processEvents();
  EXPECT_FALSE(Has(Headings(), "Ref")) << "no row has one";
  for (const char* head : {"Account", "Date", "Payee", "Income", "Expense", "Balance"}) {
    EXPECT_TRUE(Has(Headings(), head)) << head;
  }
  const PrintTable printed = static_cast<MainView&>(Get<ReportsView>("pnlReports")).Printed();
  EXPECT_EQ(printed.columns.size(), 11U) << "paper has room for all of them";
  Trigger("mnuEditSelect");
  Trigger("mnuEditCopy");
  EXPECT_TRUE(QApplication::clipboard()->text().section('\n', 0, 0).contains("\tRef\t"));
  QMenu& sorts = *Get<QAction>("mnuViewSort").menu();
  Q_EMIT sorts.aboutToShow();
  EXPECT_EQ(sorts.actions().size(), 11) << "it can be sorted by";
  ViewCommand picked = window_->Shown();
  picked.report.columns = Headings();
  picked.report.columns.emplace_back("Ref");
  window_->Show(picked);
  EXPECT_TRUE(Has(Headings(), "Ref")) << "it was asked for";
  picked.report.columns.clear();
  window_->Show(picked);
  EXPECT_FALSE(Has(Headings(), "Ref"));
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

}  // namespace
}  // namespace corvanta
