#pragma once

#include "store/DataFileLocation.h"

#include <string>

namespace corvanta {

struct Platform;

// Puts the compacted copy in the place of a data file that is missing. A copy that is whole becomes
// the data file: true. One that is not is set aside, one that holds no row is removed (the creation
// of a file was broken off), and nothing happens where there is none. Throws StoreError and
// PlatformError for what the disk refuses.
bool RecoverDataFile(const DataFileLocation& location, const std::string& password,
                     Platform& platform);

}  // namespace corvanta
