#include "ledger/reference/CategoryKeys.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <limits>

namespace corvanta::inline ledger {

CategoryKeys::CategoryKeys(Connection& store) {
  met_.fill(std::numeric_limits<std::int64_t>::min());
  Recordset rows = store.OpenRecordset("Select CategoryID from tblCategory");
  for (; !rows.Eof(); rows.MoveNext()) keys_.insert(rows.Int(0));
}

}  // namespace corvanta::inline ledger
