#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"

namespace corvanta {

std::int64_t clsCorvanta::Autofill(const AutofillEntry& entry) {
  std::optional<TransactionRecord> record;
  if (entry.transactionId == 0) {
    record = LastTransaction(entry.accountId, entry.payeeId, entry.categoryId);
  } else if (const auto row = ReadTransaction(entry.transactionId)) {
    record = *row;
  }
  if (!record || record->transferId != 0 || record->action != 0) return 0;

  const UndoLog::Step step = undo_.Begin("Autofill Transaction");
  Transaction all = connection_.Begin();
  if (entry.transactionId == 0) {
    TransactionRecord fresh;
    fresh.accountId = entry.accountId;
    fresh.paymentId = record->paymentId;
    fresh.reference = record->reference;
    fresh.description = record->description;
    record = fresh;
  } else if (record->amount * entry.amount < 0) {
    // Lines decide their parent's amount, so they have to change sides with it.
    ReverseSign(entry.transactionId);
  }
  record->payeeId = entry.payeeId;
  record->categoryId = entry.categoryId;
  record->amount = entry.amount;
  record->date = entry.date;
  const std::int64_t key = SaveTransaction(*record);
  all.Commit();
  return key;
}

}  // namespace corvanta
