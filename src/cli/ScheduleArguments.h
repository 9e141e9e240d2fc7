#pragma once

#include "entry/ScheduleEditor.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace corvanta {

class Session;
class clsCorvanta;

// The options that say what a schedule is; what is not given is left as it is.
class ScheduleArguments {
 public:
  // `isNew`: those that a new schedule cannot do without are required.
  void Declare(CLI::App& command, bool isNew);
  // Puts what was given into the form, whose type is set; false, told, when an option does not go
  // with the type, or an account or frequency is not there.
  [[nodiscard]] bool Fill(ScheduleForm& form, ScheduleEditor& editor, clsCorvanta& ledger,
                          Session& session) const;

 private:
  [[nodiscard]] bool FillAccounts(ScheduleForm& form, clsCorvanta& ledger, Session& session) const;
  [[nodiscard]] bool FillPlan(ScheduleForm& form, ScheduleEditor& editor, clsCorvanta& ledger,
                              Session& session) const;

  std::optional<std::string> account_;
  std::optional<std::string> to_;
  std::optional<std::string> payee_;
  std::optional<std::string> payment_;
  std::optional<std::string> category_;
  std::optional<std::string> amount_;
  std::optional<std::string> period_;
  std::optional<std::string> start_;
  std::optional<int> number_;
  std::optional<std::string> automatic_;
  std::optional<std::string> reference_;
  std::optional<std::string> description_;
};

// The word of --automatic.
[[nodiscard]] const char* WordOf(AddToAccount choice);

}  // namespace corvanta
