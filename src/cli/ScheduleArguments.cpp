#include "cli/ScheduleArguments.h"

#include "cli/Arguments.h"
#include "cli/NamedItem.h"
#include "cli/Session.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "ledger/ScheduleRecord.h"
#include "ledger/clsCorvanta.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Schedule";
constexpr int kMaxPayments = 1000000;

}  // namespace

const char* WordOf(AddToAccount choice) {
  if (choice == AddToAccount::No) return "no";
  return choice == AddToAccount::Ahead ? "ahead" : "due";
}

const char* WordOf(WeekendRule rule) {
  if (rule == WeekendRule::Stay) return "stay";
  return rule == WeekendRule::Before ? "before" : "after";
}

void ScheduleArguments::Declare(CLI::App& command, bool isNew) {
  fields_.DeclareFields(command, isNew);
  command.add_option("--period", period_,
                     isNew ? "How often, such as Weekly; Monthly without it" : "How often");
  command
      .add_option("--start", start_,
                  isNew ? "The first payment, today without it (YYYY-MM-DD)"
                        : "The next payment (YYYY-MM-DD)")
      ->check(DateFault);
  command.add_option("--number", number_, "How many payments from the start on; 0 without end")
      ->type_name("N")
      ->check(CLI::Range(0, kMaxPayments));
  command
      .add_option("--automatic", automatic_,
                  "What posts it: no (a person), due (post, when it is due) or ahead (post, as far "
                  "as the setting NoShedule looks)")
      ->type_name("CHOICE")
      ->transform(CLI::Validator(OneOf({"no", "due", "ahead"}), ""));
  command
      .add_option("--month-end", monthEnd_,
                  "Whether every payment is due on the last day of its month: yes or no (of a "
                  "frequency in months)")
      ->type_name("CHOICE")
      ->transform(CLI::Validator(OneOf({"yes", "no"}), ""));
  command
      .add_option("--weekend", weekend_,
                  "Where a payment goes that is due on a weekend: stay, before or after (the "
                  "working day before or after it)")
      ->type_name("CHOICE")
      ->transform(CLI::Validator(OneOf({"stay", "before", "after"}), ""));
  fields_.DeclareTexts(command, "Of each transaction that it posts", "What it is for");
}

bool ScheduleArguments::Fill(ScheduleForm& form, ScheduleEditor& editor, clsCorvanta& ledger,
                             Session& session) const {
  if (!fields_.Fill(form, kTitle, ledger, session)) return false;
  return FillPlan(form, editor, ledger, session);
}

void ScheduleArguments::FillDays(DayRule& days) const {
  if (monthEnd_) days.isMonthEnd = *monthEnd_ == "yes";
  if (!weekend_) return;
  days.weekend = *weekend_ == "before"  ? WeekendRule::Before
                 : *weekend_ == "after" ? WeekendRule::After
                                        : WeekendRule::Stay;
}

bool ScheduleArguments::FillPlan(ScheduleForm& form, ScheduleEditor& editor, clsCorvanta& ledger,
                                 Session& session) const {
  if (period_) {
    std::vector<NamedItem> periods;
    for (const PeriodRecord& row : ledger.References().Periods()) {
      periods.push_back({row.periodId, row.description});
    }
    const auto period = FindItem(periods, *period_, kTitle, "frequency", session);
    if (!period) return false;
    editor.ChoosePeriod(form, period->key);
  }
  if (start_) form.dateFrom = Date::FromIso(*start_).value_or(form.dateFrom);
  if (number_) form.number = *number_;
  FillDays(form.days);
  if (automatic_) {
    form.addToAccount = *automatic_ == "no"    ? AddToAccount::No
                        : *automatic_ == "due" ? AddToAccount::WhenDue
                                               : AddToAccount::Ahead;
  }
  return true;
}

}  // namespace corvanta::inline cli
