#include "ledger/transactions/TransferCompletion.h"

#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/ReservedNames.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <iterator>

namespace corvanta::inline ledger {

std::vector<std::int64_t> TransferCompletion::LoneHalves(Keys transactionIds) {
  std::vector<std::int64_t> lone;
  std::ranges::copy_if(transactionIds, std::back_inserter(lone), [&](std::int64_t key) {
    const auto row = ledger_.Transactions().ReadTransaction(key);
    return row && row->transferId == 0 && row->category.starts_with(kTransferMark);
  });
  return lone;
}

std::vector<std::int64_t> TransferCompletion::Completable(Keys transactionIds) {
  std::vector<std::int64_t> able;
  std::ranges::copy_if(transactionIds, std::back_inserter(able),
                       [&](std::int64_t key) { return OtherAccountOf(key) != 0; });
  return able;
}

std::int64_t TransferCompletion::OtherAccountOf(std::int64_t transactionId) {
  const auto row = ledger_.Transactions().ReadTransaction(transactionId);
  const bool isOrdinary = row && row->transferId == 0 && !row->hasLines &&
                          row->allocatedItem == 0 && row->action == 0 && !row->accountClosed;
  if (!isOrdinary || !row->category.starts_with(kTransferMark)) return 0;
  const auto [other, isNew] = named_.try_emplace(row->category, 0);
  if (isNew)
    other->second = ledger_.Accounts().OtherAccount(row->category.substr(kTransferMark.size()), 0);
  const std::optional<AccountRecord>& own = Account(row->accountId);
  const std::optional<AccountRecord>& account = Account(other->second);
  if (!own || !account || account->closed || other->second == row->accountId) return 0;
  return account->currencyId == own->currencyId ? other->second : 0;
}

const std::optional<AccountRecord>& TransferCompletion::Account(std::int64_t accountId) {
  const auto [account, isNew] = accounts_.try_emplace(accountId);
  if (isNew) account->second = ledger_.Accounts().ReadAccount(accountId);
  return account->second;
}

std::size_t TransferCompletion::Complete(Keys transactionIds) {
  const UndoLog::Step step = ledger_.Undo().Begin("Complete Transfers");
  Transaction all = ledger_.Store().Begin();
  const std::int64_t payee = ledger_.References().FindOrCreatePayee("Transfer");
  const std::int64_t debit = ledger_.Categories().FindOrCreateCategory("Debit", {}, -1);
  const std::int64_t credit = ledger_.Categories().FindOrCreateCategory("Credit", {}, 1);
  std::size_t made = 0;
  for (const std::int64_t key : transactionIds) {
    const std::int64_t other = OtherAccountOf(key);
    if (other == 0) continue;
    TransactionRecord half = *ledger_.Transactions().ReadTransaction(key);
    half.payeeId = payee;
    half.categoryId = half.amount < 0 ? debit : credit;
    TransactionRecord twin = half;
    twin.transactionId = 0;
    twin.accountId = other;
    twin.amount = 0 - half.amount;
    twin.categoryId = twin.amount < 0 ? debit : credit;
    // The reference is the mark that the one bank gave; the statement of the other has its own.
    twin.reference.clear();
    twin.status = {};
    twin.scheduleId = 0;
    twin.scheduleDate.reset();
    ledger_.Transactions().SaveTransfer(half, twin);
    ++made;
  }
  all.Commit();
  return made;
}

}  // namespace corvanta::inline ledger
