#pragma once

#include "store/Connection.h"

namespace corvanta {

class Clock;
class Files;

// Writes an exact, compact copy of the source into the target, which may have another password.
// The target must not exist; it is whole and on disk when this returns, and gone when this throws.
// The source is only read. Throws StoreError as opening does.
void CompactDatabase(const DataSource& source, const DataSource& target, const Clock& clock,
                     Files& files);

}  // namespace corvanta
