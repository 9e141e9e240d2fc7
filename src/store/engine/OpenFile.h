#pragma once

#include "store/Connection.h"
#include "store/engine/Sqlite.h"

namespace corvanta {

// Opens the library's handle on an existing data file, keyed, checked and set up for one
// program. The file is only read. Throws StoreError with what is wrong and what to do.
[[nodiscard]] DatabaseHandle OpenFile(const DataSource& source, const Clock& clock);
// The same on a new, empty file; the path must be free.
[[nodiscard]] DatabaseHandle CreateFile(const DataSource& source, const Clock& clock);

}  // namespace corvanta
