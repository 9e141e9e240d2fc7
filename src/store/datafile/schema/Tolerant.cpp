#include "store/datafile/schema/Tolerant.h"

#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"

namespace corvanta::inline datafile {

bool ExecuteTolerant(Connection& connection, std::string_view sql) {
  try {
    connection.Execute(sql);
    return true;
  } catch (const StoreError& error) {
    if (!error.IsStatementFault()) throw;
    return false;
  }
}

}  // namespace corvanta::inline datafile
