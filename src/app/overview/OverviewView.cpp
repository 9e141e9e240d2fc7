#include "app/overview/OverviewView.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewHeader.h"
#include "app/search/SearchBox.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "reports/print/PrintTable.h"
#include "reports/query/ReportCatalogue.h"
#include "store/sql/Connection.h"

#include <QAction>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr const char* kShowAtStart = "ShowOverview";
constexpr int kTileWidth = 46 * kRhythm;
constexpr int kWidestTile = 80 * kRhythm;  // a name and its amount are read together
constexpr int kMaxColumns = 3;
constexpr int kPause = 20;  // milliseconds, which belong to everything else

}  // namespace

bool BeginsWithOverview(const Registry& registry) {
  return registry.Read(Hive::CurrentUser, kSettingsKey, kShowAtStart) != "0";
}

OverviewView::OverviewView(const ViewPlace& place, QWidget* parent)
    : QWidget(parent),
      place_(place),
      header_(new ViewHeader(this)),
      page_(new QWidget(this)),
      columns_(new QHBoxLayout),
      balances_(new OverviewTile("Balances", tr("Balances Today"), tr("Show the accounts"), page_)),
      due_(new OverviewTile("Due", tr("Due"), tr("Show the schedules"), page_)),
      month_(new OverviewTile("Month", tr("This Month"), tr("Show the cash flow by month"), page_)),
      budget_(new OverviewTile("Budget", tr("Budget"), tr("Show this month's budget"), page_)),
      worth_(new OverviewTile("Worth", tr("Net Worth"), tr("Show what it is made of"), page_)),
      chkOverview_(new QCheckBox(tr("Begin &with this page"), page_)),
      rest_(new QTimer(this)) {
  setObjectName(QStringLiteral("pnlOverview"));
  chkOverview_->setObjectName(QStringLiteral("chkOverview"));
  chkOverview_->setToolTip(tr("Show it when the program starts"));
  rest_->setObjectName(QStringLiteral("tmrOverview"));
  rest_->setSingleShot(true);
  page_->installEventFilter(this);
  header_->Search().hide();
  columns_->setSpacing(2 * kRhythm);
  auto* rows = new QVBoxLayout(page_);
  rows->setContentsMargins(2 * kRhythm, kRhythm, 2 * kRhythm, 2 * kRhythm);
  rows->setSpacing(2 * kRhythm);
  rows->addLayout(columns_);
  rows->addWidget(chkOverview_);
  rows->addStretch(1);
  auto* scroll = new QScrollArea(this);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(page_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(header_);
  column->addWidget(scroll, 1);
  ArrangeTiles(1);
  Connect();
  setFocusProxy(balances_->findChild<QWidget*>(QStringLiteral("cmdBalances")));
}

void OverviewView::Connect() {
  connect(rest_, &QTimer::timeout, this, &OverviewView::ReadOn);
  const auto guarded = [this](OverviewTile* tile, const std::function<void()>& go) {
    connect(tile, &OverviewTile::Chosen, this, [this, go] { place_.host.Guard(go); });
  };
  guarded(balances_, [this] { place_.actions.mnuViewAccounts->trigger(); });
  guarded(due_, [this] { place_.actions.mnuViewSchedules->trigger(); });
  guarded(month_, [this] {
    ShowReport(kCashFlow, Period{Now().lastMonth.from, Now().thisMonth.to});
  });
  guarded(budget_, [this] { ShowReport(kBudgets, Now().thisMonth); });
  guarded(worth_, [this] { ShowReport(kNetWorth, std::nullopt); });
}

QAction* OverviewView::Entry() const {
  return place_.actions.mnuViewOverview;
}

QAction* OverviewView::AddCommand() const {
  return place_.actions.mnuTransAdd;
}

void OverviewView::ArrangeTiles(int columns) {
  if (columns == columnCount_) return;
  columnCount_ = columns;
  while (QLayoutItem* former = columns_->takeAt(0)) {
    while (QLayoutItem* item = former->layout()->takeAt(0)) delete item;
    delete former;
  }
  // What is looked at first stands at the left and above.
  const std::vector<OverviewTile*> tiles = {balances_, month_, due_, worth_, budget_};
  std::vector<QVBoxLayout*> made;
  for (int column = 0; column < columns; ++column) {
    made.push_back(new QVBoxLayout);
    made.back()->setSpacing(2 * kRhythm);
    columns_->addLayout(made.back(), 1);
  }
  for (std::size_t tile = 0; tile < tiles.size(); ++tile) {
    made[tile % made.size()]->addWidget(tiles[tile]);
  }
  for (QVBoxLayout* column : made) column->addStretch(1);
}

void OverviewView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int columns = std::clamp(width() / kTileWidth, 1, kMaxColumns);
  ArrangeTiles(columns);
  const int most = columns * (kWidestTile + 2 * kRhythm) + 2 * kRhythm;
  columns_->setContentsMargins(0, 0, std::max(0, width() - most), 0);
}

void OverviewView::Show(const ViewCommand& /*command*/) {
  const Date today = place_.host.Today();
  const bool withClosed = Settings(place_.platform.registry).IsOn(Setting::Closed);
  rest_->stop();
  reader_ =
      std::make_unique<OverviewReader>(place_.session.Ledger(), today, withClosed, place_.platform);
  reader_->ReadStanding();
  header_->Show(tr("Overview"), ToQt(place_.platform.locale.FormatLongDate(today)));
  balances_->Show(BalanceLines());
  due_->Show(DueLines());
  worth_->Show(WorthLines());
  // What was there before stays until its time comes.
  for (OverviewTile* tile : {month_, budget_}) {
    if (tile->Lines().empty()) tile->Show({{{{tr("Adding up ..."), false, false, true}}}});
  }
  hasFailed_ = false;
  page_->update();
}

// What has not been drawn yet can be drawn first.
bool OverviewView::eventFilter(QObject* object, QEvent* event) {
  const bool isRead = reader_ == nullptr || reader_->HasPlans() || hasFailed_;
  if (object == page_ && event->type() == QEvent::Paint && !isRead && !rest_->isActive()) {
    rest_->start(0);
  }
  return QWidget::eventFilter(object, event);
}

void OverviewView::ReadOn() {
  // As long as something is being changed it can wait.
  if (place_.session.Ledger().Store().InTransaction()) return rest_->start(kPause);
  OverviewTile* const tile = reader_->HasFlows() ? budget_ : month_;
  hasFailed_ = true;
  place_.host.Guard([this] {
    reader_->ReadNext();
    hasFailed_ = false;
  });
  if (hasFailed_) return tile->Show({{{{tr("Could not be read"), false, false, true}}}});
  tile->Show(tile == month_ ? MonthLines() : BudgetLines());
  page_->update();
  if (reader_->HasPlans()) Q_EMIT ReadWhole();
}

const Overview& OverviewView::Now() const {
  static const Overview kNone;
  return reader_ == nullptr ? kNone : reader_->Read();
}

void OverviewView::LetGo() {
  rest_->stop();
  reader_.reset();
  for (OverviewTile* tile : {balances_, due_, month_, budget_, worth_}) tile->Show({});
}

void OverviewView::Restore(const Registry& registry) {
  chkOverview_->setChecked(BeginsWithOverview(registry));
}

void OverviewView::Keep(std::map<std::string, std::string>& values) const {
  values[kShowAtStart] = chkOverview_->isChecked() ? "1" : "0";
}

void OverviewView::ShowReport(int number, const std::optional<Period>& days) {
  ViewCommand command{kReportSelected};
  command.report.report = number;
  if (days) command.report.dates = DateRange{days->from, days->to};
  // As the tiles are worked out.
  command.report.withoutTransfers = number == kCashFlow || number == kBudgets;
  if (number == kBudgets && Now().arePlansConverted) {
    command.report.converts = true;
    command.report.currency = Now().plans.front().currency;
  }
  place_.host.Show(command);
  place_.host.FocusView();
}

PrintTable OverviewView::Printed() const {
  PrintTable table;
  table.title = FromQt(tr("Overview"));
  const int width = kTileWidth;
  table.columns = {{std::string(), width},
                   {std::string(), width / 2, PrintAlignment::Right},
                   {std::string(), width / 2, PrintAlignment::Right},
                   {std::string(), width / 4, PrintAlignment::Left}};
  for (const OverviewTile* tile : {balances_, due_, month_, budget_, worth_}) {
    table.rows.push_back({FromQt(tile->Heading())});
    for (const OverviewTile::Line& line : tile->Lines()) {
      std::vector<std::string> cells;
      for (const OverviewTile::Cell& cell : line.cells) cells.push_back(FromQt(cell.text));
      table.rows.push_back(std::move(cells));
    }
  }
  return table;
}

}  // namespace corvanta::inline app
