#pragma once

#include "store/datafile/DataFileLocation.h"
#include "store/datafile/WriterLock.h"

#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// Creates the data file at `location`, whose folder must exist, with its default rows and, unless
// `emptyFile`, the sample data. Nothing may stand at its path. It is made under another name and
// gets its own when it is whole, so that a crash leaves no data file or a whole one. `writer` must
// hold its lock. A statement that fails is skipped. Throws StoreError and PlatformError for what
// the disk refuses.
void CreateDataFile(const DataFileLocation& location, const std::string& password, bool emptyFile,
                    Platform& platform, const Writer& writer = {});

}  // namespace corvanta::inline datafile
