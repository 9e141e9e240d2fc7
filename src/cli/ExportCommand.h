#pragma once

#include "cli/AccountArgument.h"
#include "cli/Arguments.h"
#include "cli/Command.h"

#include <string>

namespace corvanta {

// export FILE --account A: the transactions of an account as QIF, OFX, CSV or a spreadsheet, by the
// file's extension.
class ExportCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::string file_;
  AccountArgument account_;
  PeriodArguments period_;
  StatusArgument status_;
};

}  // namespace corvanta
