#pragma once

#include "cli/Command.h"
#include "cli/arguments/TransactionsArgument.h"

#include <optional>
#include <string>

namespace corvanta::inline entry {
struct MultiEditForm;
}

namespace corvanta::inline cli {

// multi-edit ID...: changes several transactions at once, as far as options are given.
class MultiEditCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  [[nodiscard]] bool Fill(MultiEditForm& form, clsCorvanta& ledger, Session& session) const;

  TransactionsArgument transactions_;
  std::string account_;
  std::string type_;
  std::string payment_;
  std::string payee_;
  std::string category_;
  std::optional<std::string> status_;
};

}  // namespace corvanta::inline cli
