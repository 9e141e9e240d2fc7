#pragma once

#include "cli/Command.h"

#include <optional>
#include <string>

namespace corvanta::inline entry {
struct AutofillForm;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

// autofill: enters a transaction like the payee's last one of that category; prints its key.
class AutofillCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  [[nodiscard]] bool Fill(AutofillForm& form, clsCorvanta& ledger, Session& session) const;

  std::string account_;
  std::string payee_;
  std::string category_;
  std::string amount_;
  std::string type_;
  std::string date_;
};

}  // namespace corvanta::inline cli
