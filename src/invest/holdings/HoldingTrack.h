#pragma once

#include "invest/holdings/HoldingRow.h"
#include "invest/holdings/HoldingsReader.h"
#include "invest/holdings/Returns.h"
#include "ledger/register/Period.h"

#include <optional>
#include <span>
#include <vector>

namespace corvanta::inline invest {

// One investment of one account through time: its rows and its prices, both in order.
struct HoldingTrack {
  std::vector<HoldingRow> rows;
  std::vector<DayPrice> prices;

  // What it was worth at the end of each of these days, which are in order: units times the latest
  // price known then. Before the first price what the person last paid or got for a unit stands for
  // it.
  [[nodiscard]] std::vector<double> ValuesOn(std::span<const Date> days) const;
};

// What was earned over a period.
struct PeriodReturn {
  double before = 0;                    // worth at the end of the day before it
  double paidIn = 0;                    // in it, less what was taken out
  double after = 0;                     // worth at its end
  std::optional<double> moneyWeighted;  // a year
  std::optional<TimeWeighted> timeWeighted;
};

using HoldingTracks = std::span<const HoldingTrack* const>;

// The holdings together, which are of one currency. What went in and out on a day did so at its
// end.
[[nodiscard]] PeriodReturn ReturnOf(HoldingTracks tracks, const Period& period);

struct DayValue {
  Date day;
  double value = 0;
};
// What they were worth together on at most that many days, evenly spread from the first to the last
// day of the period; on every day of a shorter one.
[[nodiscard]] std::vector<DayValue> ValueOverTime(HoldingTracks tracks, const Period& period,
                                                  int maxDays);

}  // namespace corvanta::inline invest
