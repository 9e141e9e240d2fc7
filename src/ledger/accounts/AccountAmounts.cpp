#include "ledger/accounts/AccountAmounts.h"

#include "ledger/accounts/CurrencyOf.h"
#include "ledger/transactions/RowLinks.h"

#include <cmath>

namespace corvanta::inline ledger {

double AccountAmounts::In(std::int64_t accountId, double amount) {
  // Whole amounts fit every currency.
  if (amount == std::trunc(amount)) return amount;
  return RoundToCurrency(amount, CurrencyOf(store_, accountId));
}

PartsInCurrency AccountAmounts::PartsIn(std::int64_t accountId) {
  return PartsInCurrency(CurrencyOf(store_, accountId));
}

double AccountAmounts::Replacing(const RowLinks& former, std::int64_t accountId, double amount) {
  const bool isAsBefore = former.accountId == accountId && former.amount == amount;
  return isAsBefore ? amount : In(accountId, amount);
}

}  // namespace corvanta::inline ledger
