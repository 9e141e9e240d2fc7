#pragma once

#include "cli/Command.h"

#include <string>
#include <vector>

namespace corvanta::inline cli {

// download [INVESTMENT...]: fetches today's prices.
class DownloadCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::vector<std::string> names_;
};

}  // namespace corvanta::inline cli
