#pragma once

#include "cli/Command.h"

namespace corvanta::inline cli {

// completion bash, completion zsh and completion fish: the script with which the shell completes
// this command line, made from the commands as they are declared.
class CompletionCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  CLI::App* parser_ = nullptr;
  CLI::App* zsh_ = nullptr;
  CLI::App* fish_ = nullptr;
};

}  // namespace corvanta::inline cli
