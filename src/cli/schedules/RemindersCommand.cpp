#include "cli/schedules/RemindersCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "ledger/clsCorvanta.h"
#include "ledger/schedules/Reminders.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

namespace corvanta::inline cli {
namespace {

void AddRows(OutputTable& table, const char* group, const std::vector<Reminder>& items) {
  for (const Reminder& item : items) {
    table.AddRow({group, item.scheduleId, item.due, item.account, item.payee, item.description,
                  item.periodName, item.IsPosted() ? Value(item.transactionId) : Value(),
                  item.amount, item.date, item.waitsForRate ? "waits for an exchange rate" : ""});
  }
}

}  // namespace

Parser* RemindersCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("reminders", "Scheduled payments that wait to be posted, or to be cleared");
  command->AddOption("--until", until_, "How far to look; the setting NoReminders without it")
      ->TypeName("YYYY-MM-DD")
      ->Check(DateFault);
  return command;
}

ExitStatus RemindersCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const Date today = session.Machine().clock.Today();
  const Settings settings(session.Machine().registry);
  const std::optional<Date> until =
      until_.empty() ? settings.RemindersUntil(today) : Date::FromIso(until_);
  const ReminderList list = Reminders(ledger, today, until, settings.IsOn(Setting::Overdue));
  if (list.IsEmpty()) session.Tell("Reminders", "None Available");
  OutputTable table({{"Group"},
                     {"Schedule", OutputKind::Integer},
                     {"Due", OutputKind::Date},
                     {"Account"},
                     {"Payee"},
                     {"Description"},
                     {"Frequency"},
                     {"Posted", OutputKind::Integer},
                     {"Amount", OutputKind::Money},
                     {"Date", OutputKind::Date},
                     {"Note"}});
  AddRows(table, "Overdue Items", list.overdue);
  AddRows(table, "Future Items", list.future);
  if (!list.IsEmpty() || session.Options().format != "text") session.Print(table);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
