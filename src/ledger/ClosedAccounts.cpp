#include "ledger/ClosedAccounts.h"

#include "ledger/RowLinks.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/StoreError.h"

namespace corvanta {
namespace {

[[noreturn]] void Refuse() {
  throw StoreError(StoreErrorCode::Constraint,
                   std::string(kAccountClosed) + ". Nothing was changed.");
}

}  // namespace

bool ClosedAccounts::Has(std::int64_t accountId) {
  // What was noted in a transaction went with it, where that was taken back.
  const bool isOutdated = isNoted_ && !store_.InTransaction();
  if (isOutdated || read_ != store_.Changes()) {
    closed_.clear();
    Recordset rows =
        store_.OpenRecordset("Select AccountID from tblAccounts Where CloseAccount <> 0");
    for (; !rows.Eof(); rows.MoveNext()) closed_.insert(rows.Int(0));
    read_ = store_.Changes();
    isNoted_ = false;
  }
  return closed_.contains(accountId);
}

void ClosedAccounts::Note(std::int64_t accountId, bool isClosed) {
  isNoted_ = true;
  if (isClosed) {
    closed_.insert(accountId);
  } else {
    closed_.erase(accountId);
  }
}

std::int64_t ClosedAccounts::AccountOf(std::int64_t transactionId) {
  return store_
      .QueryValue("Select AccountID from tblTransactions Where TransactionID = " +
                  SqlNumber(transactionId))
      .Int();
}

bool ClosedAccounts::AreReachedBy(Keys transactionIds) {
  for (const std::int64_t key : transactionIds) {
    const std::optional<RowLinks> row = ReadLinks(store_, key);
    if (!row) continue;
    if (Has(row->accountId)) return true;
    if (row->transferId != 0 && Has(AccountOf(row->transferId))) return true;
  }
  return false;
}

void ClosedAccounts::RequireOpen(std::int64_t accountId) {
  if (Has(accountId)) Refuse();
}

void ClosedAccounts::RequireOpenOf(std::int64_t transactionId) {
  RequireOpen(AccountOf(transactionId));
}

void ClosedAccounts::RequireOpenHalves(std::int64_t transactionId) {
  if (AreReachedBy({&transactionId, 1})) Refuse();
}

}  // namespace corvanta
