#include "ledger/transactions/TransactionStatus.h"

namespace corvanta::inline ledger {

StatusFlags FlagsOf(TransactionStatus status) {
  switch (status) {
    case TransactionStatus::Uncleared:
      return {0, 0};
    case TransactionStatus::Cleared:
      return {1, 0};
    case TransactionStatus::Reconciled:
      return {1, 1};
  }
  return {};
}

TransactionStatus StatusFrom(StatusFlags flags) {
  if (flags.bankRec == 1) return TransactionStatus::Reconciled;
  return flags.bankChk == 1 ? TransactionStatus::Cleared : TransactionStatus::Uncleared;
}

std::string_view StatusAssignment(TransactionStatus status) {
  switch (status) {
    case TransactionStatus::Uncleared:
      return "BankChk = 0, BankRec = 0";
    case TransactionStatus::Cleared:
      return "BankChk = 1, BankRec = 0";
    case TransactionStatus::Reconciled:
      return "BankChk = 1, BankRec = 1";
  }
  return {};
}

}  // namespace corvanta::inline ledger
