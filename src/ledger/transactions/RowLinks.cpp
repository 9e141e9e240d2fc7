#include "ledger/transactions/RowLinks.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {

std::optional<RowLinks> ReadLinks(Connection& store, std::int64_t transactionId) {
  const Recordset row = store.OpenRecordset(
      "Select AccountID, TransferID, AllocatedItem, [Action], [Amount] from tblTransactions Where "
      "TransactionID = " +
      SqlNumber(transactionId));
  if (row.Eof()) return std::nullopt;
  return RowLinks{row.Int(0), row.Int(1), row.Int(2), row.Int(3), row.Double(4), row.IsNull(1)};
}

std::vector<std::int64_t> ReadKeys(Connection& store, const std::string& sql) {
  std::vector<std::int64_t> keys;
  Recordset rows = store.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) keys.push_back(rows.Int(0));
  return keys;
}

}  // namespace corvanta::inline ledger
