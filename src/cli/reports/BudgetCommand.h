#pragma once

#include "cli/Command.h"
#include "cli/reports/ReportArguments.h"
#include "cli/reports/ReportOutput.h"

#include <string>

namespace corvanta::inline cli {

// budget: the budget of a month, with what was planned of each category, carried over, come to and
// is left; budget set and clear: what is planned of one.
class BudgetCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus RunPlan(Session& session);

  Parser* set_ = nullptr;
  Parser* clear_ = nullptr;
  std::string category_;
  std::string amount_;
  std::string month_;
  ReportArguments arguments_;
  ReportOutput output_;
};

}  // namespace corvanta::inline cli
