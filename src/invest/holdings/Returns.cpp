#include "invest/holdings/Returns.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace corvanta::inline invest {
namespace {

constexpr double kYear = 365;
// The growth a year, as a logarithm, that is searched on either side: from next to nothing left to
// a hundred million times as much.
constexpr double kWidest = 18.4;
constexpr double kStep = 0.05;
constexpr int kHalvings = 200;

struct TimedAmount {
  double years = 0;  // since the first
  double amount = 0;
};

// The worth of the flows at a growth of e^growth a year, times whatever keeps it within reach of a
// number: its sign and its roots alone count.
double Worth(const std::vector<TimedAmount>& flows, double growth) {
  const double last = growth < 0 ? flows.back().years : 0;
  double worth = 0;
  for (const TimedAmount& flow : flows) {
    worth += flow.amount * std::exp(growth * (last - flow.years));
  }
  return worth;
}

bool AreApart(double first, double second) {
  return (first <= 0 && second >= 0) || (first >= 0 && second <= 0);
}

// The root between two growths whose worths have different signs.
double RootBetween(const std::vector<TimedAmount>& flows, double low, double high) {
  const bool rises = Worth(flows, low) < Worth(flows, high);
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (low + high) / 2;
    ((Worth(flows, middle) < 0) == rises ? low : high) = middle;
  }
  return (low + high) / 2;
}

}  // namespace

std::optional<double> MoneyWeightedReturn(std::span<const CashFlow> flows) {
  if (flows.empty()) return std::nullopt;
  const Date first = std::ranges::min_element(flows, {}, &CashFlow::day)->day;
  std::vector<TimedAmount> timed;
  for (const CashFlow& flow : flows) {
    timed.push_back({(flow.day.Serial() - first.Serial()) / kYear, flow.amount});
  }
  std::ranges::sort(timed, {}, &TimedAmount::years);
  const auto isPaid = [](const TimedAmount& flow) { return flow.amount < 0; };
  const auto isGot = [](const TimedAmount& flow) { return flow.amount > 0; };
  const bool canBe = std::ranges::any_of(timed, isPaid) && std::ranges::any_of(timed, isGot) &&
                     timed.back().years > 0;
  if (!canBe) return std::nullopt;
  for (double from = 0; from < kWidest; from += kStep) {
    for (const double sign : {1.0, -1.0}) {
      const double near = sign * from;
      const double far = sign * (from + kStep);
      if (!AreApart(Worth(timed, near), Worth(timed, far))) continue;
      return std::expm1(RootBetween(timed, std::min(near, far), std::max(near, far)));
    }
  }
  return std::nullopt;
}

std::optional<TimeWeighted> TimeWeightedReturn(std::span<const ValuePoint> points) {
  std::optional<Date> first;
  double growth = 1;
  double held = 0;
  for (const ValuePoint& point : points) {
    if (held > 0) {
      growth *= (point.value - point.paidIn) / held;
    } else if (point.paidIn > 0) {
      growth *= point.value / point.paidIn;
    }
    held = point.value;
    if (!first && (held > 0 || point.paidIn > 0)) first = point.day;
  }
  if (!first) return std::nullopt;
  TimeWeighted result{growth - 1, std::nullopt};
  const int days = points.back().day.Serial() - first->Serial();
  if (days >= kYear && growth >= 0) result.annual = std::pow(growth, kYear / days) - 1;
  return result;
}

}  // namespace corvanta::inline invest
