#pragma once

#include "cli/Command.h"

#include <string>

namespace corvanta::inline cli {

// rate FROM TO: fetches an exchange rate.
class RateCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::string from_;
  std::string to_;
};

}  // namespace corvanta::inline cli
