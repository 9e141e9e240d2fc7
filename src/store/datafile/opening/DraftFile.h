#pragma once

#include "store/datafile/DataFileLocation.h"
#include "store/datafile/WriterLock.h"
#include "store/sql/engine/CopyMark.h"

#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// What a file that is to have that name says of itself while it is made.
[[nodiscard]] CopyMark DraftMark(const std::string& fileName);

// What a new data file is called while it is made: the first of its names that nobody else uses.
// What a killed program has left behind under such a name, with this mark or with the mark of
// another moment, is removed; so are drafts of other names
// in the folder that nobody is making now. `password` opens them. Whoever calls this holds the
// writer lock of the new file. Throws StoreError and PlatformError.
[[nodiscard]] std::string FreeDraftPath(const DataFileLocation& location, const CopyMark& mark,
                                        const std::string& password, const Writer& writer,
                                        Platform& platform);

}  // namespace corvanta::inline datafile
