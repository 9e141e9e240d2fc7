#pragma once

#include "cli/Command.h"
#include "cli/ReportArguments.h"

namespace corvanta::inline cli {

// report NAME|NUMBER: one of the reports; report list: which there are.
class ReportCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  Parser* list_ = nullptr;
  ReportArguments arguments_;
};

}  // namespace corvanta::inline cli
