#pragma once

#include "cli/Command.h"
#include "cli/accounts/AccountFields.h"
#include "cli/arguments/AccountArgument.h"
#include "ledger/accounts/AccountRow.h"

#include <optional>
#include <string>

namespace corvanta::inline cli {

// accounts [list]: every account, closed ones too, with its balance. accounts add, edit, close,
// reopen and delete: one of them.
class AccountsCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  void DeclareChanges(Parser& command);
  ExitStatus List(clsCorvanta& ledger, Session& session) const;
  ExitStatus Add(clsCorvanta& ledger, Session& session) const;
  ExitStatus Edit(const AccountRow& account, AccountEditor& editor, clsCorvanta& ledger,
                  Session& session) const;
  ExitStatus Close(const AccountRow& account, AccountEditor& editor, Session& session) const;
  ExitStatus Delete(const AccountRow& account, AccountEditor& editor, Session& session) const;

  Parser* add_ = nullptr;
  Parser* edit_ = nullptr;
  Parser* close_ = nullptr;
  Parser* reopen_ = nullptr;
  Parser* delete_ = nullptr;
  AccountArgument account_;
  AccountFields added_;
  AccountFields edited_;
  std::string name_;
  std::optional<std::string> newName_;
};

}  // namespace corvanta::inline cli
