#include "cli/schedules/PostCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "invest/rates/WebRates.h"
#include "ledger/clsCorvanta.h"
#include "ledger/schedules/OccurrenceFault.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/SchedulePosting.h"
#include "ledger/schedules/ScheduleRecord.h"

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Post";

// The first payment that is not posted.
std::optional<Date> NextDue(clsCorvanta& ledger, std::int64_t scheduleId) {
  for (const ScheduleDetails& row : ledger.Schedules().Schedules()) {
    if (row.scheduleId == scheduleId) return row.nextDue;
  }
  return std::nullopt;
}

}  // namespace

Parser* PostCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "post", "Post the payments of automatic schedules, or one payment of a schedule");
  Argument* id = schedule_.Declare(*command);
  command->AddOption("--due", due_, "Which payment; the next one without it")
      ->TypeName("YYYY-MM-DD")
      ->Check(DateFault)
      ->Needs(id);
  command->AddFlag("--skip", skips_, "Pass over the payment: it will never be posted")->Needs(id);
  return command;
}

ExitStatus PostCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  WebRates rates(ledger, session.Machine());
  SchedulePosting posting(ledger, session.Machine(), rates);
  if (schedule_.IsGiven()) return PostOne(ledger, posting, session);
  const PostingResult result = posting.PostSchedules();
  if (result.declined) return ExitStatus::Refused;
  session.Tell(kTitle, std::to_string(result.occurrences) +
                           (result.occurrences == 1 ? " payment posted" : " payments posted"));
  if (result.waiting > 0) {
    session.Tell(kTitle, std::to_string(result.waiting) +
                             (result.waiting == 1 ? " payment waits" : " payments wait") +
                             " for an exchange rate");
  }
  return ExitStatus::Done;
}

ExitStatus PostCommand::PostOne(clsCorvanta& ledger, SchedulePosting& posting,
                                Session& session) const {
  const auto schedule = schedule_.Find(ledger, session);
  if (!schedule) return ExitStatus::Refused;
  const std::int64_t key = schedule->scheduleId;
  const std::optional<Date> due = due_.empty() ? NextDue(ledger, key) : Date::FromIso(due_);
  if (!due) return session.Refuse(kTitle, "The schedule is finished.");
  const OccurrenceResult result =
      skips_ ? posting.SkipOccurrence(key, *due) : posting.PostOccurrence(key, *due);
  if (result != OccurrenceResult::Done) {
    return session.Refuse(kTitle, OccurrenceFault(result, due->ToIso()));
  }
  session.Tell(kTitle, "The payment of " + due->ToIso() + (skips_ ? " is skipped" : " is posted"));
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
