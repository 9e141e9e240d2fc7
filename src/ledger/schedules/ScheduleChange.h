// What becomes of a schedule's payments when its plan is changed.
#pragma once

#include "ledger/schedules/ScheduleDates.h"
#include "platform/Date.h"

#include <optional>

namespace corvanta::inline ledger {

class PostedRows;

// A change concerns what is still to come: what was posted up to today comes no second time, and
// each payment that is open (not posted, or not due yet) is another one of the new plan.
struct PlanChange {
  SchedulePlan plan;         // as it is to be stored
  bool keepsDates = true;    // the payments fall on the same days as before
  std::optional<Date> open;  // the first open payment of the former plan

  // The payment of the new plan that takes the place of one that has a row; nullopt where the new
  // plan has none for it.
  [[nodiscard]] std::optional<Date> NewDueOf(Date due) const;

  std::optional<PeriodStep> formerStep;
};

// `former` is the stored plan, `wanted` the one that a person has asked for: a start that is still
// to come is taken as it is, one in the past says which days are meant. Numbers of payments count
// from the start that goes with them; below 0 the plan is finished.
[[nodiscard]] PlanChange ChangePlan(const SchedulePlan& former, const SchedulePlan& wanted,
                                    const PostedRows& posted, Date today);

}  // namespace corvanta::inline ledger
