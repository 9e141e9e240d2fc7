#pragma once

#include "cli/Command.h"

#include <string>

namespace corvanta {

// accounts [list]: every account, closed ones too, with its balance. accounts add: a new one.
class AccountsCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus List(Session& session) const;
  ExitStatus Add(Session& session) const;

  CLI::App* add_ = nullptr;
  std::string name_;
  std::string group_;
  std::string currency_;
  std::string opening_ = "0";
  std::string number_;
  std::string bank_;
  std::string description_;
};

}  // namespace corvanta
