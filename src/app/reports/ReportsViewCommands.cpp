// What the commands of the reports view do.
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/lists/ListModel.h"
#include "app/lists/RowsText.h"
#include "app/register/TotalsLine.h"
#include "app/reports/PlanCells.h"
#include "app/reports/ReportsView.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "platform/Platform.h"
#include "reference/ReferenceDialogs.h"
#include "reports/chart/ucReportChart.h"
#include "reports/custom/ReportColumns.h"
#include "reports/print/PrintTable.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/sheet/SheetTable.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>

#include <utility>

namespace corvanta::inline app {

void ReportsView::ConnectCommands() {
  const MainActions& actions = place_.actions;
  for (std::size_t place = 0; place < actions.mnuReports.size(); ++place) {
    place_.On(actions.mnuReports[place], this,
              [this, number = static_cast<int>(place) + 1] { RunReport(number); });
  }
  place_.On(actions.mnuReportCustom, this, [this] { OpenCustom(); });
  place_.On(actions.mnuReportSave, this, [this] { SaveReport(); });
  place_.On(actions.mnuReportColumns, this, [this] { PickColumns(); });
  place_.On(actions.mnuReportExplain, this, [this] { ExplainChosen(); });
  place_.On(actions.mnuReportInto, this, [this] { LookIntoChosen(); });
  connect(
      chart_, &ucReportChart::RowChosen, this,
      [this](std::size_t row) {
        if (!isCurrent_ || row >= report_.rows.size()) return;
        place_.host.Guard([&] { LookInto(row); });
      },
      // The chart is in the middle of its click.
      Qt::QueuedConnection);
  connect(
      chart_, &ucReportChart::FigureAsked, this,
      [this] { place_.host.Guard([this] { ExplainInChart(); }); }, Qt::QueuedConnection);
  connect(table_, &QAbstractItemView::activated, this, [this](const QModelIndex& index) {
    const auto row = RowAt(index);
    if (row) place_.host.Guard([this, row] { LookInto(*row); });
  });
  connect(table_, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
    const auto row = RowAt(index);
    const auto column = static_cast<std::size_t>(index.column());
    const Qt::KeyboardModifiers held = QApplication::keyboardModifiers();
    if (!row || (held & Qt::ShiftModifier) != 0) return;
    const bool explains = (held & Qt::ControlModifier) != 0;
    if (explains && !report_.columns[column].HoldsNumbers()) return;
    if (!explains && plans_->IsPlan(index)) return plans_->EditLater(index);
    // A row of one transaction that leads to no narrower report is chosen by a click, and opened
    // by two.
    if (!explains && !LeadsOn(report_.rows[*row])) return;
    // The list is in the middle of its click: its rows must not go yet.
    QMetaObject::invokeMethod(
        this,
        [this, row, column, explains, of = request_] {
          if (!isCurrent_ || !(of == request_)) return;
          place_.host.Guard([&] { explains ? Explain(*row, column) : LookInto(*row); });
        },
        Qt::QueuedConnection);
  });
}

void ReportsView::RunReport(int number) {
  if (!place_.session.IsOpen()) return;
  KeepWidths();
  ViewCommand command = Base();
  command.report = command.report.Other(number);
  command.report.columns = columns_[number];
  place_.host.Show(command);
  place_.host.FocusView();
}

// The columns that are shown, with numbers and days as such, and the rows as they stand in the
// list.
SpreadsheetTable ReportsView::Sheet(const Locale& locale) const {
  if (page_ == Page::List) return MainView::Sheet(locale);
  ReportTable sheet = report_;
  if (page_ == Page::Rows) {
    sheet.rows.clear();
    for (int row = 0; row < model_->rowCount(); ++row) {
      sheet.rows.push_back(report_.rows.at(static_cast<std::size_t>(model_->Key(row)) - 1));
    }
  }
  SpreadsheetTable table = SheetOf(OnlyColumns(std::move(sheet), ShownColumns()));
  std::vector<PrintSummary> below = totals_->Printed();
  below.push_back({FromQt(Subject()), {}});
  AddSummaries(table, below, locale);
  return table;
}

void ReportsView::EditBudget(std::size_t row) {
  const std::int64_t category = QString::fromStdString(report_.rows.at(row).groupKey).toLongLong();
  const DialogResult result =
      OpenReferenceEditor(ReferenceKind::Category, category,
                          {place_.platform, place_.session.Ledger(), &place_.window});
  if (result.isChanged) place_.host.Reload();
}

bool ReportsView::Can(EditTask task) const {
  if (page_ != Page::Rows || model_->rowCount() == 0) return false;
  if (task == EditTask::SelectAll) return true;
  if (task == EditTask::Copy) return table_->selectionModel()->hasSelection();
  return task == EditTask::Details && RowAt(table_->currentIndex()).has_value();
}

void ReportsView::Do(EditTask task) {
  if (!Can(task)) return;
  if (task == EditTask::SelectAll) table_->selectAll();
  if (task == EditTask::Copy) {
    QApplication::clipboard()->setText(RowsAsText(*table_, ChosenRowsOf(*table_)));
  }
  if (task != EditTask::Details) return;
  if (plans_->IsPlan(table_->currentIndex())) return plans_->Edit(table_->currentIndex());
  const std::size_t row = *RowAt(table_->currentIndex());
  const bool isBudget = report_.report == kBudgets || report_.report == kBudgetOfMonth;
  if (isBudget && report_.rows[row].kind == ReportRowKind::Group) return EditBudget(row);
  LookInto(row);
}

void ReportsView::MarkCommands(bool isShown) {
  const MainActions& actions = place_.actions;
  const bool isOpen = place_.session.IsOpen();
  for (QAction* report : actions.mnuReports) report->setEnabled(isOpen);
  actions.mnuReportCustom->setEnabled(isOpen);
  const bool hasRows = isShown && isOpen && page_ == Page::Rows;
  const bool isChart = isShown && isOpen && page_ == Page::Chart && !chart_->Shown().IsEmpty();
  const bool isAtRow = isChart || (hasRows && RowAt(table_->currentIndex()).has_value());
  actions.mnuReportSave->setEnabled(isShown && isOpen && page_ != Page::List);
  actions.mnuReportColumns->setEnabled(hasRows);
  actions.mnuReportExplain->setEnabled(isAtRow);
  actions.mnuReportInto->setEnabled(isAtRow);
}

ChosenTotals ReportsView::TotalsOfChosen() const {
  ChosenTotals totals;
  if (page_ != Page::Rows) return totals;
  for (const int row : ChosenRowsOf(*table_)) {
    const ListRow& chosen = model_->Row(row);
    if (chosen.amount) totals.Add(*chosen.amount, chosen.currency);
  }
  return totals;
}

}  // namespace corvanta::inline app
