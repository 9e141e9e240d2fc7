#pragma once

#include "cli/Command.h"
#include "cli/reports/ReportArguments.h"

#include <string>

namespace corvanta::inline cli {

// explain NAME|NUMBER --row N --column HEADER: what a figure of a report is made of.
class ExplainCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ReportArguments arguments_;
  std::string row_;
  std::string column_;
};

}  // namespace corvanta::inline cli
