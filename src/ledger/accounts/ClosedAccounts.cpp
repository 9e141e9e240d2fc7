#include "ledger/accounts/ClosedAccounts.h"

#include "ledger/transactions/RowLinks.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/StoreError.h"

#include <algorithm>
#include <string>

namespace corvanta::inline ledger {
namespace {

[[noreturn]] void Refuse() {
  throw StoreError(StoreErrorCode::Constraint,
                   std::string(kAccountClosed) + ". Nothing was changed.");
}

}  // namespace

bool ClosedAccounts::Has(std::int64_t accountId) {
  return store_
             .QueryValue("Select CloseAccount from tblAccounts Where AccountID = " +
                         SqlNumber(accountId))
             .Int() != 0;
}

std::int64_t ClosedAccounts::AccountOf(std::int64_t transactionId) {
  return store_
      .QueryValue("Select AccountID from tblTransactions Where TransactionID = " +
                  SqlNumber(transactionId))
      .Int();
}

bool ClosedAccounts::IsReachedBy(const RowLinks& row) {
  return Has(row.accountId) || (row.transferId != 0 && Has(AccountOf(row.transferId)));
}

bool ClosedAccounts::AreReachedBy(Keys transactionIds) {
  return std::ranges::any_of(transactionIds, [this](std::int64_t key) {
    const std::optional<RowLinks> row = ReadLinks(store_, key);
    return row && IsReachedBy(*row);
  });
}

void ClosedAccounts::RequireOpen(std::int64_t accountId) {
  if (Has(accountId)) Refuse();
}

void ClosedAccounts::RequireOpenOf(std::int64_t transactionId) {
  RequireOpen(AccountOf(transactionId));
}

void ClosedAccounts::RequireOpenHalves(const RowLinks& row) {
  if (IsReachedBy(row)) Refuse();
}

}  // namespace corvanta::inline ledger
