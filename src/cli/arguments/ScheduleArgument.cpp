#include "cli/arguments/ScheduleArgument.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"
#include "ledger/schedules/ScheduleBook.h"

namespace corvanta::inline cli {

Argument* ScheduleArgument::Declare(Parser& command) {
  return command.AddOption("id", key_, "The key of the schedule")->TypeName("ID");
}

std::optional<ScheduleDetails> ScheduleArgument::Find(clsCorvanta& ledger, Session& session) const {
  auto schedule = ledger.Schedules().ReadSchedule(key_.value_or(0));
  if (schedule && schedule->allocatedItem == 0) return schedule;
  session.Tell("Schedule", "There is no schedule " + std::to_string(key_.value_or(0)) + ".");
  return std::nullopt;
}

}  // namespace corvanta::inline cli
