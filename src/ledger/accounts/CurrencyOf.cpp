#include "ledger/accounts/CurrencyOf.h"

#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {

std::string CurrencyOf(clsCorvanta& ledger, std::int64_t accountId) {
  return CurrencyOf(ledger.Store(), accountId);
}

std::string CurrencyOf(Connection& store, std::int64_t accountId) {
  return std::string(
      store
          .QueryValue("Select C.Currency from tblAccounts A INNER JOIN tblCurrency C "
                      "ON A.CurrencyID = C.CurrencyID Where A.AccountID = " +
                      SqlNumber(accountId))
          .Text());
}

}  // namespace corvanta::inline ledger
