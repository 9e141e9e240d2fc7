#include "app/reports/ReportsView.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewHeader.h"
#include "app/filter/FilterStrip.h"
#include "app/lists/HeaderMenu.h"
#include "app/lists/ListModel.h"
#include "app/register/TotalsLine.h"
#include "app/reports/PlanCells.h"
#include "app/reports/ReportBar.h"
#include "app/reports/ReportDelegate.h"
#include "app/reports/ReportList.h"
#include "app/search/ListSearch.h"
#include "app/search/SearchBox.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reports/budget/BudgetEditor.h"
#include "reports/chart/ucReportChart.h"
#include "reports/print/ReportDialogs.h"
#include "reports/print/ReportPrint.h"
#include "reports/query/ReportCatalogue.h"

#include <QAction>
#include <QHBoxLayout>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

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
      bar_(new ReportBar(place, this)),
      tabs_(new QTabBar(this)),
      pages_(new QStackedWidget(this)),
      list_(new ReportList(pages_)),
      rowPages_(new QStackedWidget(pages_)),
      table_(new SortedTable(rowPages_)),
      empty_(new EmptyState(rowPages_)),
      totals_(new TotalsLine(this)),
      model_(new ListModel({}, this)),
      search_(nullptr),
      chart_(new ucReportChart(place.platform, pages_)),
      plans_(new PlanCells(*table_, *model_, place_, report_, request_, this)) {
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
  chart_->AddCommands({actions.mnuReportInto, actions.mnuReportExplain, actions.mnuReportSave});
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
  header_->AddBeside(*strip_->Button());
  auto* tabs = new QHBoxLayout;
  tabs->setContentsMargins(2 * kRhythm, 0, 2 * kRhythm, 0);
  tabs->addWidget(tabs_);
  tabs->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(header_);
  column->addWidget(strip_);
  column->addWidget(bar_);
  column->addLayout(tabs);
  column->addWidget(pages_, 1);
  column->addWidget(totals_);
}

void ReportsView::Connect() {
  connect(plans_, &PlanCells::Planned, this, [this] {
    keepsRates_ = true;
    place_.host.Guard([this] { place_.host.Reload(); });
    keepsRates_ = false;
  });
  connect(bar_, &ReportBar::Changed, this, [this] { place_.host.ApplyFilter(); });
  connect(bar_, &ReportBar::CarryChosen, this, [this](bool carriesOver) {
    place_.host.Guard([&] { CarryBudgetOver(place_.platform.registry, carriesOver); });
    place_.host.Reload();
  });
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
  plans_->Finish();
  state_ = command.report;
  FillSaved();
  ShowChoices();
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
  if (report_.periods.size() > 1) {
    bar_->ShowOtherDays({report_.periods[1].from, report_.periods[1].to});
  }
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
  if (!isList) {
    QString details = Details();
    // It is of the screen alone: nobody types on paper.
    if (report_.report == kBudgetOfMonth && page == Page::Rows) {
      details += QStringLiteral("  ·  ") + tr("type over a plan to change it");
    }
    header_->Show(ToQt(report_.name), details);
  }
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

void ReportsView::Remember(ViewCommand& command) const {
  command.report = state_;
  bar_->Read(command.report);
  command.name = CommandOf(static_cast<int>(page_));
}

void ReportsView::LetGo() {
  plans_->Finish();
  model_->SetRows(nullptr);
  chart_->Clear();
  report_ = {};
  isCurrent_ = false;
  state_ = state_.Other(0);
  state_.whatIf.clear();
  // Nothing of the former data file is read off the fields later.
  bar_->Show(state_, QString());
  page_ = Page::List;
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
  return rates.isEmpty() ? Details() : Details() + QString::fromUtf8(kBetweenDetails) + rates;
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
