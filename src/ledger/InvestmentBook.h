#pragma once

#include "ledger/InvestmentRecord.h"
#include "ledger/LedgerCore.h"

#include <cstdint>
#include <string>

namespace corvanta::inline ledger {

class clsCorvanta;

// Investments and their transactions.
class InvestmentBook {
 public:
  InvestmentBook(LedgerCore& core, clsCorvanta& ledger) : core_(core), ledger_(ledger) {}

  // The investment of that name and symbol, without regard to case; a new one has the first source
  // of quotes. Returns 0 for a name of blanks.
  std::int64_t FindOrCreateInvestment(const std::string& name, const std::string& symbol,
                                      std::int64_t currencyId);
  // Writes the row with the sign and category of its action and the payment type "Import". Its key
  // is put into the record and returned; 0 when there is no such row. A transfer that the row was
  // half of ends, and its other half becomes an ordinary row.
  std::int64_t SaveInvestmentTransaction(InvestmentTransaction& record);

 private:
  LedgerCore& core_;
  clsCorvanta& ledger_;
};

}  // namespace corvanta::inline ledger
