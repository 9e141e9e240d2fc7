#include "reports/query/NetWorth.h"

#include "ledger/Money.h"
#include "ledger/investments/RateBook.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reports/query/InvestmentGains.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <map>

namespace corvanta::inline reports {
namespace {

struct MonthPoint {
  std::string key;     // "202611"
  corvanta::Date day;  // whose evening counts
};

int MonthNumber(corvanta::Date day) {
  return day.Year() * 12 + day.Month() - 1;
}

std::vector<MonthPoint> MonthsOf(const ReportRun& run) {
  corvanta::Date first;
  corvanta::Date last = run.platform.clock.Today();
  if (run.request.range) {
    first = run.request.range->from;
    last = run.request.range->to;
  } else {
    first = FirstDayOf(run).value_or(last);
  }
  std::vector<MonthPoint> months;
  for (corvanta::Date month = first.AddDays(1 - first.Day()); month <= last;
       month = month.AddMonths(1)) {
    months.push_back({std::to_string(month.Year() * 100 + month.Month()),
                      std::min(month.AddMonths(1).AddDays(-1), last)});
  }
  return months;
}

// What amounts of a currency are multiplied by, and shown in.
struct DayRate {
  double rate = 1;
  std::string shown;
};

DayRate RateOn(const ReportRun& run, const std::string& currency, corvanta::Date day) {
  const ReportRequest& request = run.request;
  const bool isOther = !request.currency.empty() && !EqualFolded(currency, request.currency);
  if (request.converts && isOther && day < run.platform.clock.Today()) {
    const auto known = run.ledger.Rates().Latest(currency, request.currency, day);
    if (known) return {known->rate, request.currency};
  }
  return {run.rates.RateOf(currency), run.rates.ShownIn(currency)};
}

double PriceOn(const ReportRun& run, std::int64_t investment, corvanta::Date day) {
  return run.Store()
      .QueryValue("Select Top 1 Price from tblHistory WHERE PayeeId = " + SqlNumber(investment) +
                  " AND [Date] <= " + SqlEndOf(day) + " Order by [Date] Desc, HistoryID Desc")
      .Double();
}

Report::Sources SourcesUntil(const ReportRun& run, corvanta::Date day) {
  return {run.clause.WithKeywords(kMovementTables),
          run.clause.WhereUntil(day, ReportClause::Payments::NotJoined) + kWholeOnly};
}

// What one currency comes to by month, before it is added up.
struct Track {
  std::vector<double> cash;
  std::map<std::int64_t, std::vector<double>> units;  // by investment
};

std::map<std::string, Track> ReadTracks(const ReportRun& run,
                                        const std::vector<MonthPoint>& months) {
  std::map<std::string, Track> tracks;
  const auto trackOf = [&](const std::string& currency) -> Track& {
    Track& track = tracks[currency];
    track.cash.resize(months.size());
    return track;
  };
  for (const CurrencyUse& use : run.rates.Uses()) {
    trackOf(use.currency).cash.front() += use.opening / use.rate;
  }
  const int first = MonthNumber(months.front().day);
  const Report::Sources sources = SourcesUntil(run, months.back().day);
  Recordset::Visit(
      run.Store(),
      "SELECT Amount, T.Date, CU.Currency, T.Shares, T.Action, T.PayeeID, PP.Investment FROM " +
          sources.tables + sources.conditions,
      [&](const VisitedRow& row) {
        const auto day = corvanta::Date::FromIso(row.Text(1).substr(0, 10));
        if (!day) return;
        const auto month = static_cast<std::size_t>(std::max(MonthNumber(*day) - first, 0));
        Track& track = trackOf(std::string(row.Text(2)));
        track.cash[month] += row.Double(0);
        if (row.Int(6) != 1 || row.Double(3) == 0) return;
        std::vector<double>& units = track.units[row.Int(5)];
        units.resize(months.size());
        units[month] += ShareSign(row.Int(4)) * row.Double(3);
      });
  return tracks;
}

}  // namespace

void NetWorth::Fill(const ReportRun& run, ReportTable& table) const {
  const std::vector<MonthPoint> months = MonthsOf(run);
  if (months.empty()) return;
  std::map<std::string, Track> tracks = ReadTracks(run, months);
  RowFold fold(table);
  for (std::size_t month = 0; month < months.size(); ++month) {
    for (auto& [currency, track] : tracks) {
      if (month > 0) track.cash[month] += track.cash[month - 1];
      double held = 0;
      for (auto& [investment, units] : track.units) {
        if (month > 0) units[month] += units[month - 1];
        if (units[month] != 0) held += units[month] * PriceOn(run, investment, months[month].day);
      }
      const auto [rate, shown] = RateOn(run, currency, months[month].day);
      const double cash = track.cash[month] * rate;
      fold.Add(GroupRow(months[month].key, shown,
                        {months[month].key, RoundMoney(cash), RoundMoney(held * rate),
                         RoundMoney(cash + held * rate), shown}));
    }
  }
}

std::vector<ExplainedRow> NetWorth::Explain(const ReportRun& run, const ReportTable& table,
                                            const ReportRow& row, std::size_t column) const {
  const std::string& header = table.columns.at(column).header;
  const std::vector<MonthPoint> months = MonthsOf(run);
  const auto month = std::ranges::find(months, row.groupKey, &MonthPoint::key);
  if (month == months.end()) return {};
  const bool withCash = header != "Investments";
  const bool withHeld = header != "Cash";
  std::vector<ExplainedRow> explained;
  for (const CurrencyUse& use : run.rates.Uses()) {
    if (!withCash || use.opening == 0) continue;
    const auto [rate, shown] = RateOn(run, use.currency, month->day);
    if (shown != row.currency) continue;
    explained.push_back(Beside("Opening balances", {}, use.currency, use.opening / use.rate, rate));
  }
  std::map<std::int64_t, double> prices;
  std::map<std::string, DayRate> rates;
  for (const EvidenceRow& part : ReadEvidence(run, SourcesUntil(run, month->day))) {
    const auto [known, isFirst] = rates.try_emplace(part.currency);
    if (isFirst) known->second = RateOn(run, part.currency, month->day);
    const auto& [rate, shown] = known->second;
    if (shown != row.currency) continue;
    if (withCash && part.amount != 0) explained.push_back(Explained(part, part.amount, rate));
    if (!withHeld || part.shares == 0) continue;
    const auto [price, isNew] = prices.try_emplace(part.payeeId, 0);
    if (isNew) price->second = PriceOn(run, part.payeeId, month->day);
    if (price->second == 0) continue;
    explained.push_back(Explained(part, part.shares, price->second * rate, ShareSign(part.action)));
  }
  return explained;
}

}  // namespace corvanta::inline reports
