#pragma once

#include "cli/Command.h"
#include "cli/TransactionsArgument.h"

#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

// attach list, attach add and attach delete: the file that is attached to a transaction.
class AttachCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus List(clsCorvanta& ledger, std::int64_t transactionId, Session& session) const;
  ExitStatus Add(clsCorvanta& ledger, std::int64_t transactionId, Session& session) const;
  ExitStatus Delete(clsCorvanta& ledger, std::int64_t transactionId, Session& session) const;

  CLI::App* list_ = nullptr;
  CLI::App* add_ = nullptr;
  TransactionsArgument transaction_;
  std::string file_;
};

}  // namespace corvanta::inline cli
