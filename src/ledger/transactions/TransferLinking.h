#pragma once

#include "ledger/LedgerCore.h"

namespace corvanta::inline ledger {

class clsCorvanta;

// Makes transfers of imported rows.
class TransferLinking {
 public:
  TransferLinking(LedgerCore& core, clsCorvanta& ledger) : core_(core), ledger_(ledger) {}

  // Pairs imported rows whose category names another account ("Account:Savings") with the rows of
  // that account: same day and payee, opposite sign, the same amount where the currencies are the
  // same. Returns how many pairs were made.
  int LinkImportedTransfers();

 private:
  LedgerCore& core_;
  clsCorvanta& ledger_;
};

}  // namespace corvanta::inline ledger
