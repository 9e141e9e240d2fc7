// How the rows of a report come into its list, and the columns that it shows.
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/WindowLayout.h"
#include "app/lists/ListModel.h"
#include "app/register/TotalsLine.h"
#include "app/reports/ReportBar.h"
#include "app/reports/ReportRows.h"
#include "app/reports/ReportsView.h"
#include "app/search/ListSearch.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "controls/WaitCursor.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "reports/budget/BudgetEditor.h"
#include "reports/custom/FrmColumns.h"
#include "reports/custom/ReportColumns.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRunner.h"
#include "store/sql/Connection.h"

#include <QStackedWidget>

#include <algorithm>
#include <utility>

namespace corvanta::inline app {
namespace {

constexpr int kLeastName = 9 * kRhythm;

// The settings have a value for each report.
std::string WidthsName(int report) {
  return "chReport" + std::to_string(report);
}

std::string ColumnsName(int report) {
  return "ReportColumns" + std::to_string(report);
}

}  // namespace

void ReportsView::Run(const ViewCommand& command) {
  ViewCommand shown = command;
  shown.report = state_;
  const bool withClosed = Settings(place_.platform.registry).IsOn(Setting::Closed);
  ReportRequest request = RequestOf(shown, withClosed);
  // Nothing is worked out again for a currency that nothing is converted into.
  if (!request.converts) request.currency = place_.platform.locale.CurrencyCode();
  request.carriesOver = CarriesBudgetOver(place_.platform.registry);
  const std::uint64_t now = place_.session.Ledger().Store().Changes();
  if (isCurrent_ && readAt_ == now && request == request_) {
    if (arePicked_ == state_.columns.empty()) FitToRows();
    return ApplyColumns();
  }
  const WaitCursor waiting;
  isCurrent_ = false;
  try {
    clsCorvanta& ledger = place_.session.Ledger();
    const bool isKnown = keepsRates_ && request == request_ && report_.report == request.report;
    ReportTable report =
        isKnown ? RunReportAgain(ledger, request, report_, place_.platform)
                : corvanta::RunReport(ledger, request, place_.session.Rates(), place_.platform);
    model_->SetRows(nullptr);  // they are of the table that goes
    request_ = request;
    report_ = std::move(report);
  } catch (...) {
    // What stands there is of another report.
    model_->SetRows(nullptr);
    request_ = request;
    report_ = {};
    throw;
  }
  readAt_ = now;
  isCurrent_ = true;
  Fill();
  if (!report_.notice.empty()) place_.host.Notice(ToQt(report_.notice));
}

void ReportsView::Fill() {
  const int decimals = Settings(place_.platform.registry).InvestmentDecimals();
  if (filled_ != report_.report) FillColumns();
  model_->SetRows(RowsOf(report_, place_.platform.locale, decimals));
  FitToRows();
  ApplyColumns();
  search_->ShowFound();
  ShowTotals();
  if (model_->rowCount() == 0) return;
  // The keyboard has a place to start from.
  table_->selectionModel()->setCurrentIndex(model_->index(0, 0), QItemSelectionModel::NoUpdate);
}

void ReportsView::FillColumns() {
  KeepWidths();
  table_->SetSorted({});
  model_->SetColumns(ColumnsOf(report_.columns, place_.platform.locale));
  FitColumns(model_->Columns());
  filled_ = report_.report;
  table_->SetWidths(widths_[filled_]);
  hasSavedWidths_ = false;
}

void ReportsView::FitToRows() {
  const int decimals = Settings(place_.platform.registry).InvestmentDecimals();
  FitColumns(FittedColumns(report_, place_.platform.locale, decimals));
}

// Widths that were set by hand stay.
void ReportsView::FitColumns(const std::vector<ListColumn>& columns) {
  const QString byHand = table_->Widths();
  arePicked_ = !state_.columns.empty();
  std::vector<ListTable::Column> wishes;
  for (const ListColumn& column : columns) {
    // Rather than that a figure is out of sight, names are cut shorter still.
    const int least = column.stretch > 0 ? std::min(column.smallest, kLeastName) : 0;
    wishes.push_back({column.width, column.stretch,
                      column.smallest > 0 ? column.smallest : column.width,
                      arePicked_ ? 0 : column.leaves, false, least});
  }
  table_->SetColumns(std::move(wishes));
  // A sub-category is no name without its category.
  table_->SetNames(columns.size() > 1 && columns[1].title == QLatin1String("Sub Category") ? 2 : 1);
  table_->SetWidths(byHand);
}

void ReportsView::ApplyColumns() {
  const std::vector<std::string> shown = ShownColumns();
  QStringList widths;
  bool isAny = false;
  for (std::size_t column = 0; column < report_.columns.size(); ++column) {
    const std::string& name = report_.columns[column].header;
    const bool isShown = std::ranges::find(shown, name) != shown.end();
    table_->ShowColumn(static_cast<int>(column), isShown);
    const auto found = std::ranges::find(state_.columns, name);
    const auto place = static_cast<std::size_t>(found - state_.columns.begin());
    const int width = place < state_.widths.size() ? state_.widths[place] : 0;
    isAny = isAny || width > 0;
    widths.append(QString::number(width));
  }
  if (isAny) {
    table_->SetWidths(widths.join(u'|'));
  } else if (hasSavedWidths_) {
    table_->SetWidths(widths_[filled_]);
  }
  hasSavedWidths_ = isAny;
}

void ReportsView::KeepWidths() {
  // Those of a saved report are its own.
  if (filled_ != 0 && !hasSavedWidths_) widths_[filled_] = table_->Widths();
}

void ReportsView::Restore(const Registry& registry) {
  const Settings settings(place_.platform.registry);
  bar_->SetDates(settings.Dates(place_.host.Today()), settings.IsOn(Setting::SetReportDate));
  widths_.clear();
  columns_.clear();
  for (const ReportInfo& info : ReportCatalogue()) {
    const auto picked = registry.Read(Hive::CurrentUser, kSettingsKey, ColumnsName(info.number));
    if (picked && !picked->empty()) columns_[info.number] = SplitItems(*picked);
    widths_[info.number] = ReadWidths(registry, WidthsName(info.number));
  }
  if (filled_ != 0) table_->SetWidths(widths_[filled_]);
}

void ReportsView::Keep(std::map<std::string, std::string>& values) const {
  values[std::string(InfoOf(Setting::SetReportDate).name)] = bar_->HasDates() ? "1" : "0";
  for (const auto& [report, widths] : widths_) values[WidthsName(report)] = FromQt(widths);
  for (const auto& [report, columns] : columns_) values[ColumnsName(report)] = JoinItems(columns);
  if (filled_ != 0 && !hasSavedWidths_) {
    values[WidthsName(filled_)] = FromQt(table_->Widths());
  }
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

void ReportsView::ShowTotals() {
  const int rows = model_->rowCount();
  const int whole = model_->Whole();
  if (whole == 0) {
    empty_->Show(QStringLiteral("reports"), tr("Nothing to report"),
                 tr("No transaction is of the chosen days, statuses and filters."),
                 place_.host.Shown().IsFiltered() ? place_.actions.mnuViewAll : nullptr);
  } else if (rows == 0) {
    empty_->Show(QStringLiteral("find"), tr("Nothing found"),
                 tr("No row of the report has what is looked for. Escape shows all of them."),
                 nullptr);
  }
  rowPages_->setCurrentIndex(rows == 0 ? 1 : 0);
  if (page_ == Page::Rows) setFocusProxy(rowPages_->currentWidget());
  const auto count = std::ranges::count_if(
      report_.rows, [](const ReportRow& row) { return row.kind != ReportRowKind::Total; });
  totals_->Show(count == 1 ? tr("1 row") : tr("%1 rows").arg(locale().toString(qlonglong(count))),
                {}, false);
}

}  // namespace corvanta::inline app
