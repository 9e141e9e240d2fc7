#pragma once

#include "cli/Command.h"
#include "cli/reports/ReportArguments.h"
#include "cli/reports/ReportOutput.h"
#include "cli/reports/SavedReportArgument.h"

namespace corvanta::inline cli {

// report NAME|NUMBER: one of the reports; report list: which there are, saved ones, too; report
// save, open and delete: those that are saved under a name.
class ReportCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus RunNamed(Session& session);
  ExitStatus RunSave(Session& session);
  ExitStatus RunOpen(Session& session);
  ExitStatus RunDelete(Session& session);
  void TellNotSaved(Session& session) const;

  Parser* list_ = nullptr;
  Parser* save_ = nullptr;
  Parser* open_ = nullptr;
  Parser* delete_ = nullptr;
  ReportArguments arguments_;
  SavedReportArgument saved_;
  ReportOutput output_;
};

}  // namespace corvanta::inline cli
