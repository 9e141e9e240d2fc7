#include "ledger/schedules/ScheduleChange.h"

#include "ledger/schedules/ScheduleRows.h"

#include <algorithm>

namespace corvanta::inline ledger {
namespace {

// Where the former plan stands.
struct Position {
  std::optional<Date> open;  // the first payment that is not posted, or not due yet
  std::optional<Date> last;  // the last payment before that one
  int passed = 0;            // payments from the start up to and with that one
  int ahead = 0;  // steps from `open` to the start, which has moved behind what is posted
};

Position PositionOf(const SchedulePlan& plan, const PeriodStep& step, const PostedRows& posted,
                    Date today) {
  Position found;
  const auto forecast = posted.FirstAfter(today);
  if (forecast && *forecast < plan.from) {
    found.open = forecast;
    for (Date day = *forecast; day < plan.from; day = step.After(day)) ++found.ahead;
    return found;
  }
  const int payments = plan.Payments();
  Date day = plan.from;
  while (payments == 0 || found.passed < payments) {
    const bool isDone = posted.Has(day) || plan.noTimes < 0;
    if (day > today ? plan.noTimes >= 0 || posted.Has(day) : !isDone) {
      found.open = day;
      return found;
    }
    if (day <= today) found.last = day;
    ++found.passed;
    day = step.After(day);
  }
  // One that was ended before its time says less than it has posted.
  if (plan.noTimes < 0) found.passed = std::max(found.passed, posted.CountFrom(plan.from));
  return found;
}

// The first payment of the wanted plan that is still to come.
Date FirstToCome(const SchedulePlan& wanted, const PeriodStep& step, const Position& at,
                 Date today) {
  const bool isOverdue = at.open && *at.open <= today;
  const auto isPast = [&](Date day) {
    if (at.last && day <= *at.last) return true;
    if (!isOverdue && day <= today) return true;
    return at.open && day < step.StartOf(*at.open);
  };
  Date day = wanted.from;
  while (isPast(day)) day = step.After(day);
  return day;
}

// More payments for a plan that was at its end go on behind today: those that would have been due
// since then are not made up for.
void GoOn(SchedulePlan& plan, bool wasEnded, const PeriodStep& step, const Position& at,
          const PostedRows& posted, Date today) {
  const int payments = plan.Payments();
  if (payments > 0 && payments <= at.passed) {
    if (wasEnded) plan.noTimes = -payments;
    return;
  }
  const auto isPast = [&](Date day) {
    return (at.last && day <= *at.last) || day < today || (day == today && posted.Has(day));
  };
  Date day = plan.from;
  bool skips = wasEnded;
  for (; isPast(day); day = step.After(day)) skips = skips || (at.last && day > *at.last);
  // Where none is left out the plan counts on from its start.
  if (!skips) return;
  plan.from = day;
  if (payments > 0) plan.noTimes = payments - at.passed;
}

// The first payment of the former plan that is not due yet.
Date FirstAhead(Date open, const PeriodStep& step, Date today) {
  while (open <= today) open = step.After(open);
  return open;
}

}  // namespace

std::optional<Date> PlanChange::NewDueOf(Date due) const {
  const auto step = plan.Step();
  if (!step || !formerStep || !open || due < *open) return due;
  if (plan.noTimes < 0) return keepsDates ? std::optional(due) : std::nullopt;
  const int payments = plan.Payments();
  Date former = *open;
  Date day = keepsDates ? *open : plan.from;
  int number = 0;
  if (keepsDates) {
    // The number counts from the start, which may lie before or behind the first open payment.
    if (due < plan.from) return due;
    former = day = plan.from;
  }
  for (; former < due; former = formerStep->After(former), day = step->After(day)) ++number;
  if (former != due) return due;  // no payment of the former plan
  if (payments > 0 && number >= payments) return std::nullopt;
  return day;
}

PlanChange ChangePlan(const SchedulePlan& former, const SchedulePlan& asked,
                      const PostedRows& posted, Date today) {
  const SchedulePlan wanted = asked.Settled();
  PlanChange change{wanted, former.HasDatesOf(wanted), std::nullopt, former.Step()};
  const auto step = wanted.Step();
  if (!step || !change.formerStep) return change;
  const Position at = PositionOf(former, *change.formerStep, posted, today);
  change.open = at.open;
  if (wanted.noTimes < 0) return change;
  const bool isFinished = !at.open;
  if (!isFinished && (change.keepsDates || posted.IsEmpty())) return change;
  if (change.keepsDates) {
    GoOn(change.plan, former.noTimes < 0, *step, at, posted, today);
    return change;
  }

  SchedulePlan& plan = change.plan;
  const bool isSameStart = wanted.from == former.from;
  if (at.ahead > 0 && (isSameStart || step->StartOf(wanted.from) == step->StartOf(former.from))) {
    // The start that a person sees is behind what is posted ahead, which changes with it.
    plan.from = isSameStart ? *at.open : step->Before(wanted.from, at.ahead);
    plan = plan.Settled();
    plan.from = FirstToCome(plan, *step, at, today);
    if (plan.noTimes > 0) plan.noTimes += at.ahead;
    return change;
  }
  if (wanted.from > today || (wanted.from == today && !posted.Has(today))) {
    if (at.open) change.open = FirstAhead(*at.open, *change.formerStep, today);
    return change;
  }
  plan.from = FirstToCome(wanted, *step, at, today);
  const int payments = wanted.Payments();
  if (payments == 0) return change;
  plan.noTimes = payments > at.passed ? payments - at.passed : -payments;
  return change;
}

}  // namespace corvanta::inline ledger
