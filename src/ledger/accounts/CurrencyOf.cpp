#include "ledger/accounts/CurrencyOf.h"

#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {

std::string CurrencyOf(clsCorvanta& ledger, std::int64_t accountId) {
  const Recordset row = ledger.Store().OpenRecordset(
      "Select A.*, C.Currency from tblAccounts A LEFT JOIN tblCurrency C "
      "  ON A.CurrencyID = C.CurrencyID Where AccountID = " +
      SqlNumber(accountId));
  return row.Eof() ? std::string() : std::string(row.Text("Currency"));
}

}  // namespace corvanta::inline ledger
