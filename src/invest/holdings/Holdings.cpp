#include "invest/holdings/Holdings.h"

#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/RateSource.h"
#include "platform/Settings.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <span>
#include <tuple>
#include <unordered_map>

namespace corvanta::inline invest {
namespace {

// Reads what several holdings share once.
class HoldingsMaker {
 public:
  HoldingsMaker(clsCorvanta& ledger, const HoldingsScope& scope)
      : ledger_(ledger),
        scope_(scope),
        accounts_(ReadHoldingAccounts(ledger.Store())),
        names_(ReadHoldingNames(ledger.Store())) {}

  HoldingsList Make() {
    const std::vector<HoldingRow> rows = ReadHoldingRows(ledger_.Store(), scope_.accountId);
    for (auto first = rows.begin(); first != rows.end();) {
      const auto last = std::find_if(first, rows.end(), [&](const HoldingRow& row) {
        return row.accountId != first->accountId || row.payeeId != first->payeeId;
      });
      AddHolding({first, last});
      first = last;
    }
    std::ranges::sort(made_, IsBefore);
    HoldingsList list;
    for (Made& made : made_) {
      AddToTotal(made.holding, list.totals);
      list.holdings.push_back(std::move(made.holding));
      if (scope_.period) list.tracks.push_back(std::move(made.track));
    }
    for (Holding& holding : list.holdings) SetShare(holding, list.totals);
    if (scope_.period) SetReturns(list);
    return list;
  }

 private:
  struct Made {
    Holding holding;
    std::string order;  // the names without their case
    HoldingTrack track;
  };

  static bool IsBefore(const Made& first, const Made& second) {
    return std::tie(first.order, first.holding.accountId, first.holding.payeeId) <
           std::tie(second.order, second.holding.accountId, second.holding.payeeId);
  }

  void AddHolding(std::span<const HoldingRow> rows) {
    const auto account = accounts_.find(rows.front().accountId);
    const auto name = names_.find(rows.front().payeeId);
    if (account == accounts_.end() || name == names_.end()) return;
    CostBasis basis(scope_.method);
    for (const HoldingRow& row : rows) basis.Add(row);
    if (basis.Units() == 0 && !scope_.withSold) return;
    Made made;
    Holding& holding = made.holding;
    holding.accountId = rows.front().accountId;
    holding.account = account->second.account;
    holding.currencyId = account->second.currencyId;
    holding.currency = account->second.currency;
    holding.payeeId = rows.front().payeeId;
    holding.investment = name->second.investment;
    holding.symbol = name->second.symbol;
    holding.price = LatestPrice(holding.payeeId);
    Reckon(basis, holding);
    made.order = FoldCase(holding.account) + '\n' + FoldCase(holding.investment);
    if (scope_.period) made.track = {{rows.begin(), rows.end()}, PricesOf(holding.payeeId)};
    made_.push_back(std::move(made));
  }

  static void Reckon(const CostBasis& basis, Holding& holding) {
    holding.units = basis.Units();
    holding.cost = RoundMoney(basis.Cost());
    if (holding.units != 0) holding.averageCost = basis.Cost() / holding.units;
    holding.value = RoundMoney(holding.units * (holding.price ? holding.price->price : 0));
    holding.unrealised = RoundMoney(holding.value - basis.Cost());
    holding.realised = RoundMoney(basis.Realised());
    holding.dividends = RoundMoney(basis.Dividends());
  }

  std::optional<DayPrice> LatestPrice(std::int64_t payeeId) {
    const auto known = latest_.find(payeeId);
    if (known != latest_.end()) return known->second;
    std::optional<DayPrice>& latest = latest_[payeeId];
    if (const auto stored = ledger_.Prices().LatestPrice(payeeId)) {
      latest = DayPrice{stored->date, stored->price};
    }
    return latest;
  }

  const std::vector<DayPrice>& PricesOf(std::int64_t payeeId) {
    const auto known = prices_.find(payeeId);
    if (known != prices_.end()) return known->second;
    return prices_[payeeId] = ReadPrices(ledger_.Store(), payeeId);
  }

  static void AddToTotal(const Holding& holding, std::vector<HoldingTotal>& totals) {
    auto total = std::ranges::find(totals, holding.currencyId, &HoldingTotal::currencyId);
    if (total == totals.end()) {
      totals.push_back({holding.currencyId, holding.currency});
      total = std::prev(totals.end());
    }
    total->cost = RoundMoney(total->cost + holding.cost);
    total->value = RoundMoney(total->value + holding.value);
    total->unrealised = RoundMoney(total->unrealised + holding.unrealised);
    total->realised = RoundMoney(total->realised + holding.realised);
    total->dividends = RoundMoney(total->dividends + holding.dividends);
  }

  static void SetShare(Holding& holding, const std::vector<HoldingTotal>& totals) {
    const auto total = std::ranges::find(totals, holding.currencyId, &HoldingTotal::currencyId);
    if (total->value > 0) holding.share = holding.value / total->value;
  }

  void SetReturns(HoldingsList& list) const {
    for (std::size_t i = 0; i < list.holdings.size(); ++i) {
      const HoldingTrack* track = &list.tracks[i];
      list.holdings[i].earned = ReturnOf({&track, 1}, *scope_.period);
    }
    for (HoldingTotal& total : list.totals) {
      total.earned = ReturnOf(list.TracksOf(total.currencyId), *scope_.period);
    }
  }

  clsCorvanta& ledger_;
  const HoldingsScope& scope_;
  std::unordered_map<std::int64_t, HoldingAccount> accounts_;
  std::unordered_map<std::int64_t, HoldingName> names_;
  std::unordered_map<std::int64_t, std::optional<DayPrice>> latest_;
  std::unordered_map<std::int64_t, std::vector<DayPrice>> prices_;
  std::vector<Made> made_;
};

}  // namespace

CostMethod ChosenCostMethod(Registry& registry) {
  return static_cast<CostMethod>(Settings(registry).Choice(Setting::CostMethod));
}

void ChooseCostMethod(Registry& registry, CostMethod method) {
  Settings(registry).SetChoice(Setting::CostMethod, static_cast<std::size_t>(method));
}

std::vector<const HoldingTrack*> HoldingsList::TracksOf(std::int64_t currencyId) const {
  std::vector<const HoldingTrack*> found;
  for (std::size_t i = 0; i < tracks.size(); ++i) {
    if (holdings[i].currencyId == currencyId) found.push_back(&tracks[i]);
  }
  return found;
}

HoldingsList ReadHoldings(clsCorvanta& ledger, const HoldingsScope& scope) {
  return HoldingsMaker(ledger, scope).Make();
}

ConvertedTotal Converted(const std::vector<HoldingTotal>& totals, const std::string& currency,
                         RateSource& rates) {
  ConvertedTotal result;
  result.total.currency = currency;
  for (const HoldingTotal& total : totals) {
    const std::optional<RateAnswer> answer = total.currency == currency
                                                 ? RateAnswer{1, std::nullopt}
                                                 : rates.Rate(total.currency, currency);
    // A 1 that only stands in for a rate would be a wrong total.
    const bool isRate = answer && (answer->notice.empty() || answer->day);
    if (!isRate) {
      result.missing.push_back(total.currency);
      continue;
    }
    if (!answer->notice.empty()) result.notices.push_back(answer->notice);
    for (double HoldingTotal::*figure :
         {&HoldingTotal::cost, &HoldingTotal::value, &HoldingTotal::unrealised,
          &HoldingTotal::realised, &HoldingTotal::dividends}) {
      result.total.*figure = RoundMoney(result.total.*figure + total.*figure * answer->rate);
    }
  }
  return result;
}

}  // namespace corvanta::inline invest
