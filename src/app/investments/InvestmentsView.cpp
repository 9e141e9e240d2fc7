#include "app/investments/InvestmentsView.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/investments/PriceCommands.h"
#include "app/lists/ListWidths.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "invest/InvestDialogs.h"
#include "invest/InvestEditor.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/PriceBook.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "reference/RowOf.h"

namespace corvanta::inline app {
namespace {

std::vector<ListColumn> Columns(const Platform& platform) {
  const ListWidths widths(platform.locale);
  const auto text = [&](const QString& sample) { return widths.Text(sample); };
  const int decimals = Settings(platform.registry).InvestmentDecimals();
  return {
      {InvestmentsView::tr("Investment"), 22 * kRhythm, 3, false, 0, 16 * kRhythm},
      {InvestmentsView::tr("Symbol"), text(QStringLiteral("SYMBOL.L")), 1, false, 6},
      {InvestmentsView::tr("Currency"), text(QStringLiteral("Currency")), 0, false, 4},
      {InvestmentsView::tr("Quoted In"), text(QStringLiteral("Quoted In")), 0, false, 3},
      {InvestmentsView::tr("Data Source"), text(QStringLiteral("Name of a source")), 1, false, 2},
      {InvestmentsView::tr("Last Price"), widths.Figure(99999.99, decimals), 0, true},
      {InvestmentsView::tr("Price Date"), widths.Day(), 0, false, 5},
      {InvestmentsView::tr("Description"), text(QStringLiteral("Description")), 2, false, 1}};
}

ListTraits Traits(const ViewPlace& place) {
  const MainActions& actions = place.actions;
  return {kInvestmentShow,
          actions.mnuViewInvestments,
          "lvinvest",
          InfoOf(Setting::chI).name,
          InvestmentsView::tr("Investments"),
          Columns(place.platform),
          {0, false},
          actions.mnuInvestAdd,
          actions.mnuInvestEdit,
          actions.mnuInvestDelete};
}

ListRow RowFor(const InvestmentDetails& row, const QString& source,
               const std::optional<PriceRecord>& last, const Platform& platform) {
  ListCell price;
  ListCell day{InvestmentsView::tr("None"), 0, false, true};
  if (last) {
    const int decimals = Settings(platform.registry).InvestmentDecimals();
    price = {ToQt(platform.locale.FormatNumber(last->price, decimals)), last->price};
    day = {ToQt(platform.locale.FormatShortDate(last->date)),
           static_cast<double>(last->date.Serial())};
  }
  return {row.investmentId,
          {{ToQt(row.investment)},
           {ToQt(row.symbol)},
           {ToQt(row.currency)},
           {ToQt(row.investCurrency)},
           {source},
           price,
           day,
           {ToQt(row.description)}},
          {}};
}

}  // namespace

InvestPlace InvestHere(const ViewPlace& place) {
  return {place.platform, place.session.Ledger(), place.session.Rates(), &place.window,
          [host = &place.host] { host->Reload(); }};
}

InvestmentsView::InvestmentsView(const ViewPlace& place, QWidget* parent)
    : ListView(place, Traits(place), parent) {
  Table()->addActions({place.actions.mnuInvestHistory, place.actions.mnuInvestDownload});
  place.On(place.actions.mnuInvestHistory, this, [this] { ShowHistory(); });
  place.On(place.actions.mnuInvestDownload, this, [this] { DownloadAllPrices(Place()); });
}

void InvestmentsView::ApplySettings() {
  SetNeeds(Columns(Place().platform));
}

void InvestmentsView::Show(const ViewCommand& /*command*/) {
  clsCorvanta& ledger = Place().session.Ledger();
  InvestmentBook& investments = ledger.Investments();
  const std::vector<StockSource> sources = investments.StockSources();
  std::vector<ListRow> rows;
  for (const InvestmentDetails& row : investments.ListInvestments()) {
    const auto source = RowOf(sources, &StockSource::dataId, row.dataId);
    rows.push_back(RowFor(row, source ? ToQt(source->name) : QString(),
                          ledger.Prices().LatestPrice(row.investmentId), Place().platform));
  }
  const auto count = static_cast<qulonglong>(rows.size());
  Fill(std::move(rows), tr("Shares and funds, with the latest price of one"),
       count == 1 ? tr("1 investment") : tr("%1 investments").arg(locale().toString(count)), {},
       {QStringLiteral("investments"), tr("No investments yet"),
        tr("Add what you hold, or would like to: its name, its symbol and where its price comes "
           "from. What you buy and sell of it is entered as investment transactions.")});
}

void InvestmentsView::Edit(std::int64_t key) {
  Apply(OpenInvest(key, InvestHere(Place())));
}

void InvestmentsView::ShowHistory() {
  const InvestPlace place = InvestHere(Place());
  const std::int64_t key = CommandKey();
  if (key == 0) return Apply(OpenInvest(0, place, true));
  if (OpenHistory(place, key)) Place().host.Reload();
}

void InvestmentsView::Apply(const InvestResult& result) {
  if (!result.isChanged) return;
  Place().host.Reload();
  Place().host.ChooseRow(Name(), result.savedKey);
}

void InvestmentsView::Delete(std::int64_t key) {
  InvestEditor editor(Place().session.Ledger(), Place().platform);
  const Deletion deletion = editor.Delete(key);
  if (deletion.isChanged) Place().host.Reload();
  Place().host.Notice(ToQt(deletion.Notice()));
}

}  // namespace corvanta::inline app
