#include "cli/ScheduleArgument.h"

#include "cli/Session.h"
#include "ledger/ScheduleBook.h"
#include "ledger/clsCorvanta.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {

CLI::Option* ScheduleArgument::Declare(CLI::App& command) {
  return command.add_option("id", key_, "The key of the schedule")->type_name("ID");
}

std::optional<ScheduleDetails> ScheduleArgument::Find(clsCorvanta& ledger, Session& session) const {
  auto schedule = ledger.Schedules().ReadSchedule(key_.value_or(0));
  if (schedule && schedule->allocatedItem == 0) return schedule;
  session.Tell("Schedule", "There is no schedule " + std::to_string(key_.value_or(0)) + ".");
  return std::nullopt;
}

}  // namespace corvanta::inline cli
