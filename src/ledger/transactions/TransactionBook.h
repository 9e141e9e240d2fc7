#pragma once

#include "ledger/Keys.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/transactions/TransactionReader.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionRows.h"

#include <cstdint>
#include <span>

namespace corvanta::inline ledger {

class clsCorvanta;

// Writing and deleting transactions. An operation that changes several rows of one structure
// changes all of them or none, and each is one step that can be undone, unless its caller has begun
// a wider one. Keys are 0 for none; a key that does not exist changes nothing. Amounts are rounded
// to the decimals of their account's currency, and put so into the record; one that was there
// before and is not changed stays to its last digit. Throws StoreError.
class TransactionBook : public TransactionReader {
 public:
  TransactionBook(LedgerCore& core, clsCorvanta& ledger)
      : TransactionReader(core), rows_(core), ledger_(ledger) {}

  // Writes the row and sets its transfer and split links right; its key is put into the record and
  // returned. A twin (transferId) points back afterwards and neither half keeps split lines; a
  // former twin becomes an ordinary row. A parent's amount is the sum of its lines, whatever the
  // record says; the lines take its account, date and status. A line (allocatedItem, or a row that
  // is one) takes them from its parent and changes the parent's amount.
  std::int64_t SaveTransaction(TransactionRecord& record);
  // Writes a new row that is no transfer, with its split lines, whose sum is its amount then; the
  // lines take its account, date, status, payee and payment type. Keys are put into the records.
  // SaveTransaction does the same for one row, but looks for links that a new row cannot have.
  std::int64_t AddTransaction(TransactionRecord& record, std::span<TransactionRecord> lines);
  // Saves both halves of a transfer, linked. Either may be new; the amounts are the caller's.
  void SaveTransfer(TransactionRecord& from, TransactionRecord& to);
  // Deletes the row, its split lines and its other half, with what is linked and attached to them.
  // Of a line: its parent's amount follows.
  void DeleteTransaction(std::int64_t transactionId);
  // Whether one of the rows, or the other half of a transfer among them, is in a closed account.
  [[nodiscard]] bool ReachesClosedAccount(Keys transactionIds);
  // All of them or none, as every change of several rows here: nothing when the person asks to stop
  // on the way, or when one of them fails. False when it was stopped.
  bool DeleteTransactions(Keys transactionIds);
  // Saves the entry with payment type, reference and description of its template: the account's
  // latest row of that payee and category, of an edited entry the row itself. An edited row keeps
  // its account and status. Returns the key; 0 without a template, or where it is no ordinary row.
  std::int64_t Autofill(const AutofillEntry& entry);

 private:
  [[nodiscard]] bool InheritFromParent(TransactionRecord& line);

  TransactionRows rows_;
  clsCorvanta& ledger_;
};

}  // namespace corvanta::inline ledger
