#include "ledger/register/StatusFilter.h"

namespace corvanta::inline ledger {

std::string StatusFilter::Clause() const {
  if (uncleared && !cleared && !reconciled) return "BankChk = 0 AND BankRec = 0 AND ";
  if (!uncleared && cleared && !reconciled) return "BankChk = 1 AND BankRec = 0 AND ";
  if (!uncleared && !cleared && reconciled) return "BankRec = 1 AND ";
  if (uncleared && cleared && !reconciled) return "BankRec = 0 AND ";
  if (uncleared && !cleared && reconciled) return "NOT(BankChk = 1 AND BankRec = 0) AND ";
  if (!uncleared && cleared && reconciled) return "NOT(BankChk = 0 AND BankRec = 0) AND ";
  // Nothing chosen shows everything: an empty list would only puzzle.
  return "1 > 0 AND ";
}

}  // namespace corvanta::inline ledger
