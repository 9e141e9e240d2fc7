#include "ledger/register/PeriodPreset.h"

namespace corvanta::inline ledger {

std::optional<Period> DaysOf(PeriodPreset preset, Date today) {
  const Date first = today.AddDays(1 - today.Day());
  const auto months = [](Date from, int count) {
    return Period{from, from.AddMonths(count).AddDays(-1)};
  };
  switch (preset) {
    case PeriodPreset::ThisMonth:
      return months(first, 1);
    case PeriodPreset::LastMonth:
      return months(first.AddMonths(-1), 1);
    case PeriodPreset::ThisYear:
      return months(first.AddMonths(1 - first.Month()), 12);
    case PeriodPreset::LastTwelveMonths:
      return Period{today.AddMonths(-12).AddDays(1), today};
    case PeriodPreset::All:
      break;
  }
  return std::nullopt;
}

}  // namespace corvanta::inline ledger
