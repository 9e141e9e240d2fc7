#pragma once

#include "cli/ExitStatus.h"
#include "ledger/transactions/TransactionRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// Transactions named on the command line by the keys that the register shows.
class TransactionsArgument {
 public:
  // One key or more.
  void Declare(Parser& command);
  // Exactly one key.
  void DeclareOne(Parser& command);
  // The transactions, each once; nullopt when some of the keys have none, which have then all been
  // told.
  [[nodiscard]] std::optional<std::vector<TransactionDetails>> Find(clsCorvanta& ledger,
                                                                    Session& session) const;

 private:
  std::vector<std::string> keys_;
};

// What is wrong with an argument that names a transaction by its key; empty when nothing is.
[[nodiscard]] std::string KeyFault(const std::string& text);
// The keys, for the operations that take several.
[[nodiscard]] std::vector<std::int64_t> KeysOf(const std::vector<TransactionDetails>& rows);
// True, and told under "Amend Item", when one of them is in a closed account.
[[nodiscard]] bool RefuseClosed(const std::vector<TransactionDetails>& rows, Session& session);
[[nodiscard]] bool RefuseClosed(bool isClosed, Session& session);
// Asks, and deletes them; refuses, told, where one or what goes with it is in a closed account.
ExitStatus DeleteRows(const std::vector<TransactionDetails>& rows, clsCorvanta& ledger,
                      Session& session);
// The words for a number of them: "1 transaction", "3 transactions".
[[nodiscard]] std::string TransactionCount(std::size_t count);

}  // namespace corvanta::inline cli
