// What was earned on money that came and went at times of the person's choosing.
#pragma once

#include "platform/Date.h"

#include <optional>
#include <span>

namespace corvanta::inline invest {

// Money that the person got (positive) or paid (negative) on a day.
struct CashFlow {
  Date day;
  double amount = 0;
};

// The money-weighted return a year: the rate r with
//
//   sum of amount_i / (1 + r) ^ ((day_i - day_1) / 365) = 0
//
// (XIRR, as the Recalculated Formula Format of OpenDocument 1.3 defines it.) 0.1 is ten percent a
// year. Of several rates the one nearest to nothing; nullopt where there is none, as where nothing
// was paid or nothing got. The flows in any order.
[[nodiscard]] std::optional<double> MoneyWeightedReturn(std::span<const CashFlow> flows);

// What an investment was worth at the end of a day, after what was paid in (less what was taken
// out) on it.
struct ValuePoint {
  Date day;
  double value = 0;
  double paidIn = 0;
};

struct TimeWeighted {
  double whole = 0;              // over the whole time; 0.1 is ten percent
  std::optional<double> annual;  // the same a year, where it was a year or more
};

// The time-weighted return: between two points it is
//
//   (value_k - paidIn_k) / value_(k-1),
//
// and these are multiplied (CFA Institute, Global Investment Performance Standards: sub-periods
// linked geometrically, with a valuation at the time of every flow). Where nothing was held before,
// the money works from the day on which it comes: value_k / paidIn_k. The first point is what was
// held to begin with, or the first that was paid in. A year has 365 days; what is shorter than one
// is not made annual. The points in the order of their days. nullopt where nothing was ever held.
[[nodiscard]] std::optional<TimeWeighted> TimeWeightedReturn(std::span<const ValuePoint> points);

}  // namespace corvanta::inline invest
