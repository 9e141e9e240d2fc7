#pragma once

#include "store/datafile/DataFileLocation.h"
#include "store/datafile/WriterLock.h"

#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// Puts the compacted copy in the place of the data file that it was made from, where that is
// missing, and tells so: true. A copy of another data file, one that is not whole or that nobody
// knows stays as it is. `password` is this installation's. Throws StoreError and PlatformError for
// what the disk refuses.
bool RecoverDataFile(const DataFileLocation& location, const std::string& password,
                     const Writer& writer, Platform& platform);

}  // namespace corvanta::inline datafile
