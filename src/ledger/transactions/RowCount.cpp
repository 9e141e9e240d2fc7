#include "ledger/transactions/RowCount.h"

#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {

RowCount CountRows(Connection& store) {
  return {store.QueryValue("Select Count(*) from tblTransactions").Int(),
          store.QueryValue("Select Max(TransactionID) from tblTransactions").Int()};
}

std::int64_t CountLeft(Connection& store, const RowCount& before) {
  return store
      .QueryValue("Select Count(*) from tblTransactions Where TransactionID <= " +
                  SqlNumber(before.last))
      .Int();
}

}  // namespace corvanta::inline ledger
