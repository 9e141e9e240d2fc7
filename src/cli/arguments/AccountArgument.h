#pragma once

#include "ledger/accounts/AccountRow.h"

#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// An account named on the command line: its whole name without regard to case, or "#" and its key.
struct AccountArgument {
  std::string name;

  void Declare(Parser& command);
  // The account; nullopt when there is none of that name, which has then been told together with
  // the names that come near. Throws StoreError.
  [[nodiscard]] std::optional<AccountRow> Find(clsCorvanta& ledger, Session& session) const;
};

}  // namespace corvanta::inline cli
