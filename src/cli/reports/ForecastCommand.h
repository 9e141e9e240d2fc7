#pragma once

#include "cli/Command.h"
#include "cli/reports/ReportArguments.h"
#include "cli/reports/ReportOutput.h"

#include <string>

namespace corvanta::inline cli {

// forecast: what the accounts are likely to hold on the days to come.
class ForecastCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::string until_;
  ReportArguments arguments_;
  ReportOutput output_;
};

}  // namespace corvanta::inline cli
