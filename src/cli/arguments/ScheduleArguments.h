#pragma once

#include "cli/arguments/EntryArguments.h"
#include "entry/ScheduleEditor.h"
#include "ledger/schedules/ScheduleRecord.h"

#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// The options that say what a schedule is; what is not given is left as it is.
class ScheduleArguments {
 public:
  // `isNew`: those that a new schedule cannot do without are required.
  void Declare(Parser& command, bool isNew);
  // Puts what was given into the form, whose type is set; false, told, when an option does not go
  // with the type, or an account or frequency is not there.
  [[nodiscard]] bool Fill(ScheduleForm& form, ScheduleEditor& editor, clsCorvanta& ledger,
                          Session& session) const;

 private:
  void FillDays(DayRule& days) const;
  [[nodiscard]] bool FillPlan(ScheduleForm& form, ScheduleEditor& editor, clsCorvanta& ledger,
                              Session& session) const;

  EntryFields fields_;
  std::optional<std::string> period_;
  std::optional<std::string> start_;
  std::optional<int> number_;
  std::optional<std::string> automatic_;
  std::optional<std::string> monthEnd_;
  std::optional<std::string> weekend_;
};

// The words of --automatic and --weekend.
[[nodiscard]] const char* WordOf(AddToAccount choice);
[[nodiscard]] const char* WordOf(WeekendRule rule);

}  // namespace corvanta::inline cli
