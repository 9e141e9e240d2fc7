#include "cli/schedules/ScheduleCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/EntryArguments.h"
#include "cli/arguments/TransactionsArgument.h"
#include "cli/output/OutputTable.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/schedules/ScheduleRows.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "reference/Deletion.h"

#include <algorithm>
#include <cmath>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Schedule";
// A person who wants to see more of them has lost the schedule out of sight.
constexpr std::size_t kMostDates = 10000;

std::string CategoryText(const ScheduleDetails& row) {
  return CategoryPath(row.category, row.subCategory);
}

// As the options say it; empty for a schedule without such a rule.
std::string DaysText(const DayRule& days) {
  std::string text = days.isMonthEnd ? "month-end" : "";
  if (days.weekend == WeekendRule::Stay) return text;
  return text + (text.empty() ? "" : ", ") + "weekend " + WordOf(days.weekend);
}

// With the last day among them, as the posting has it. Without end as far as that day or a year, a
// first payment that is later still included. At most one more than are listed.
std::vector<Date> PaymentsOf(const ScheduleDetails& schedule, std::optional<Date> until,
                             Date today) {
  const Date year = today.AddMonths(12);
  const SchedulePlan plan = PlanOf(schedule);
  if (plan.Payments() > 0) return FirstScheduleDates(plan, kMostDates + 1);
  std::vector<Date> dates = FirstScheduleDates(plan, kMostDates + 1);
  const Date last = std::max(until.value_or(year), year);
  while (dates.size() > 1 && dates.back() > last) dates.pop_back();
  return dates;
}

}  // namespace

Parser* ScheduleCommand::Declare(Parser& parser) {
  command_ = parser.AddCommand(
      "schedule", "Recurring transactions; the command post puts them into the accounts");
  command_->AllowCommand();
  command_->AddCommand("list", "Show the schedules by their next payment");
  DeclareChanges(*command_);
  copy_ = command_->AddCommand(
      "copy", "Enter a schedule once more, from where it stands, and print the key of the copy");
  schedule_.Declare(*copy_)->Required();
  delete_ = command_->AddCommand("delete", "Delete a schedule");
  schedule_.Declare(*delete_)->Required();
  delete_
      ->AddOption("--posted", posted_,
                  "What becomes of the transactions that it has posted: delete or keep")
      ->TypeName("CHOICE")
      ->Correct(OneOf({"delete", "keep"}));
  dates_ = command_->AddCommand("dates", "Show when the payments of a schedule are due");
  schedule_.Declare(*dates_)->Required();
  dates_
      ->AddOption("--until", until_,
                  "How far to look, where the payments have no end (a year at least)")
      ->TypeName("YYYY-MM-DD")
      ->Check(DateFault);
  return command_;
}

void ScheduleCommand::DeclareChanges(Parser& command) {
  add_ = command.AddCommand("add", "Enter a schedule and print its key");
  add_->AddOption("type", type_, "expense, income or transfer")
      ->Correct(EntryTypeWord())
      ->Required();
  added_.Declare(*add_, true);
  edit_ = command.AddCommand("edit", "Change a schedule, as far as options are given");
  schedule_.Declare(*edit_)->Required();
  edit_->AddOption("--type", type_, "expense, income or transfer")
      ->TypeName("TYPE")
      ->Correct(EntryTypeWord());
  edited_.Declare(*edit_, false);
  split_ = command.AddCommand("split",
                              "The lines of a split schedule: listed alone, with options changed");
  schedule_.Declare(*split_)->Required();
  lines_.Declare(*split_);
}

ExitStatus ScheduleCommand::Run(Session& session) {
  const bool changes =
      add_->Parsed() || edit_->Parsed() || copy_->Parsed() || delete_->Parsed() || lines_.Changes();
  const std::optional<DataFile> file = session.Open(changes ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  if (add_->Parsed()) return Add(ledger, session);
  if (edit_->Parsed()) return Edit(ledger, session);
  if (split_->Parsed()) return Split(ledger, session);
  if (copy_->Parsed()) return Copy(ledger, session);
  if (delete_->Parsed()) return Delete(ledger, session);
  return dates_->Parsed() ? Dates(ledger, session) : List(ledger, session);
}

ExitStatus ScheduleCommand::List(clsCorvanta& ledger, Session& session) {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Next", OutputKind::Date},
                     {"Account"},
                     {"To"},
                     {"Payee"},
                     {"Category"},
                     {"Payment"},
                     {"Ref"},
                     {"Description"},
                     {"Frequency"},
                     {"Start", OutputKind::Date},
                     {"Payments", OutputKind::Integer},
                     {"Posted", OutputKind::Integer},
                     {"Automatic"},
                     {"Amount", OutputKind::Money},
                     {"Days"},
                     {"Note"}});
  for (const ScheduleDetails& row : ledger.Schedules().Schedules()) {
    table.AddRow({row.scheduleId, row.nextDue ? Value(*row.nextDue) : Value(), row.account,
                  row.transferAccount, row.payee, CategoryText(row), row.payment, row.reference,
                  row.description, row.periodName, row.dateFrom,
                  row.noTimes == 0 ? Value() : Value(std::abs(row.noTimes)), row.posted,
                  WordOf(row.addToAccount), row.amount, DaysText(row.days), HindranceOf(row)});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus ScheduleCommand::Add(clsCorvanta& ledger, Session& session) const {
  ScheduleEditor editor(ledger, session.Machine());
  ScheduleForm form = editor.New(0);
  ScheduleEditor::ChooseType(form, EntryTypeOf(type_));
  if (!added_.Fill(form, editor, ledger, session)) return ExitStatus::Refused;
  const auto key = SaveChecked(editor, form, session);
  if (!key) return ExitStatus::Refused;
  PrintKey(*key, session);
  return ExitStatus::Done;
}

ExitStatus ScheduleCommand::Edit(clsCorvanta& ledger, Session& session) const {
  const auto row = schedule_.Find(ledger, session);
  if (!row) return ExitStatus::Refused;
  ScheduleEditor editor(ledger, session.Machine());
  std::optional<ScheduleForm> form = editor.Load(row->scheduleId);
  const ScheduleForm loaded = *form;
  if (!type_.empty()) ScheduleEditor::ChooseType(*form, EntryTypeOf(type_));
  if (!edited_.Fill(*form, editor, ledger, session)) return ExitStatus::Refused;
  return SaveChanges(editor, loaded, *form, kTitle, "Schedule " + std::to_string(row->scheduleId),
                     session);
}

ExitStatus ScheduleCommand::Split(clsCorvanta& ledger, Session& session) const {
  const auto row = schedule_.Find(ledger, session);
  if (!row) return ExitStatus::Refused;
  ScheduleEditor schedules(ledger, session.Machine());
  const std::optional<ScheduleForm> form = schedules.Load(row->scheduleId);
  if (const auto warning = schedules.CheckAllocate(*form)) {
    return session.Refuse(warning->title, warning->text);
  }
  if (lines_.Changes() && RefuseClosed(row->accountClosed, session)) return ExitStatus::Refused;
  AllocationEditor editor(ledger, session.Machine(),
                          {row->scheduleId, AllocationSource::Schedule, std::fabs(row->amount),
                           row->amount > 0 ? 1 : -1, row->currency});
  return lines_.Run(editor, ledger, session);
}

ExitStatus ScheduleCommand::Copy(clsCorvanta& ledger, Session& session) const {
  const auto row = schedule_.Find(ledger, session);
  if (!row || RefuseClosed(row->accountClosed, session)) return ExitStatus::Refused;
  PrintKey(ledger.Schedules().PasteSchedule(row->scheduleId), session);
  return ExitStatus::Done;
}

ExitStatus ScheduleCommand::Delete(clsCorvanta& ledger, Session& session) const {
  const auto row = schedule_.Find(ledger, session);
  if (!row) return ExitStatus::Refused;
  ScheduleEditor editor(ledger, session.Machine());
  const std::int64_t posted = editor.PostedCount(row->scheduleId);
  if (posted > 0 && posted_.empty()) {
    return session.Refuse("Delete Item?",
                          "It has posted " + std::to_string(posted) +
                              (posted == 1 ? " transaction" : " transactions") +
                              ". Say with --posted whether to delete or keep what it has posted.");
  }
  if (!AskDelete(session.Machine().prompts)) return ExitStatus::Refused;
  ledger.Schedules().DeleteSchedule(row->scheduleId, posted_ == "delete");
  session.Tell(kTitle, "Schedule " + std::to_string(row->scheduleId) + " deleted");
  return ExitStatus::Done;
}

ExitStatus ScheduleCommand::Dates(clsCorvanta& ledger, Session& session) const {
  const auto row = schedule_.Find(ledger, session);
  if (!row) return ExitStatus::Refused;
  OutputTable table({{"Number", OutputKind::Integer},
                     {"Due", OutputKind::Date},
                     {"Posted"},
                     {"Date", OutputKind::Date}});
  const PostedRows posted = PostedOf(ledger.Store(), row->scheduleId);
  std::int64_t number = 0;
  const Date today = session.Machine().clock.Today();
  std::vector<Date> dates = PaymentsOf(*row, Date::FromIso(until_), today);
  const bool areMore = dates.size() > kMostDates;
  if (areMore) dates.resize(kMostDates);
  for (const Date due : dates) {
    table.AddRow({++number, due, posted.Has(due) ? "yes" : "no", row->days.BookedOn(due)});
  }
  session.Print(table);
  if (areMore) {
    session.Tell(kTitle, "These are the first " + std::to_string(kMostDates) +
                             " payments; more are not listed.");
  }
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
