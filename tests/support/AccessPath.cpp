#include "support/AccessPath.h"

#include "store/engine/OpenFile.h"
#include "store/engine/Sqlite.h"

namespace corvanta {

void DropAccessPath(const DataSource& source, const Clock& clock, const std::string& name) {
  Run(OpenFile(source, clock).get(), "DROP INDEX " + name, source.path);
}

}  // namespace corvanta
