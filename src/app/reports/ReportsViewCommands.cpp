// What the commands of the reports view do.
#include "app/FilterStrip.h"
#include "app/LedgerSession.h"
#include "app/ListModel.h"
#include "app/MainActions.h"
#include "app/TotalsLine.h"
#include "app/lists/RowsText.h"
#include "app/reports/FrmExplain.h"
#include "app/reports/ReportBar.h"
#include "app/reports/ReportRows.h"
#include "app/reports/ReportsView.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/WaitCursor.h"
#include "ledger/TransactionBook.h"
#include "ledger/TransactionRecord.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reference/ReferenceDialogs.h"
#include "reports/chart/ucReportChart.h"
#include "reports/custom/DefinitionKeys.h"
#include "reports/custom/FrmColumns.h"
#include "reports/custom/FrmReport.h"
#include "reports/custom/ReportEditor.h"
#include "reports/print/PrintTable.h"
#include "reports/query/DrillDown.h"
#include "reports/query/Explain.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/sheet/SheetTable.h"
#include "store/sql/Connection.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>

#include <algorithm>

namespace corvanta::inline app {
namespace {
// The reports of the catalogue whose rows have a budget that can be changed.
constexpr int kBudgetReport = 4;
constexpr int kBudgetOfMonth = 14;
constexpr int kForecast = 15;
}  // namespace

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
  place_.On(actions.mnuReportInto, this, [this] {
    if (const auto row = RowAt(table_->currentIndex())) LookInto(*row);
  });
  connect(
      chart_, &ucReportChart::RowChosen, this,
      [this](std::size_t row) {
        if (!isCurrent_ || row >= report_.rows.size()) return;
        place_.host.Guard([&] { LookInto(row); });
      },
      // The chart is in the middle of its click.
      Qt::QueuedConnection);
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
    // A row of one transaction is chosen by a click, and opened by two.
    if (!explains && report_.rows[*row].kind != ReportRowKind::Group) return;
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

std::optional<std::size_t> ReportsView::RowAt(const QModelIndex& index) const {
  if (!index.isValid() || page_ != Page::Rows) return std::nullopt;
  const auto row = static_cast<std::size_t>(model_->Key(index.row())) - 1;
  return row < report_.rows.size() ? std::optional(row) : std::nullopt;
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

void ReportsView::LookInto(std::size_t place) {
  const ReportRow row = report_.rows.at(place);
  ViewCommand command = Base();
  if (!(request_.filter == command.rows)) {
    return place_.host.Notice(tr("What this report is of is not in this data file"));
  }
  ReportRequest of = request_;
  // A forecast is of days that have no transactions yet.
  const bool hasDays = !report_.periods.empty() && report_.report != kForecast;
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

void ReportsView::ExplainChosen() {
  const QModelIndex index = table_->currentIndex();
  const auto row = RowAt(index);
  if (!row) return place_.host.Notice(tr("Choose a figure of the report first"));
  auto column = static_cast<std::size_t>(index.column());
  if (!report_.columns[column].HoldsNumbers()) column = FigureColumn(report_).value_or(column);
  Explain(*row, column);
}

void ReportsView::Explain(std::size_t row, std::size_t column) {
  std::vector<ExplainedRow> made;
  {
    const WaitCursor waiting;
    made =
        corvanta::Explain(place_.session.Ledger(), request_, report_, row, column, place_.platform);
  }
  if (made.empty()) {
    return place_.host.Notice(tr("Nothing stands behind this figure that could be listed"));
  }
  const ReportRow& of = report_.rows.at(row);
  const QString name = of.cells.empty() ? QString() : ToQt(of.cells.front().Text());
  const QString title =
      tr("%1: %2 of %3").arg(ToQt(report_.name), ToQt(report_.columns[column].header), name);
  FrmExplain dialog(title, made, report_.columns[column], of.currency, place_.platform,
                    &place_.window);
  if (dialog.exec() == QDialog::Accepted) ShowInRegister(dialog.Transaction());
}

void ReportsView::OpenCustom() {
  FrmReport dialog(place_.platform.registry, place_.platform.prompts, &place_.window);
  const bool isAccepted = dialog.exec() == QDialog::Accepted;
  FillSaved();
  if (isAccepted && dialog.Opened()) Open(*dialog.Opened());
}

void ReportsView::OpenSaved(const std::string& name) {
  ReportEditor editor(place_.platform.registry, place_.platform.prompts);
  if (const auto read = editor.Open(name)) Open(*read);
}

void ReportsView::Open(const ReadDefinition& read) {
  KeepWidths();
  const OpenedDefinition opened =
      OpenDefinition(read, place_.session.Ledger().Store(), place_.platform.locale);
  const ReportDefinition& definition = opened.definition;
  ViewCommand command = Base();
  command.rows = definition.filter;
  ReportState& state = command.report;
  state = state.Other(definition.report);
  state.actions = definition.actions;
  state.columns = definition.columns;
  state.widths = definition.widths;
  state.definition = definition.name;
  state.dates.reset();
  if (definition.range) state.dates = DateRange{definition.range->from, definition.range->to};
  state.converts = !definition.currency.empty();
  if (state.converts) state.currency = definition.currency;
  state.emptied = opened.emptied;
  state.emptiedWith = definition.filter;
  if (!opened.troubles.empty()) {
    place_.platform.prompts.Tell("Open Custom Report", TroubleText(opened));
  }
  place_.host.Show(command);
  place_.host.FocusView();
}

void ReportsView::SaveReport() {
  const auto typed = place_.platform.prompts.AskText("Save Custom Report", "Name of the report:");
  if (!typed) return;
  const std::string name(Trim(*typed));
  if (const auto warning = ReportEditor::CheckName(name)) {
    return place_.platform.prompts.Tell(warning->title, warning->text);
  }
  ReportDefinition definition;
  definition.name = name;
  definition.report = state_.report;
  // With what names nothing that is left, or it would be of everything.
  definition.filter = request_.filter;
  definition.wholeCategories =
      WholeCategoriesOf(definition.filter, place_.session.Ledger().Store());
  definition.actions = state_.actions;
  definition.columns = ShownColumns();
  for (const std::string& column : definition.columns) {
    const auto place = report_.Column(column);
    definition.widths.push_back(place ? table_->columnWidth(static_cast<int>(*place)) : 0);
  }
  if (state_.dates) definition.range = Period{state_.dates->start, state_.dates->end};
  if (state_.converts) definition.currency = state_.currency;
  ReportEditor editor(place_.platform.registry, place_.platform.prompts);
  if (!editor.Save(definition, state_.definition)) return;
  state_.definition = name;
  place_.host.ApplyFilter();
  place_.host.Notice(tr("Saved as \"%1\"").arg(ToQt(name)));
}

std::vector<std::string> ReportsView::ShownColumns() const {
  std::vector<std::string> headers;
  for (const ReportColumn& column : report_.columns) headers.push_back(column.header);
  return corvanta::ShownColumns(headers, state_.columns);
}

void ReportsView::PickColumns() {
  std::vector<std::string> own;
  for (const ReportColumn& column : report_.columns) own.push_back(column.header);
  FrmColumns dialog(ShownColumns(), own, place_.platform.prompts, &place_.window);
  if (dialog.exec() != QDialog::Accepted) return;
  ViewCommand command = place_.host.Shown();
  command.report.columns = dialog.Columns();
  columns_[state_.report] = command.report.columns;
  command.report.widths.clear();
  place_.host.Show(command);
  place_.host.FocusView();
}

// The columns that are shown, with numbers and days as such, and the rows as they stand in the
// list.
SpreadsheetTable ReportsView::Sheet(const Locale& locale) const {
  if (page_ == Page::List) return MainView::Sheet(locale);
  const std::vector<std::string> shown = ShownColumns();
  ReportTable sheet = report_;
  if (page_ == Page::Rows) {
    sheet.rows.clear();
    for (int row = 0; row < model_->rowCount(); ++row) {
      sheet.rows.push_back(report_.rows.at(static_cast<std::size_t>(model_->Key(row)) - 1));
    }
  }
  for (std::size_t column = sheet.columns.size(); column-- > 0;) {
    if (std::ranges::find(shown, sheet.columns[column].header) != shown.end()) continue;
    const auto place = static_cast<std::ptrdiff_t>(column);
    sheet.columns.erase(sheet.columns.begin() + place);
    for (ReportRow& row : sheet.rows) {
      if (column < row.cells.size()) row.cells.erase(row.cells.begin() + place);
    }
  }
  SpreadsheetTable table = SheetOf(sheet);
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
  const std::size_t row = *RowAt(table_->currentIndex());
  const bool isBudget = report_.report == kBudgetReport || report_.report == kBudgetOfMonth;
  if (isBudget && report_.rows[row].kind == ReportRowKind::Group) return EditBudget(row);
  LookInto(row);
}

void ReportsView::MarkCommands(bool isShown) {
  const MainActions& actions = place_.actions;
  const bool isOpen = place_.session.IsOpen();
  for (QAction* report : actions.mnuReports) report->setEnabled(isOpen);
  actions.mnuReportCustom->setEnabled(isOpen);
  const bool hasRows = isShown && isOpen && page_ == Page::Rows;
  const bool isAtRow = hasRows && RowAt(table_->currentIndex()).has_value();
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
