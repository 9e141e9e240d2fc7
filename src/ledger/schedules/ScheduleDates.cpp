#include "ledger/schedules/ScheduleDates.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace corvanta::inline ledger {
namespace {

constexpr int kMonday = 1;
constexpr int kLargestMultiplier = 9999;

bool IsInterval(std::string_view text) {
  return text == "d" || text == "ww" || text == "m" || text == "q" || text == "yyyy";
}

int CountWithoutEnd(const PeriodStep& step, Date from, Date today, std::optional<Date> end) {
  const Date year = today.AddMonths(12);
  const Date last = end ? std::max(*end, year) : year;
  const int boundaries = std::max(DateDiff(step.interval, from, last, kMonday), 1);
  if (step.multiplier == 1) return boundaries;
  return static_cast<int>(std::lround(static_cast<double>(boundaries) / step.multiplier));
}

std::vector<Date> Steps(const PeriodStep& step, Date from, std::size_t count) {
  std::vector<Date> dates;
  for (Date day = from; dates.size() < count && day <= Date::Last(); day = step.After(day)) {
    dates.push_back(day);
  }
  return dates;
}

}  // namespace

std::optional<PeriodStep> PeriodStep::FromCode(std::string_view code) {
  const std::string text = ToLower(Trim(code));
  const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
  PeriodStep step;
  step.interval = text.substr(digits);
  if (!IsInterval(step.interval)) return std::nullopt;
  step.multiplier = digits == 0 ? 1 : std::clamp(std::atoi(text.c_str()), 1, kLargestMultiplier);
  step.isOnce = text == "1d";
  return step;
}

Date PeriodStep::After(Date day) const {
  const Date next = DateAdd(interval, multiplier, day);
  return isMonthEnd ? LastOfMonth(next) : next;
}

Date PeriodStep::Before(Date day, int count) const {
  const Date earlier = DateAdd(interval, -multiplier * count, day);
  return isMonthEnd ? LastOfMonth(earlier) : earlier;
}

bool PeriodStep::IsMonthly() const {
  return interval == "m" || interval == "q" || interval == "yyyy";
}

Date PeriodStep::StartOf(Date day) const {
  if (interval == "ww") return day.AddDays(kMonday - day.WeekDay());
  if (!IsMonthly()) return day;
  const int months = interval == "m"   ? 0
                     : interval == "q" ? (day.Month() - 1) % 3
                                       : day.Month() - 1;
  return day.AddDays(1 - day.Day()).AddMonths(-months);
}

int SchedulePlan::Payments() const {
  if (noTimes != 0) return std::abs(noTimes);
  const auto step = PeriodStep::FromCode(period);
  return step && step->isOnce ? 1 : 0;
}

std::optional<PeriodStep> SchedulePlan::Step() const {
  auto step = PeriodStep::FromCode(period);
  if (step) step->isMonthEnd = days.isMonthEnd && step->IsMonthly();
  return step;
}

SchedulePlan SchedulePlan::Settled() const {
  SchedulePlan settled = *this;
  const auto step = Step();
  if (step && step->isMonthEnd) settled.from = LastOfMonth(from);
  return settled;
}

bool SchedulePlan::HasDatesOf(const SchedulePlan& other) const {
  return from == other.from && ToLower(period) == ToLower(other.period) &&
         days.isMonthEnd == other.days.isMonthEnd;
}

std::vector<Date> ScheduleDates(const SchedulePlan& plan, Date today, std::optional<Date> end) {
  const auto step = plan.Step();
  if (!step) return {};
  const int payments = plan.Payments();
  const int count = payments > 0 ? payments : CountWithoutEnd(*step, plan.from, today, end);
  return Steps(*step, plan.Settled().from, static_cast<std::size_t>(count));
}

std::vector<Date> FirstScheduleDates(const SchedulePlan& plan, std::size_t count) {
  const auto step = plan.Step();
  if (!step) return {};
  const auto payments = static_cast<std::size_t>(plan.Payments());
  return Steps(*step, plan.Settled().from, payments > 0 ? std::min(payments, count) : count);
}

}  // namespace corvanta::inline ledger
