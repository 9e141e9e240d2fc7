#include "cli/arguments/ScheduleArguments.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/NamedItem.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/schedules/ScheduleRecord.h"

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

void ScheduleArguments::Declare(Parser& command, bool isNew) {
  fields_.DeclareFields(command, isNew);
  command.AddOption("--period", period_,
                    isNew ? "How often, such as Weekly; Monthly without it" : "How often");
  command
      .AddOption("--start", start_,
                 isNew ? "The first payment, today without it (YYYY-MM-DD)"
                       : "The next payment (YYYY-MM-DD)")
      ->Check(DateFault);
  command.AddOption("--number", number_, "How many payments from the start on; 0 without end")
      ->TypeName("N")
      ->Range(0, kMaxPayments);
  command
      .AddOption("--automatic", automatic_,
                 "What posts it: no (a person), due (post, when it is due) or ahead (post, as far "
                 "as the setting NoShedule looks)")
      ->TypeName("CHOICE")
      ->Correct(OneOf({"no", "due", "ahead"}));
  command
      .AddOption("--month-end", monthEnd_,
                 "Whether every payment is due on the last day of its month: yes or no (of a "
                 "frequency in months)")
      ->TypeName("CHOICE")
      ->Correct(OneOf({"yes", "no"}));
  command
      .AddOption("--weekend", weekend_,
                 "Where a payment goes that is due on a weekend: stay, before or after (the "
                 "working day before or after it)")
      ->TypeName("CHOICE")
      ->Correct(OneOf({"stay", "before", "after"}));
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
  if (form.days.isMonthEnd && !editor.IsMonthly(form.periodId)) {
    if (monthEnd_) {
      session.Refuse(kTitle,
                     "Only payments of a frequency in months, such as Monthly, can be due on the "
                     "last day of their month.");
      return false;
    }
    form.days.isMonthEnd = false;  // of the frequency that it had
  }
  if (automatic_) {
    form.addToAccount = *automatic_ == "no"    ? AddToAccount::No
                        : *automatic_ == "due" ? AddToAccount::WhenDue
                                               : AddToAccount::Ahead;
  }
  return true;
}

}  // namespace corvanta::inline cli
