#include "reports/query/PlanCurrency.h"

#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

namespace corvanta::inline reports {

std::string PlanCurrency(Connection& store, const std::string& own) {
  std::string first;
  Recordset rows = store.OpenRecordset(
      "SELECT Currency, CU.CurrencyID From tblAccounts A INNER JOIN tblCurrency CU ON A.CurrencyId "
      "= CU.CurrencyID WHERE CloseAccount <> 1 GROUP BY CU.CurrencyID, Currency");
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string currency = rows.Text("Currency");
    if (EqualFolded(currency, own)) return own;
    if (first.empty()) first = currency;
  }
  return first.empty() ? own : first;
}

}  // namespace corvanta::inline reports
