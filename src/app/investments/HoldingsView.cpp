#include "app/investments/HoldingsView.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/investments/HoldingRows.h"
#include "app/investments/HoldingsBar.h"
#include "app/investments/HoldingsCharts.h"
#include "app/investments/InvestmentsView.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "controls/WaitCursor.h"
#include "invest/InvestDialogs.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/Settings.h"

#include <QAction>
#include <QBoxLayout>

#include <algorithm>
#include <set>

namespace corvanta::inline app {
namespace {

// Below it the charts leave the rows too little room.
constexpr int kRoomForCharts = 58 * kRhythm;
// Whether the days are in force; the reports have a value of their own.
constexpr std::string_view kSetDate = "SetHoldingsDate";

ListTraits Traits(const ViewPlace& place) {
  const MainActions& actions = place.actions;
  return {kHoldingShow, actions.mnuViewHoldings,      "lvholding",
          "chHoldings", HoldingsView::tr("Holdings"), HoldingColumns(place.platform.locale),
          {},           actions.mnuHoldingAdd,        actions.mnuHoldingEdit,
          nullptr};
}

}  // namespace

HoldingsView::HoldingsView(const ViewPlace& place, QWidget* parent)
    : ListView(place, Traits(place), parent),
      locale_(place.platform.locale),
      bar_(new HoldingsBar(locale_, place.host.Today(), this)),
      charts_(new HoldingsCharts(locale_, this)) {
  // Between the head and the list, and between the list and its totals.
  auto* page = static_cast<QBoxLayout*>(layout());
  page->insertWidget(1, bar_);
  page->insertWidget(3, charts_, 1);
  bar_->SetMethod(ChosenCostMethod(place.platform.registry));
  Table()->addActions({place.actions.mnuHoldingAction, place.actions.mnuInvestDownload});
  bar_->AddCommand(place.actions.mnuInvestDownload);
  const auto guarded = [this](void (HoldingsView::*act)()) {
    return [this, act] { Place().host.Guard([this, act] { (this->*act)(); }); };
  };
  const auto reload = [this] { Place().host.ApplyFilter(); };
  connect(bar_, &HoldingsBar::Changed, this, reload);
  connect(bar_, &HoldingsBar::CurrencyChosen, this, guarded(&HoldingsView::FetchRates));
  connect(bar_, &HoldingsBar::MethodChosen, this, [this, reload] {
    Place().host.Guard([this] {
      ChooseCostMethod(Place().platform.registry, bar_->Scope(Place().host.Today()).method);
    });
    reload();
  });
  connect(Table()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { ShowCharts(); });
  place.On(place.actions.mnuHoldingAction, this, [this] { ActOnShares(); });
}

void HoldingsView::Remember(ViewCommand& command) const {
  command.holdings = bar_->Period();
}

void HoldingsView::LetGo() {
  list_ = {};
  charts_->Clear();
}

void HoldingsView::Restore(const Registry& registry) {
  ListView::Restore(registry);
  const Settings settings(Place().platform.registry);
  bar_->SetPeriod(settings.Dates(Place().host.Today()),
                  registry.Read(Hive::CurrentUser, kSettingsKey, kSetDate) == "1");
}

void HoldingsView::Keep(std::map<std::string, std::string>& values) const {
  ListView::Keep(values);
  values[std::string(kSetDate)] = bar_->Period() ? "1" : "0";
}

void HoldingsView::Show(const ViewCommand& command) {
  FillBar();
  bar_->SetPeriod(command.holdings);
  bar_->SetToday(Place().host.Today());
  const HoldingsScope scope = bar_->Scope(Place().host.Today());
  period_ = *scope.period;
  list_ = ReadHoldings(Place().session.Ledger(), scope);
  std::vector<ListRow> rows;
  const int decimals = Settings(Place().platform.registry).InvestmentDecimals();
  for (const Holding& holding : list_.holdings) {
    rows.push_back(HoldingRow(holding, locale_, decimals));
  }
  const auto count = static_cast<qulonglong>(rows.size());
  charts_->setVisible(!rows.empty() && height() >= kRoomForCharts);
  Fill(std::move(rows),
       tr("What is held of each investment, and what it has earned: a year, where it was one"),
       count == 1 ? tr("1 holding") : tr("%1 holdings").arg(locale().toString(count)), Figures(),
       {QStringLiteral("investments"), tr("No investments are held"),
        tr("Enter what you have bought: units, price and day. What it is worth, and what it has "
           "earned, stands here then.")});
  ShowCharts();
}

void HoldingsView::FillBar() {
  std::vector<std::pair<std::int64_t, std::string>> accounts;
  std::set<std::string> codes;
  HoldingsScope all;
  all.withSold = true;
  for (const Holding& holding : ReadHoldings(Place().session.Ledger(), all).holdings) {
    if (accounts.empty() || accounts.back().first != holding.accountId) {
      accounts.emplace_back(holding.accountId, holding.account);
    }
    codes.insert(holding.currency);
  }
  bar_->SetAccounts(accounts);
  codes.insert(locale_.CurrencyCode());
  codes.erase(std::string());
  bar_->SetCurrencies({codes.begin(), codes.end()});
}

QStringList HoldingsView::Figures() {
  const std::string code = bar_->Currency();
  QStringList parts;
  if (!code.empty()) {
    const ConvertedTotal sum = Converted(list_.totals, code, rates_);
    QStringList without;
    for (const std::string& missing : sum.missing) without.append(ToQt(missing));
    parts.append(HoldingFigure(sum.total, locale_));
    if (!without.isEmpty()) {
      parts.last() += tr(" without %1").arg(without.join(QStringLiteral(", ")));
    }
    return parts;
  }
  for (const HoldingTotal& total : list_.totals) parts.append(HoldingFigure(total, locale_));
  return parts;
}

void HoldingsView::ShowCharts() {
  if (list_.holdings.empty()) return charts_->Clear();
  const Holding* chosen = Find(ChosenKey());
  const Holding& holding = chosen == nullptr ? list_.holdings.front() : *chosen;
  const HoldingTrack* track =
      &list_.tracks[static_cast<std::size_t>(&holding - list_.holdings.data())];
  const QString name = ToQt(holding.investment);
  charts_->ShowPrices(name, *track, period_);
  if (chosen != nullptr) return charts_->ShowValue(name, {&track, 1}, period_);
  charts_->ShowValue(tr("all in %1").arg(ToQt(holding.currency)),
                     list_.TracksOf(holding.currencyId), period_);
}

void HoldingsView::FetchRates() {
  if (const std::string code = bar_->Currency(); !code.empty()) {
    const WaitCursor waiting;
    rates_.Fetch(list_.totals, code, Place().session.Rates());
  }
  Show(Place().host.Shown());
}

const Holding* HoldingsView::Find(std::int64_t key) const {
  const auto found = std::ranges::find(list_.holdings, key, HoldingKey);
  return found == list_.holdings.end() ? nullptr : &*found;
}

std::int64_t HoldingsView::ChosenAccount() const {
  const Holding* chosen = Find(ChosenKey());
  return chosen == nullptr ? 0 : chosen->accountId;
}

void HoldingsView::MarkCommands(bool isShown) {
  ListView::MarkCommands(isShown);
  Place().actions.mnuHoldingAction->setEnabled(Place().session.IsOpen());
}

void HoldingsView::Add() {
  InvestTransRequest request;
  if (const Holding* chosen = Find(CommandKey())) {
    request.accountId = chosen->accountId;
    request.investmentId = chosen->payeeId;
  }
  if (OpenInvestTrans(request, InvestHere(Place())).isChanged) Place().host.Reload();
}

void HoldingsView::Edit(std::int64_t key) {
  const Holding* holding = Find(key);
  if (holding == nullptr) return;
  if (OpenInvest(holding->payeeId, InvestHere(Place())).isChanged) Place().host.Reload();
}

void HoldingsView::Open(std::int64_t key) {
  if (const Holding* holding = Find(key)) Place().host.OpenAccount(holding->accountId);
}

void HoldingsView::ActOnShares() {
  const Holding* chosen = Find(CommandKey());
  const std::int64_t payee = chosen == nullptr ? 0 : chosen->payeeId;
  if (OpenCorporateAction(payee, InvestHere(Place())).isChanged) Place().host.Reload();
}

void HoldingsView::resizeEvent(QResizeEvent* event) {
  ListView::resizeEvent(event);
  charts_->setVisible(!list_.holdings.empty() && height() >= kRoomForCharts);
}

}  // namespace corvanta::inline app
