#include "support/AccessPath.h"

#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

namespace corvanta {

void DropAccessPath(const DataSource& source, const Clock& clock, const std::string& name) {
  Run(OpenFile(source, clock).get(), "DROP INDEX " + name, source.path);
}

}  // namespace corvanta
