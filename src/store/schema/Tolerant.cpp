#include "store/schema/Tolerant.h"

#include "store/Connection.h"
#include "store/StoreError.h"

namespace corvanta {

bool ExecuteTolerant(Connection& connection, std::string_view sql) {
  try {
    connection.Execute(sql);
    return true;
  } catch (const StoreError& error) {
    if (!error.IsStatementFault()) throw;
    return false;
  }
}

}  // namespace corvanta
