#include "invest/holdings/HoldingTrack.h"

#include <algorithm>
#include <map>

namespace corvanta::inline invest {
namespace {

std::vector<double> ValuesTogether(HoldingTracks tracks, std::span<const Date> days) {
  std::vector<double> sums(days.size(), 0);
  for (const HoldingTrack* track : tracks) {
    const std::vector<double> values = track->ValuesOn(days);
    for (std::size_t i = 0; i < days.size(); ++i) sums[i] += values[i];
  }
  return sums;
}

// By the days of the period on which anything went in or out.
std::map<Date, double> PaidInOn(HoldingTracks tracks, const Period& period) {
  std::map<Date, double> paidIn;
  for (const HoldingTrack* track : tracks) {
    for (const HoldingRow& row : track->rows) {
      if (row.day >= period.from && row.day <= period.to) paidIn[row.day] += row.PaidIn();
    }
  }
  return paidIn;
}

}  // namespace

std::vector<double> HoldingTrack::ValuesOn(std::span<const Date> days) const {
  std::vector<double> values;
  values.reserve(days.size());
  auto row = rows.begin();
  auto price = prices.begin();
  double units = 0;
  double worth = 0;
  for (const Date day : days) {
    for (; row != rows.end() && row->day <= day; ++row) {
      units += row->Units();
      if (price == prices.begin() && row->price > 0) worth = row->price;
    }
    for (; price != prices.end() && price->date <= day; ++price) worth = price->price;
    values.push_back(units * worth);
  }
  return values;
}

PeriodReturn ReturnOf(HoldingTracks tracks, const Period& period) {
  std::map<Date, double> paidIn = PaidInOn(tracks, period);
  paidIn[period.from.AddDays(-1)] += 0;
  paidIn[period.to] += 0;
  std::vector<Date> days;
  for (const auto& [day, amount] : paidIn) days.push_back(day);
  const std::vector<double> values = ValuesTogether(tracks, days);

  PeriodReturn result{values.front(), 0, values.back(), std::nullopt, std::nullopt};
  std::vector<ValuePoint> points;
  std::vector<CashFlow> flows = {{days.front(), -values.front()}};
  for (std::size_t i = 0; i < days.size(); ++i) {
    const double amount = paidIn[days[i]];
    points.push_back({days[i], values[i], amount});
    flows.push_back({days[i], -amount});
    result.paidIn += amount;
  }
  flows.push_back({days.back(), values.back()});
  std::erase_if(flows, [](const CashFlow& flow) { return flow.amount == 0; });
  result.moneyWeighted = MoneyWeightedReturn(flows);
  result.timeWeighted = TimeWeightedReturn(points);
  return result;
}

std::vector<DayValue> ValueOverTime(HoldingTracks tracks, const Period& period, int maxDays) {
  const int length = period.to.Serial() - period.from.Serial();
  const int steps = std::clamp(length, 1, std::max(1, maxDays - 1));
  std::vector<Date> days;
  for (int step = 0; step <= steps; ++step) {
    days.push_back(period.from.AddDays(
        static_cast<std::int32_t>(static_cast<std::int64_t>(length) * step / steps)));
  }
  const std::vector<double> values = ValuesTogether(tracks, days);
  std::vector<DayValue> result;
  for (std::size_t i = 0; i < days.size(); ++i) result.push_back({days[i], values[i]});
  return result;
}

}  // namespace corvanta::inline invest
