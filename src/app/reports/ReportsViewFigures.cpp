// What a row of a report leads to, and what its figures are made of.
#include "app/LedgerSession.h"
#include "app/lists/ListModel.h"
#include "app/reports/FrmExplain.h"
#include "app/reports/ReportRows.h"
#include "app/reports/ReportsView.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/WaitCursor.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Platform.h"
#include "reports/chart/ucReportChart.h"
#include "reports/query/DrillDown.h"
#include "reports/query/Explain.h"
#include "reports/query/ReportCatalogue.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvanta::inline app {

std::optional<std::size_t> ReportsView::RowAt(const QModelIndex& index) const {
  if (!index.isValid() || page_ != Page::Rows) return std::nullopt;
  const auto row = static_cast<std::size_t>(model_->Key(index.row())) - 1;
  return row < report_.rows.size() ? std::optional(row) : std::nullopt;
}

// A transaction of an investment leads to all of that one, unless they are what is shown.
bool ReportsView::LeadsOn(const ReportRow& row) const {
  if (row.kind != ReportRowKind::Plain) return row.kind == ReportRowKind::Group;
  return !row.groupKey.empty() && request_.filter.Keys(FilterKind::Investment).size() != 1;
}

void ReportsView::LookInto(std::size_t place) {
  const ReportRow row = report_.rows.at(place);
  ViewCommand command = Base();
  if (!(request_.filter == command.rows)) {
    return place_.host.Notice(tr("What this report is of is not in this data file"));
  }
  ReportRequest of = request_;
  // A forecast is of days that have no transactions yet.
  const bool hasDays = !report_.periods.empty() && report_.report != kBalanceForecast;
  if (hasDays) of.range = report_.periods.front();
  const auto step = DrillDown(place_.session.Ledger(), of, row);
  if (step) {
    KeepWidths();
    const ReportRequest& into = step->request;
    command.rows = into.filter;
    command.report = command.report.Other(into.report);
    command.report.columns = columns_[into.report];
    command.report.actions = into.actions;
    command.report.paymentTypes = into.paymentTypes;
    command.report.dates.reset();
    if (into.range) command.report.dates = DateRange{into.range->from, into.range->to};
  }
  if (step && !(command == place_.host.Shown())) {
    place_.host.Show(command);
    place_.host.FocusView();
  } else if (row.transactionId != 0) {
    // The way ends at the transaction itself.
    ShowInRegister(row.transactionId);
  }
}

void ReportsView::ShowInRegister(std::int64_t transactionId) {
  auto record = place_.session.Ledger().Transactions().ReadTransaction(transactionId);
  if (record && record->allocatedItem != 0) {
    record = place_.session.Ledger().Transactions().ReadTransaction(record->allocatedItem);
  }
  if (!record) return place_.host.Notice(tr("That transaction is not there any more"));
  place_.host.ShowTransaction(record->accountId, record->transactionId);
  place_.host.FocusView();
}

void ReportsView::LookIntoChosen() {
  if (page_ != Page::Chart) {
    if (const auto row = RowAt(table_->currentIndex())) LookInto(*row);
    return;
  }
  const auto figure = isCurrent_ ? chart_->Chosen() : std::nullopt;
  if (!figure) return place_.host.Notice(tr("Go to a point of the chart first"));
  if (figure->rows.size() > 1) return place_.host.Notice(tr("Several rows are gathered there"));
  LookInto(figure->rows.front());
}

void ReportsView::ExplainChosen() {
  if (page_ == Page::Chart) return ExplainInChart();
  const QModelIndex index = table_->currentIndex();
  const auto row = RowAt(index);
  if (!row) return place_.host.Notice(tr("Choose a figure of the report first"));
  auto column = static_cast<std::size_t>(index.column());
  if (!report_.columns[column].HoldsNumbers()) column = FigureColumn(report_).value_or(column);
  Explain(*row, column);
}

void ReportsView::ExplainInChart() {
  const auto figure = isCurrent_ ? chart_->Chosen() : std::nullopt;
  if (!figure)
    return place_.host.Notice(tr("Go to the point of the chart that is to be explained"));
  const auto column = report_.Column(figure->header);
  if (!column) return;
  if (figure->rows.size() == 1) return Explain(figure->rows.front(), *column);
  Explain(figure->rows, *column, ToQt(figure->name));
}

void ReportsView::Explain(std::size_t row, std::size_t column) {
  const std::vector<Value>& cells = report_.rows.at(row).cells;
  QString name = cells.empty() ? QString() : ToQt(cells.front().Text());
  const auto below = report_.Column("Sub Category");
  const std::string sub = below ? cells.at(*below).Text() : std::string();
  if (!sub.empty()) name += u':' + ToQt(sub);
  Explain({row}, column, name);
}

void ReportsView::Explain(const std::vector<std::size_t>& rows, std::size_t column,
                          const QString& name) {
  std::vector<ExplainedRow> made;
  {
    const WaitCursor waiting;
    for (const std::size_t row : rows) {
      auto some = corvanta::Explain(place_.session.Ledger(), request_, report_, row, column,
                                    place_.platform);
      std::ranges::move(some, std::back_inserter(made));
    }
  }
  if (made.empty()) {
    return place_.host.Notice(tr("Nothing stands behind this figure that could be listed"));
  }
  const QString title =
      tr("%1: %2 of %3").arg(ToQt(report_.name), ToQt(report_.columns[column].header), name);
  FrmExplain dialog(title, std::move(made), report_.columns[column],
                    report_.rows.at(rows.front()).currency, place_.platform, &place_.window);
  if (dialog.exec() == QDialog::Accepted) ShowInRegister(dialog.Transaction());
}

}  // namespace corvanta::inline app
