#pragma once

#include "reference/AccountEditor.h"

#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// The options that say what an account is; what is not given is left as it is.
class AccountFields {
 public:
  // `isNew`: those that a new account cannot do without are required.
  void Declare(Parser& command, bool isNew);
  // Puts what was given into the form; false, told, when there is no such currency.
  [[nodiscard]] bool Fill(AccountForm& form, clsCorvanta& ledger, Session& session) const;

 private:
  std::optional<std::string> group_;
  std::optional<std::string> currency_;
  std::optional<std::string> opening_;
  std::optional<std::string> number_;
  std::optional<std::string> bank_;
  std::optional<std::string> description_;
};

}  // namespace corvanta::inline cli
