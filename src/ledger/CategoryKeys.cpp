#include "ledger/CategoryKeys.h"

#include "store/Connection.h"
#include "store/Recordset.h"

#include <limits>

namespace corvanta {

CategoryKeys::CategoryKeys(Connection& store) {
  met_.fill(std::numeric_limits<std::int64_t>::min());
  Recordset rows = store.OpenRecordset("Select CategoryID from tblCategory");
  for (; !rows.Eof(); rows.MoveNext()) keys_.insert(rows.Int(0));
}

}  // namespace corvanta
