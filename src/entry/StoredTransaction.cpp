#include "entry/StoredTransaction.h"

#include "ledger/clsCorvanta.h"
#include "ledger/transactions/TransactionBook.h"

#include <cmath>

namespace corvanta::inline entry {
namespace {

void FillTransfer(const StoredTransaction& stored, TransactionForm& form) {
  form.isToHalf = stored.IsToHalf();
  const TransactionDetails& from = form.isToHalf ? *stored.other : stored.row;
  const TransactionDetails& to = form.isToHalf ? stored.row : *stored.other;
  form.accountId = from.accountId;
  form.accountToId = to.accountId;
  form.amount = std::fabs(from.amount);
  // It was settled when the transfer was entered.
  form.arrival = Arrival{std::fabs(from.amount), std::fabs(to.amount), from.currency, to.currency};
}

}  // namespace

bool StoredTransaction::IsToHalf() const {
  return other && (row.amount > 0 || (row.amount == 0 && other->amount < 0));
}

bool StoredTransaction::IsClosed() const {
  return row.accountClosed || (other && other->accountClosed);
}

std::optional<StoredTransaction> ReadStored(clsCorvanta& ledger, std::int64_t key) {
  auto row = ledger.Transactions().ReadTransaction(key);
  if (!row) return std::nullopt;
  StoredTransaction stored{std::move(*row), std::nullopt};
  if (stored.row.transferId != 0) {
    stored.other = ledger.Transactions().ReadTransaction(stored.row.transferId);
  }
  return stored;
}

TransactionForm FormOf(clsCorvanta& ledger, const StoredTransaction& stored) {
  const TransactionDetails& row = stored.row;
  TransactionForm form;
  FillForm(row, row.transferId != 0, form);
  form.transactionId = row.transactionId;
  form.date = row.date;
  form.status = StatusFrom(row.status);
  if (row.hasLines) form.lines = ledger.Transactions().SplitLines(row.transactionId).size();
  form.transferId = row.transferId;
  form.scheduleId = row.scheduleId;
  if (stored.other) FillTransfer(stored, form);
  return form;
}

}  // namespace corvanta::inline entry
