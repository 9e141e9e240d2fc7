#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"

namespace corvanta {

std::int64_t clsCorvanta::AddTransaction(TransactionRecord& record,
                                         std::span<TransactionRecord> lines) {
  const UndoLog::Step step = undo_.Begin("Add Transaction");
  record.transactionId = 0;
  record.allocatedItem = 0;
  record.transferId = 0;
  if (lines.empty()) return record.transactionId = WriteRow(record);  // one statement is whole
  Transaction all = connection_.Begin();
  double sum = 0;
  for (const TransactionRecord& line : lines) sum = RoundMoney(sum + line.amount);
  record.amount = sum;
  record.transactionId = WriteRow(record);
  for (TransactionRecord& line : lines) {
    line.transactionId = 0;
    line.allocatedItem = record.transactionId;
    line.transferId = 0;
    line.action = 0;
    line.accountId = record.accountId;
    line.date = record.date;
    line.status = record.status;
    line.payeeId = record.payeeId;
    line.paymentId = record.paymentId;
    line.transactionId = WriteRow(line);
  }
  all.Commit();
  return record.transactionId;
}

}  // namespace corvanta
