#pragma once

#include "cli/Command.h"

namespace corvanta::inline cli {

// completion bash, completion zsh and completion fish: the script with which the shell completes
// this command line, made from the commands as they are declared.
class CompletionCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  Parser* parser_ = nullptr;
  Parser* zsh_ = nullptr;
  Parser* fish_ = nullptr;
};

}  // namespace corvanta::inline cli
