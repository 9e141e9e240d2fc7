#pragma once

#include "cli/Command.h"
#include "cli/ReportArguments.h"

#include <string>

namespace corvanta::inline cli {

// report NAME|NUMBER: one of the reports; report list: which there are.
class ReportCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  // Whether the file that was asked for may be written.
  [[nodiscard]] bool MayWrite(Session& session) const;

  Parser* list_ = nullptr;
  std::string out_;
  bool force_ = false;
  ReportArguments arguments_;
};

}  // namespace corvanta::inline cli
