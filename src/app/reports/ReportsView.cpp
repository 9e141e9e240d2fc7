#include "app/reports/ReportsView.h"

#include "app/FilterStrip.h"
#include "app/LedgerSession.h"
#include "app/ListModel.h"
#include "app/MainActions.h"
#include "app/TotalsLine.h"
#include "app/ViewHeader.h"
#include "app/WindowLayout.h"
#include "app/lists/HeaderMenu.h"
#include "app/reports/ReportBar.h"
#include "app/reports/ReportDelegate.h"
#include "app/reports/ReportList.h"
#include "app/reports/ReportRows.h"
#include "app/search/ListSearch.h"
#include "app/search/SearchBox.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "controls/WaitCursor.h"
#include "ledger/AccountRow.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Registry.h"
#include "reports/chart/ucReportChart.h"
#include "reports/custom/ReportColumns.h"
#include "reports/custom/ReportEditor.h"
#include "reports/print/ReportDialogs.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRunner.h"
#include "store/sql/Connection.h"

#include <QAction>
#include <QHBoxLayout>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

// The settings have a value for each report.
std::string WidthsName(int report) {
  return "chReport" + std::to_string(report);
}

std::string ColumnsName(int report) {
  return "ReportColumns" + std::to_string(report);
}

std::string_view CommandOf(int tab) {
  constexpr std::string_view kCommands[] = {kReportShow, kReportSelected, kReportChart};
  return kCommands[std::clamp(tab, 0, 2)];
}

}  // namespace

ReportsView::ReportsView(const ViewPlace& place, QWidget* parent)
    : QWidget(parent),
      place_(place),
      header_(new ViewHeader(this)),
      strip_(new FilterStrip(this)),
      bar_(new ReportBar(place.platform.locale, this)),
      tabs_(new QTabBar(this)),
      pages_(new QStackedWidget(this)),
      list_(new ReportList(pages_)),
      rowPages_(new QStackedWidget(pages_)),
      table_(new SortedTable(rowPages_)),
      empty_(new EmptyState(rowPages_)),
      totals_(new TotalsLine(this)),
      model_(new ListModel({}, this)),
      search_(nullptr),
      chart_(new ucReportChart(place.platform, pages_)) {
  setObjectName(QStringLiteral("pnlReports"));
  MakeTable();
  search_ = new ListSearch(place_.platform.locale, header_->Search(), *table_, *model_, this);
  Arrange();
  Connect();
  ConnectCommands();
  bar_->SetToday(place_.host.Today());
}

ReportsView::~ReportsView() = default;

void ReportsView::MakeTable() {
  table_->setObjectName(QStringLiteral("lvReportSelect"));
  table_->setAccessibleName(tr("The report"));
  table_->setAlternatingRowColors(true);
  table_->setItemDelegate(new ReportDelegate(table_));
  table_->setModel(model_);
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
  const MainActions& actions = place_.actions;
  new HeaderMenu(*table_, {},
                 {actions.mnuReportColumns, actions.mnuViewFit, actions.mnuViewWidths});
  table_->addActions({actions.mnuReportInto, actions.mnuReportExplain, actions.mnuEditCopy,
                      actions.mnuReportColumns, actions.mnuReportSave});
}

void ReportsView::Arrange() {
  tabs_->setObjectName(QStringLiteral("tbReport"));
  tabs_->setAccessibleName(tr("What of the report is shown"));
  tabs_->setDrawBase(false);
  tabs_->setExpanding(false);
  tabs_->addTab(tr("Reports"));
  rowPages_->addWidget(table_);
  rowPages_->addWidget(empty_);
  pages_->addWidget(list_);
  pages_->addWidget(rowPages_);
  pages_->addWidget(chart_);
  auto* head = new QHBoxLayout;
  head->addWidget(header_, 1);
  head->addWidget(strip_->Button());
  head->addSpacing(2 * kRhythm);
  auto* tabs = new QHBoxLayout;
  tabs->setContentsMargins(2 * kRhythm, 0, 2 * kRhythm, 0);
  tabs->addWidget(tabs_);
  tabs->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(head);
  column->addWidget(strip_);
  column->addWidget(bar_);
  column->addLayout(tabs);
  column->addWidget(pages_, 1);
  column->addWidget(totals_);
}

void ReportsView::Connect() {
  connect(bar_, &ReportBar::Changed, this, [this] { place_.host.ApplyFilter(); });
  connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) {
    ViewCommand command = Base();
    command.name = CommandOf(tab);
    place_.host.Show(command);
    place_.host.FocusView();
  });
  connect(list_, &ReportList::ReportChosen, this,
          [this](int number) { place_.host.Guard([this, number] { RunReport(number); }); });
  connect(list_, &ReportList::SavedChosen, this, [this](const QString& name) {
    place_.host.Guard([this, name] { OpenSaved(FromQt(name)); });
  });
  connect(search_, &ListSearch::Narrowed, this, [this] {
    ShowTotals();
    place_.host.MarkChoice();
  });
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { place_.host.MarkChoice(); });
  connect(table_, &SortedTable::SortChosen, this,
          [this] { place_.host.Guard([this] { model_->Sort(table_->Sorted()); }); });
  connect(model_, &ListModel::Failed, this, [this](const QString& reason) {
    place_.platform.prompts.Tell("Data File", FromQt(reason), Icon::Warning);
  });
}

bool ReportsView::Answers(std::string_view command) const {
  return command == kReportShow || command == kReportSelected || command == kReportChart;
}

QAction* ReportsView::Entry() const {
  return place_.actions.mnuViewReports;
}

QString ReportsView::Title() const {
  return page_ == Page::List ? tr("Reports") : ToQt(report_.name);
}

SearchBox* ReportsView::Search() const {
  return &header_->Search();
}

void ReportsView::Show(const ViewCommand& command) {
  state_ = command.report;
  bar_->SetToday(place_.host.Today());
  FillCurrencies();
  FillSaved();
  bar_->Show(state_, PaymentNames());
  const ReportInfo* info = FindReport(state_.report);
  if (info == nullptr) state_.report = 0;
  Page page = Page::List;
  if (command.name == kReportSelected) page = Page::Rows;
  if (command.name == kReportChart)
    page = info != nullptr && info->hasChart ? Page::Chart : Page::Rows;
  if (info == nullptr) page = Page::List;
  page_ = page;
  ShowTabs();
  if (page != Page::List) Run(command);
  ShowPage(page);
}

void ReportsView::ShowTabs() {
  const QSignalBlocker quiet(tabs_);
  const ReportInfo* info = FindReport(state_.report);
  const int wanted = info == nullptr ? 1 : info->hasChart ? 3 : 2;
  while (tabs_->count() > wanted) tabs_->removeTab(tabs_->count() - 1);
  while (tabs_->count() < wanted) {
    tabs_->addTab(tabs_->count() == 2 ? QStringLiteral("Charts") : QString());
  }
  if (info != nullptr) tabs_->setTabText(1, ToQt(info->name));
  tabs_->setCurrentIndex(static_cast<int>(page_));
}

void ReportsView::ShowPage(Page page) {
  const bool isList = page == Page::List;
  if (!isList) header_->Show(ToQt(report_.name), Details());
  if (isList) {
    header_->Show(tr("Reports"), tr("Choose what you want to know"));
    if (state_.report != 0) list_->Choose(state_.report);
    pages_->setCurrentWidget(list_);
  } else if (page == Page::Chart) {
    chart_->Show(report_);
    pages_->setCurrentWidget(chart_);
  } else {
    pages_->setCurrentWidget(rowPages_);
  }
  header_->Search().setVisible(page == Page::Rows);
  totals_->setVisible(page == Page::Rows && !report_.rows.empty());
  QWidget* shown = pages_->currentWidget();
  setFocusProxy(shown == rowPages_ ? rowPages_->currentWidget() : shown);
}

void ReportsView::FillCurrencies() {
  std::vector<std::string> first;
  for (const AccountRow& account : place_.host.Accounts()) first.push_back(account.currency);
  const std::string own = place_.platform.locale.CurrencyCode();
  first.push_back(own);
  bar_->SetCurrencies(place_.session.Ledger().References().Currencies(), first);
  if (state_.currency.empty()) state_.currency = own;
}

void ReportsView::FillSaved() {
  std::vector<std::pair<QString, QString>> saved;
  const ReportEditor editor(place_.platform.registry, place_.platform.prompts);
  for (const auto& [name, report] : editor.Items()) saved.emplace_back(ToQt(name), ToQt(report));
  list_->SetSaved(saved);
}

QString ReportsView::PaymentNames() const {
  if (state_.paymentTypes.empty()) return {};
  QStringList names;
  for (const PaymentRecord& payment : place_.session.Ledger().References().Payments()) {
    if (std::ranges::find(state_.paymentTypes, payment.paymentId) != state_.paymentTypes.end()) {
      names.append(ToQt(payment.payment));
    }
  }
  return names.isEmpty() ? tr("none that is left") : names.join(QStringLiteral(", "));
}

void ReportsView::Run(const ViewCommand& command) {
  ViewCommand shown = command;
  shown.report = state_;
  const bool withClosed = Settings(place_.platform.registry).IsOn(Setting::Closed);
  ReportRequest request = RequestOf(shown, withClosed);
  // A currency that nothing is converted into must not move the budgets into it.
  if (!request.converts) request.currency = place_.platform.locale.CurrencyCode();
  const std::uint64_t now = place_.session.Ledger().Store().Changes();
  if (isCurrent_ && readAt_ == now && request == request_) return ApplyColumns();
  const WaitCursor waiting;
  isCurrent_ = false;
  try {
    ReportTable report = corvanta::RunReport(place_.session.Ledger(), request,
                                             place_.session.Rates(), place_.platform);
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
}

void ReportsView::Fill() {
  const int decimals = Settings(place_.platform.registry).InvestmentDecimals();
  if (filled_ != report_.report) FillColumns();
  model_->SetRows(RowsOf(report_, place_.platform.locale, decimals));
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
  std::vector<ListTable::Column> widths;
  for (const ListColumn& column : model_->Columns()) {
    widths.push_back(
        {column.width, column.stretch, column.stretch > 0 ? column.smallest : column.width});
  }
  table_->SetColumns(std::move(widths));
  filled_ = report_.report;
  table_->SetWidths(widths_[filled_]);
  hasSavedWidths_ = false;
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

QString ReportsView::Details() const {
  QStringList details;
  if (!state_.definition.empty()) details.append(ToQt(state_.definition));
  const Locale& own = place_.platform.locale;
  const auto days = [&own](Date from, Date to) {
    return tr("%1 to %2").arg(ToQt(own.FormatLongDate(from)), ToQt(own.FormatLongDate(to)));
  };
  if (report_.periods.size() > 1) {
    const Period& now = report_.periods[0];
    const Period& other = report_.periods[1];
    details.append(
        tr("%1, compared with %2").arg(days(now.from, now.to), days(other.from, other.to)));
  } else if (!report_.periods.empty()) {
    details.append(days(report_.periods[0].from, report_.periods[0].to));
  } else if (state_.dates) {
    details.append(days(state_.dates->start, state_.dates->end));
  } else {
    details.append(tr("All days"));
  }
  if (!state_.emptied.empty()) details.append(tr("what it is of is not in this data file"));
  return details.join(QStringLiteral("  ·  "));
}

void ReportsView::Remember(ViewCommand& command) const {
  command.report = state_;
  bar_->Read(command.report);
  command.name = CommandOf(static_cast<int>(page_));
}

ViewCommand ReportsView::Base() const {
  const ViewCommand& shown = place_.host.Shown();
  ViewCommand command{kReportSelected};
  command.uncleared = shown.uncleared;
  command.cleared = shown.cleared;
  command.reconciled = shown.reconciled;
  command.rows = shown.rows;
  command.report = state_;
  bar_->Read(command.report);
  return command;
}

// At which rates the figures were converted.
ViewSurroundings ReportsView::Surroundings() const {
  if (page_ == Page::List || !request_.converts) return {};
  QStringList rates;
  for (const ReportRate& rate : report_.rates) {
    // One that is not known leaves the amounts as they are.
    if (rate.rate == 1 || rate.currency == request_.currency) continue;
    rates.append(tr("1 %1 = %2 %3")
                     .arg(ToQt(rate.currency),
                          ToQt(place_.platform.locale.FormatNumber(rate.rate, 4)),
                          ToQt(request_.currency)));
  }
  return {0, {}, rates.join(QStringLiteral("  "))};
}

void ReportsView::LetGo() {
  model_->SetRows(nullptr);
  chart_->Clear();
  report_ = {};
  isCurrent_ = false;
  state_ = state_.Other(0);
  page_ = Page::List;
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

PrintTable ReportsView::Printed() const {
  PrintTable printed =
      page_ == Page::Chart ? chart_->Printed() : PrintTableOf(*table_, FromQt(Title()));
  printed.subject = FromQt(Subject());
  if (page_ == Page::Rows) printed.summaries = totals_->Printed();
  return printed;
}

QString ReportsView::Subject() const {
  const QString rates = Surroundings().status;
  return rates.isEmpty() ? Details() : Details() + QStringLiteral("  ·  ") + rates;
}

std::int64_t ReportsView::RowCount() const {
  return page_ == Page::List ? 0 : model_->rowCount();
}

std::set<std::int64_t> ReportsView::ShownOf(
    const std::vector<std::int64_t>& /*transactions*/) const {
  return {};
}

bool ReportsView::ChooseKey(std::int64_t key) {
  for (std::size_t row = 0; row < report_.rows.size(); ++row) {
    if (key == 0 || report_.rows[row].transactionId != key) continue;
    const int at = model_->RowOf(static_cast<qint64>(row) + 1);
    if (at >= 0) table_->ChooseRow(at);
    return at >= 0;
  }
  return false;
}

}  // namespace corvanta::inline app
