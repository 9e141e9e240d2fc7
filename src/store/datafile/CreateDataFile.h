#pragma once

#include "store/datafile/DataFileLocation.h"
#include "store/datafile/WriterLock.h"
#include "store/sql/Connection.h"
#include "store/sql/engine/CopyMark.h"

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

// The same up to where the file would get its own name: returns it as it stands beside that, so
// that more can be done to it before. What the program leaves behind when it is killed is removed
// by the next draft in that folder.
[[nodiscard]] DataSource DraftDataFile(const DataFileLocation& location,
                                       const std::string& password, bool emptyFile,
                                       Platform& platform, const Writer& writer);
// Gives a draft the name that it was made for, which must be free still; the draft is removed where
// it cannot have it. Throws StoreError and PlatformError.
void InstallDraft(const DataSource& draft, const std::string& path, Platform& platform);

}  // namespace corvanta::inline datafile
