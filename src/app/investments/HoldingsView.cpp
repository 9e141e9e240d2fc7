#include "app/investments/HoldingsView.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/investments/HoldingsBar.h"
#include "app/investments/HoldingsCharts.h"
#include "app/investments/InvestmentsView.h"
#include "app/lists/ListWidths.h"
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

std::vector<ListColumn> Columns(const Locale& locale) {
  const ListWidths widths(locale);
  const auto text = [&](const QString& sample) { return widths.Text(sample); };
  const int money = widths.Figure(-99999.99);
  const int price = widths.Figure(9999.99, 4);
  const auto amount = [&](const QString& title, int leaves) {
    return ListColumn{title, std::max(money, text(title)), 0, true, leaves};
  };
  return {
      {HoldingsView::tr("Account"), text(QStringLiteral("An account")), 2, false, 3},
      {HoldingsView::tr("Investment"), text(QStringLiteral("An investment's name")), 4, false, 0,
       text(QStringLiteral("An investment"))},
      {HoldingsView::tr("Symbol"), text(QStringLiteral("SYMBOL")), 0, false, 2},
      {HoldingsView::tr("Units"), price, 0, true},
      {HoldingsView::tr("Average Cost"), std::max(price, text(HoldingsView::tr("Average Cost"))), 0,
       true, 8},
      {HoldingsView::tr("Price"), price, 0, true, 10},
      {HoldingsView::tr("Price Date"), widths.Day(), 0, false, 1},
      amount(HoldingsView::tr("Value"), 0),
      {HoldingsView::tr("Share"), text(QStringLiteral("100.0 %")), 0, true, 4},
      amount(HoldingsView::tr("Not Realised"), 9),
      amount(HoldingsView::tr("Realised"), 6),
      amount(HoldingsView::tr("Dividends"), 5),
      {HoldingsView::tr("Money-Weighted"), text(HoldingsView::tr("Money-Weighted")), 0, true, 7},
      {HoldingsView::tr("Time-Weighted"), text(HoldingsView::tr("Time-Weighted")), 0, true, 5}};
}

ListTraits Traits(const ViewPlace& place) {
  const MainActions& actions = place.actions;
  return {kHoldingShow, actions.mnuViewHoldings,      "lvholding",
          "chHoldings", HoldingsView::tr("Holdings"), Columns(place.platform.locale),
          {},           actions.mnuHoldingAdd,        actions.mnuHoldingEdit,
          nullptr};
}

// Of one account and one investment.
std::int64_t KeyOf(const Holding& holding) {
  constexpr int kHalf = 32;
  return (holding.accountId << kHalf) | holding.payeeId;
}

ListCell Percent(const std::optional<double>& part, const Locale& locale) {
  if (!part) return {};
  return {HoldingsView::tr("%1 %").arg(ToQt(locale.FormatNumber(*part * 100, 1))), *part};
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
  for (const Holding& holding : list_.holdings) rows.push_back(RowOf(holding));
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

ListRow HoldingsView::RowOf(const Holding& holding) const {
  const int decimals = Settings(Place().platform.registry).InvestmentDecimals();
  const auto money = [this](double amount) {
    return ListCell{ToQt(locale_.FormatNumber(amount)), amount};
  };
  const auto exact = [this, decimals](double amount) {
    return ListCell{ToQt(locale_.FormatNumber(amount, decimals)), amount};
  };
  const auto& price = holding.price;
  const auto& weighted = holding.earned.timeWeighted;
  ListCell none{tr("none"), -1, false, true};
  return {
      KeyOf(holding),
      {{ToQt(holding.account)},
       {ToQt(holding.investment)},
       {ToQt(holding.symbol)},
       exact(holding.units),
       exact(holding.averageCost),
       price ? exact(price->price) : none,
       price ? ListCell{ToQt(locale_.FormatShortDate(price->date)),
                        static_cast<double>(price->date.Serial())}
             : ListCell{},
       money(holding.value),
       Percent(holding.share, locale_),
       money(holding.unrealised),
       money(holding.realised),
       money(holding.dividends),
       Percent(holding.earned.moneyWeighted, locale_),
       Percent(weighted ? std::optional(weighted->annual.value_or(weighted->whole)) : std::nullopt,
               locale_)},
      tr("%1 in %2, cost %3 %4")
          .arg(ToQt(holding.investment), ToQt(holding.account),
               ToQt(locale_.FormatNumber(holding.cost)), ToQt(holding.currency))};
}

QString HoldingsView::FigureOf(const HoldingTotal& total) const {
  QString text = tr("Total (%1): %2, gain %3")
                     .arg(ToQt(total.currency), ToQt(locale_.FormatNumber(total.value)),
                          ToQt(locale_.FormatNumber(total.unrealised)));
  if (total.earned.moneyWeighted) {
    text +=
        tr(", %1 % a year").arg(ToQt(locale_.FormatNumber(*total.earned.moneyWeighted * 100, 1)));
  }
  return text;
}

QStringList HoldingsView::Figures() {
  const std::string code = bar_->Currency();
  QStringList parts;
  if (!code.empty()) {
    const ConvertedTotal sum = Converted(list_.totals, code, rates_);
    QStringList without;
    for (const std::string& missing : sum.missing) without.append(ToQt(missing));
    parts.append(FigureOf(sum.total));
    if (!without.isEmpty()) {
      parts.last() += tr(" without %1").arg(without.join(QStringLiteral(", ")));
    }
    return parts;
  }
  for (const HoldingTotal& total : list_.totals) parts.append(FigureOf(total));
  return parts;
}

void HoldingsView::ShowCharts() {
  if (list_.holdings.empty()) return charts_->Clear();
  const int chosen = PlaceOf(ChosenKey());
  const auto at = static_cast<std::size_t>(std::max(chosen, 0));
  const Holding& holding = list_.holdings[at];
  const HoldingTrack* track = &list_.tracks[at];
  const QString name = ToQt(holding.investment);
  charts_->ShowPrices(name, *track, period_);
  if (chosen >= 0) return charts_->ShowValue(name, {&track, 1}, period_);
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

int HoldingsView::PlaceOf(std::int64_t key) const {
  const auto found = std::ranges::find(list_.holdings, key, KeyOf);
  return found == list_.holdings.end() ? -1 : static_cast<int>(found - list_.holdings.begin());
}

std::int64_t HoldingsView::ChosenAccount() const {
  const int chosen = PlaceOf(ChosenKey());
  return chosen < 0 ? 0 : list_.holdings[static_cast<std::size_t>(chosen)].accountId;
}

void HoldingsView::MarkCommands(bool isShown) {
  ListView::MarkCommands(isShown);
  Place().actions.mnuHoldingAction->setEnabled(Place().session.IsOpen());
}

void HoldingsView::Add() {
  InvestTransRequest request;
  if (const int chosen = PlaceOf(CommandKey()); chosen >= 0) {
    const Holding& holding = list_.holdings[static_cast<std::size_t>(chosen)];
    request.accountId = holding.accountId;
    request.investmentId = holding.payeeId;
  }
  if (OpenInvestTrans(request, InvestHere(Place())).isChanged) Place().host.Reload();
}

void HoldingsView::Edit(std::int64_t key) {
  const int chosen = PlaceOf(key);
  if (chosen < 0) return;
  const std::int64_t payee = list_.holdings[static_cast<std::size_t>(chosen)].payeeId;
  if (OpenInvest(payee, InvestHere(Place())).isChanged) Place().host.Reload();
}

void HoldingsView::Open(std::int64_t key) {
  const int chosen = PlaceOf(key);
  if (chosen < 0) return;
  Place().host.OpenAccount(list_.holdings[static_cast<std::size_t>(chosen)].accountId);
}

void HoldingsView::ActOnShares() {
  const int chosen = PlaceOf(CommandKey());
  const std::int64_t payee =
      chosen < 0 ? 0 : list_.holdings[static_cast<std::size_t>(chosen)].payeeId;
  if (OpenCorporateAction(payee, InvestHere(Place())).isChanged) Place().host.Reload();
}

void HoldingsView::resizeEvent(QResizeEvent* event) {
  ListView::resizeEvent(event);
  charts_->setVisible(!list_.holdings.empty() && height() >= kRoomForCharts);
}

}  // namespace corvanta::inline app
