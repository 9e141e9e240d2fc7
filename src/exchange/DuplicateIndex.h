#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

namespace corvanta {

class Connection;
struct InvestmentTransaction;

// The rows that an account had before an import, by day and amount, and its investment
// transactions. Read once; what the import writes is no candidate.
class DuplicateIndex {
 public:
  struct Candidate {
    std::int64_t transactionId = 0;
    Date date;
    double amount = 0;
    std::string reference;
  };

  DuplicateIndex(Connection& store, std::int64_t accountId);

  // The ordinary rows of that day and amount by their keys.
  [[nodiscard]] std::vector<const Candidate*> Find(Date date, double amount) const;
  // Whether there is a row that equals the transaction in all but its description and status.
  // `categoryId` is that of its action.
  [[nodiscard]] bool Has(const InvestmentTransaction& transaction, double amount,
                         std::int64_t categoryId) const;

 private:
  void ReadOrdinary(Connection& store, std::int64_t accountId);
  void ReadInvestments(Connection& store, std::int64_t accountId);

  std::vector<Candidate> rows_;  // in order of day, amount and key
  std::unordered_set<std::string> investments_;
};

}  // namespace corvanta
