#pragma once

#include "store/sql/Connection.h"
#include "store/sql/engine/CopyMark.h"
#include "store/sql/engine/Sqlite.h"

namespace corvanta::inline sql {

// Opens the library's handle on an existing data file, keyed, checked and set up for one
// program. The file is only read. Throws StoreError with what is wrong and what to do.
[[nodiscard]] DatabaseHandle OpenFile(const DataSource& source, const Clock& clock);
// The same on a file that is only read, be it read-only, to copy it into one that is attached.
[[nodiscard]] DatabaseHandle OpenToCopy(const DataSource& source, const Clock& clock);
// The same on a new, empty file, which from its first moment carries the mark; the path must be
// free.
[[nodiscard]] DatabaseHandle CreateFile(const DataSource& source, const Clock& clock,
                                        const CopyMark& mark = {});
// A keyed handle on a file that may be anything, and may be empty: the first statement tells.
[[nodiscard]] DatabaseHandle OpenUnchecked(const DataSource& source);

}  // namespace corvanta::inline sql
