#pragma once

#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {
struct InvestmentTransaction;
}

namespace corvanta::inline exchange {

// The rows that an account had before an import, by day and amount, and its investment
// transactions. Read once; what the import writes is no candidate. Each row answers for one row of
// the file.
class DuplicateIndex {
 public:
  struct Candidate {
    std::int64_t transactionId = 0;
    Date date;
    double amount = 0;
    std::string reference;
    bool isImported = false;  // and still has the payment type that an import gives
    bool isTaken = false;     // answers for a row of the file already
  };

  // Amounts are compared in the decimals of the account's currency (its code), to which what is
  // imported is rounded.
  DuplicateIndex(Connection& store, std::int64_t accountId, std::string_view currency);

  // The ordinary rows of that day and amount that answer for no other row, by their keys.
  [[nodiscard]] std::vector<Candidate*> Find(Date date, double amount);
  // Whether the candidate's reference is a bank's own mark of it, which no other transaction of the
  // account has. A few digits may be the number of a cheque as well; they count where every row
  // that was imported into the account has a reference, as those of statements have.
  [[nodiscard]] bool HasBankId(const Candidate& candidate) const;
  // Whether there is a row that equals the transaction in all but its description and status and
  // answers for no other; it answers for this one then. `categoryId` is that of its action.
  [[nodiscard]] bool Claim(const InvestmentTransaction& transaction, double amount,
                           std::int64_t categoryId);

 private:
  void ReadOrdinary(Connection& store, std::int64_t accountId, std::string_view currency);
  void ReadInvestments(Connection& store, std::int64_t accountId, std::string_view currency);

  std::vector<Candidate> rows_;  // in order of day, amount and key
  std::unordered_map<std::string, std::size_t> references_;
  bool isEveryImportMarked_ = true;
  std::unordered_map<std::string, std::size_t> investments_;  // how many of each are left
};

}  // namespace corvanta::inline exchange
