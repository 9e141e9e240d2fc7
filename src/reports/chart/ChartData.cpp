#include "reports/chart/ChartData.h"

#include "ledger/Money.h"
#include "reports/chart/ChartRows.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <span>
#include <utility>

namespace corvanta::inline reports {
namespace {

constexpr std::size_t kMaxParts = 6;
// More than a screen has columns shows nothing more.
constexpr std::size_t kMaxPoints = 1000;

constexpr std::array kMonths = {"January",   "February", "March",    "April",
                                "May",       "June",     "July",     "August",
                                "September", "October",  "November", "December"};

// What a bar of a series is as long as.
enum class Measure {
  AsItStands,
  MoneyOut,  // of what is spent, upwards; what came in counts as nothing
  WithFirst  // upwards where the row's first figure goes that way, which is turned up
};

struct SeriesRule {
  std::string header;
  ChartRole role = ChartRole::Other;
  Measure measure = Measure::AsItStands;
  bool isLine = false;
};

// 1 where the row's first figure that is not 0 is positive.
int DirectionOf(const ChartRows& rows, std::size_t row, std::span<const SeriesRule> rules) {
  for (const SeriesRule& rule : rules) {
    const double figure = rows.Number(row, rule.header).value_or(0);
    if (figure != 0) return figure < 0 ? -1 : 1;
  }
  return 1;
}

double Measured(double figure, Measure measure, int direction) {
  if (measure == Measure::MoneyOut) return std::max(0.0, -figure);
  return measure == Measure::WithFirst ? figure * direction : figure;
}

ChartSeries SeriesOf(const SeriesRule& rule) {
  ChartSeries series;
  series.name = series.header = rule.header;
  series.role = rule.role;
  series.isLine = rule.isLine;
  return series;
}

ChartPoint Rounded(ChartPoint point) {
  point.value = RoundMoney(point.value);
  point.figure = RoundMoney(point.figure);
  return point;
}

// "202611" as "2026-11"; any other text as it is.
std::string MonthText(const std::string& key) {
  const bool isMonth =
      key.size() == 6 && std::ranges::all_of(key, [](char c) { return c >= '0' && c <= '9'; });
  return isMonth ? key.substr(0, 4) + "-" + key.substr(4) : key;
}

// A category for each row, in the order of the report.
void AddRows(ChartData& chart, const ChartRows& rows, std::span<const SeriesRule> rules) {
  for (const SeriesRule& rule : rules) chart.series.push_back(SeriesOf(rule));
  for (const std::size_t row : rows.Rows()) {
    chart.categories.push_back(MonthText(rows.Name(row)));
    for (std::size_t i = 0; i < rules.size(); ++i) {
      const auto number = rows.Number(row, rules[i].header);
      auto& points = chart.series[i].points;
      points.emplace_back();
      if (number) points.back() = ChartPoint{Measured(*number, rules[i].measure, 1), *number, row};
    }
  }
}

// The largest rows first, each with a bar of every rule; those with nothing are left out.
void AddSorted(ChartData& chart, const ChartRows& rows, std::span<const SeriesRule> rules,
               std::size_t mostBars) {
  std::vector<ChartBar> bars;
  for (const std::size_t row : rows.Rows()) {
    ChartBar bar{rows.Name(row), {}};
    const int direction = DirectionOf(rows, row, rules);
    for (const SeriesRule& rule : rules) {
      const double figure = rows.Number(row, rule.header).value_or(0);
      bar.points.push_back({Measured(figure, rule.measure, direction), figure, row});
    }
    const bool hasAny =
        std::ranges::any_of(bar.points, [](const ChartPoint& point) { return point.value != 0; });
    if (hasAny) bars.push_back(std::move(bar));
  }
  for (const SeriesRule& rule : rules) chart.series.push_back(SeriesOf(rule));
  for (const ChartBar& bar : SortedAndGathered(std::move(bars), mostBars)) {
    chart.categories.push_back(bar.name);
    for (std::size_t i = 0; i < rules.size(); ++i) {
      chart.series[i].points.push_back(Rounded(bar.points[i]));
    }
  }
}

// A column for every month, made of what the largest rows and the others together come to in it.
void AddMonths(ChartData& chart, const ChartRows& rows) {
  std::vector<ChartBar> bars;
  for (const std::size_t row : rows.Rows()) {
    // The first point is the year's, by which they are sorted.
    ChartBar bar{rows.Name(row), {{0, 0, row}}};
    for (const char* month : kMonths) {
      const double figure = rows.Number(row, month).value_or(0);
      bar.points.push_back({Measured(figure, Measure::MoneyOut, 1), figure, row});
      bar.points.front().value += bar.points.back().value;
    }
    if (bar.points.front().value != 0) bars.push_back(std::move(bar));
  }
  if (bars.empty()) return;
  for (const std::string_view month : kMonths) chart.categories.emplace_back(month.substr(0, 3));
  chart.headers.assign(kMonths.begin(), kMonths.end());
  for (const ChartBar& bar : SortedAndGathered(std::move(bars), kMaxParts)) {
    ChartSeries series;
    series.name = bar.name;
    for (std::size_t i = 1; i < bar.points.size(); ++i) {
      series.points.push_back(Rounded(bar.points[i]));
    }
    chart.series.push_back(std::move(series));
  }
}

// The last row of a day says what the balance was then.
void AddDays(ChartData& chart, const ChartRows& rows, const std::vector<std::string>& headers) {
  chart.areDays = true;
  std::map<std::string, std::size_t> days;
  for (const std::size_t row : rows.Rows()) {
    const std::string day = rows.Text(row, "Date").substr(0, 10);
    if (!day.empty()) days.insert_or_assign(day, row);
  }
  const std::size_t step = days.size() / kMaxPoints + 1;
  for (const std::string& header : headers) {
    ChartSeries series;
    series.name = series.header = header;
    series.role = header == headers.front() ? ChartRole::Total : ChartRole::Other;
    chart.series.push_back(std::move(series));
  }
  std::size_t place = 0;
  for (const auto& [day, row] : days) {
    const bool isShown = place % step == 0 || place + 1 == days.size();
    ++place;
    if (!isShown) continue;
    chart.categories.push_back(day);
    for (std::size_t i = 0; i < headers.size(); ++i) {
      const auto number = rows.Number(row, headers[i]);
      auto& points = chart.series[i].points;
      points.emplace_back();
      if (number) points.back() = ChartPoint{*number, *number, row};
    }
  }
}

// A line for each account, over the days of all of them.
void AddAccounts(ChartData& chart, const ChartRows& rows, const char* header) {
  chart.kind = ChartKind::Lines;
  chart.areDays = true;
  std::map<std::string, std::map<std::string, std::size_t>> accounts;
  std::set<std::string> days;
  for (const std::size_t row : rows.Rows()) {
    const std::string day = rows.Text(row, "Date").substr(0, 10);
    if (!day.empty()) accounts[rows.Text(row, "Account")].insert_or_assign(day, row);
    if (!day.empty()) days.insert(day);
  }
  chart.categories.assign(days.begin(), days.end());
  for (const auto& [account, rowOfDay] : accounts) {
    ChartSeries series;
    series.name = account;
    series.header = header;
    for (const std::string& day : chart.categories) {
      series.points.emplace_back();
      const auto row = rowOfDay.find(day);
      const auto number = row == rowOfDay.end() ? std::nullopt : rows.Number(row->second, header);
      if (number) series.points.back() = ChartPoint{*number, *number, row->second};
    }
    chart.series.push_back(std::move(series));
  }
}

// Reports behind the standard ones say by their columns what they are of.
void AddByColumns(ChartData& chart, const ReportTable& report, const ChartRows& rows,
                  std::size_t mostBars) {
  const std::vector<std::string> headers = rows.MoneyHeaders();
  if (headers.empty()) return;
  if (report.Column("Date")) {
    chart.kind = ChartKind::Lines;
    AddDays(chart, rows, headers);
    return;
  }
  std::vector<SeriesRule> rules;
  for (const std::string& header : headers) {
    rules.push_back({header, rules.empty() ? ChartRole::Total : ChartRole::Other});
  }
  const bool areMonths = report.Column("Month") || report.Column("Year/Month");
  chart.kind = areMonths ? ChartKind::Lines : ChartKind::Bars;
  if (areMonths) {
    AddRows(chart, rows, rules);
  } else {
    AddSorted(chart, rows, rules, mostBars);
  }
}

void AddSeries(ChartData& chart, const ReportTable& report, const ChartRows& rows,
               std::size_t mostBars) {
  using enum ChartRole;
  const auto sorted = [&](const std::vector<SeriesRule>& rules) {
    chart.kind = ChartKind::Bars;
    AddSorted(chart, rows, rules, mostBars);
  };
  const SeriesRule expense{"Expense", Expense, Measure::MoneyOut};
  switch (report.report) {
    case kAccountSummary:
      return sorted({{"Balance", Total}});
    case kCashFlow:
      return AddRows(chart, rows,
                     std::vector<SeriesRule>{
                         {"Income", Income}, expense, {"Total", Total, Measure::AsItStands, true}});
    case kAccountTransactions:
      chart.kind = ChartKind::Lines;
      return AddDays(chart, rows, {"Balance"});
    case kBudgets:
      return sorted(
          {{"Budget", Budget, Measure::WithFirst}, {"Actual", Total, Measure::WithFirst}});
    case kSpendingByCategory:
    case kSpendingByPayee:
    case kSpendingByPaymentType:
      return sorted({expense});
    case kMonthlySpendingByCategory:
    case kMonthlySpendingByPayee:
      chart.kind = ChartKind::Stacked;
      return AddMonths(chart, rows);
    case kInvestmentGains:
      return sorted({{"Total", Total}, {"Gain", Other}});
    case kInvestmentTransactions:
      return;
    case kTwoPeriods:
      return sorted({{"This Period", Total, Measure::WithFirst},
                     {"Other Period", Budget, Measure::WithFirst}});
    case kBudgetOfMonth:
      return sorted({{"Plan", Budget, Measure::WithFirst}, {"Actual", Total, Measure::WithFirst}});
    case kBalanceForecast:
      return AddAccounts(chart, rows, "Balance");
    default:
      return AddByColumns(chart, report, rows, mostBars);
  }
}

// Whether any of its figures is another than 0.
bool HasHeight(const ChartData& chart) {
  return std::ranges::any_of(chart.series, [](const ChartSeries& series) {
    return std::ranges::any_of(series.points, [](const std::optional<ChartPoint>& point) {
      return point.has_value() && point->value != 0;
    });
  });
}

}  // namespace

std::vector<std::string> ChartCurrencies(const ReportTable& report) {
  std::vector<std::pair<std::string, std::size_t>> counts;
  for (const ReportRow& row : report.rows) {
    if (row.kind == ReportRowKind::Total) continue;
    const auto known =
        std::ranges::find(counts, row.currency, &decltype(counts)::value_type::first);
    if (known == counts.end()) {
      counts.emplace_back(row.currency, 1);
    } else {
      ++known->second;
    }
  }
  std::ranges::stable_sort(counts, std::ranges::greater(), &decltype(counts)::value_type::second);
  std::vector<std::string> currencies;
  for (const auto& [currency, rows] : counts) currencies.push_back(currency);
  return currencies;
}

ChartData BuildChart(const ReportTable& report, std::string_view currency, std::size_t mostBars) {
  ChartData chart;
  chart.title = report.name;
  chart.currency = currency;
  AddSeries(chart, report, ChartRows(report, currency), mostBars);
  if (chart.categories.empty()) chart.series.clear();
  return chart;
}

ChartData BuildChart(const ReportTable& report) {
  return BuildOwnChart(report, {});
}

ChartData BuildOwnChart(const ReportTable& report, std::string_view own) {
  std::vector<std::string> currencies = ChartCurrencies(report);
  std::ranges::stable_partition(currencies, [own](const auto& each) { return each == own; });
  std::optional<ChartData> flat;
  for (const std::string& currency : currencies) {
    ChartData chart = BuildChart(report, currency);
    if (chart.IsEmpty()) continue;
    if (HasHeight(chart)) return chart;
    if (!flat) flat = std::move(chart);
  }
  if (flat) return *flat;
  return BuildChart(report, currencies.empty() ? std::string() : currencies.front());
}

}  // namespace corvanta::inline reports
