#include "platform/DayMarks.h"

#include <array>

namespace corvanta::inline platform {
namespace {

constexpr std::array kDays = {1, 2, 3, 7, 14};
constexpr std::array kMonths = {1, 3, 6, 12, 24, 60, 120, 240, 600, 1200};
constexpr int kMonthsOfYear = 12;

std::vector<Date> EveryDays(Date first, Date last, int step) {
  std::vector<Date> marks;
  for (Date day = first; day <= last; day = day.AddDays(step)) marks.push_back(day);
  return marks;
}

// Months are counted from a year 0, so that quarters begin in January and decades with a 0.
std::vector<Date> EveryMonths(Date first, Date last, int step) {
  std::vector<Date> marks;
  Date month = first.AddDays(1 - first.Day());
  if (month < first) month = month.AddMonths(1);
  const int over = (month.Year() * kMonthsOfYear + month.Month() - 1) % step;
  if (over != 0) month = month.AddMonths(step - over);
  for (; month <= last; month = month.AddMonths(step)) marks.push_back(month);
  return marks;
}

}  // namespace

std::vector<Date> DayMarks(Date first, Date last, std::size_t most) {
  const auto length = static_cast<std::size_t>(last.Serial() - first.Serial());
  for (const int step : kDays) {
    if (length / static_cast<std::size_t>(step) < most) return EveryDays(first, last, step);
  }
  for (const int step : kMonths) {
    std::vector<Date> marks = EveryMonths(first, last, step);
    if (!marks.empty() && marks.size() <= most) return marks;
  }
  return {first};
}

}  // namespace corvanta::inline platform
