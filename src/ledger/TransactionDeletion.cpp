#include "ledger/RowLinks.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

namespace corvanta {

void clsCorvanta::DeleteTransaction(std::int64_t transactionId) {
  const UndoLog::Step step = undo_.Begin("Delete Transaction");
  Transaction all = connection_.Begin();
  const std::optional<RowLinks> row = ReadLinks(connection_, transactionId);
  if (!row) return;
  DeleteWhole(transactionId);
  if (row->transferId != 0) DeleteWhole(row->transferId);
  if (row->allocatedItem != 0) SumLines(row->allocatedItem);
  all.Commit();
}

bool clsCorvanta::DeleteTransactions(Keys transactionIds) {
  const UndoLog::Step step =
      undo_.Begin(transactionIds.size() == 1 ? "Delete Transaction" : "Delete Transactions");
  return ForEachRow(transactionIds, [this](std::int64_t key) { DeleteTransaction(key); });
}

// A row with its lines; whatever still names it as its other half becomes an ordinary row.
void clsCorvanta::DeleteWhole(std::int64_t transactionId) {
  const std::string key = SqlNumber(transactionId);
  DeleteRows("AllocatedItem  = " + key);
  DeleteRows("TransactionID = " + key);
  connection_.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = " + key);
}

void clsCorvanta::DeleteRows(const std::string& condition) {
  const std::string rows =
      " IN (Select TransactionID from tblTransactions Where " + condition + ")";
  connection_.Execute("Delete from tblAttachments Where TransactionId" + rows);
  connection_.Execute("Delete from tblKeywordLink Where TransactionId" + rows);
  connection_.Execute("Delete From tblTransactions Where " + condition);
}

bool clsCorvanta::ReachesClosedAccount(Keys transactionIds) {
  const auto isClosed = [this](std::int64_t transactionId) {
    return connection_
               .QueryValue(
                   "Select A.CloseAccount from tblTransactions T INNER JOIN tblAccounts A "
                   "ON T.AccountID = A.AccountID WHERE T.TransactionID = " +
                   SqlNumber(transactionId))
               .Int() != 0;
  };
  for (const std::int64_t key : transactionIds) {
    const Value twin = connection_.QueryValue(
        "Select TransferID from tblTransactions WHERE TransactionID = " + SqlNumber(key));
    if (isClosed(key) || (twin.Int() != 0 && isClosed(twin.Int()))) return true;
  }
  return false;
}

}  // namespace corvanta
