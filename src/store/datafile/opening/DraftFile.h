#pragma once

#include "store/datafile/DataFileLocation.h"
#include "store/sql/engine/CopyMark.h"

#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// What a new data file is called while it is made: the first of its names that nobody else uses.
// What a killed program has left behind under such a name, with this mark or with the mark of
// another moment, is removed. `password` opens it. Throws StoreError and PlatformError.
[[nodiscard]] std::string FreeDraftPath(const DataFileLocation& location, const CopyMark& mark,
                                        const std::string& password, Platform& platform);

}  // namespace corvanta::inline datafile
