#pragma once

#include "cli/Command.h"

#include <string>
#include <vector>

namespace corvanta::inline cli {

// download [INVESTMENT...]: fetches today's prices.
class DownloadCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::vector<std::string> names_;
};

}  // namespace corvanta::inline cli
