#pragma once

#include "store/sql/Connection.h"
#include "store/sql/engine/CopyMark.h"

namespace corvanta::inline platform {
class Clock;
class Files;
}  // namespace corvanta::inline platform

namespace corvanta::inline datafile {

// Writes an exact, compact copy of the source into the target, which may have another password, and
// marks it. The target must not exist; it is whole and on disk when this returns, and gone when
// this throws. What a killed program leaves is an empty file or the whole copy. The source is only
// read. Throws StoreError as opening does.
void CompactDatabase(const DataSource& source, const DataSource& target, const Clock& clock,
                     Files& files, const CopyMark& mark = {});

// Gives back the room inside a file that nobody else has open, where there is enough of it to be
// worth the writing. Throws StoreError; the file is as it was then.
void ShrinkDatabase(const DataSource& source, const Clock& clock);

}  // namespace corvanta::inline datafile
