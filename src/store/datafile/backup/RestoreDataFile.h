#pragma once

#include "store/datafile/DataFileLocation.h"
#include "store/datafile/WriterLock.h"
#include "store/sql/Connection.h"

#include <cstddef>
#include <string>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// Puts a copy of the backup, protected with `password`, into the place of the data file, which must
// not be open and whose lock `writer` must hold; where there is none it is made. Every page and
// every balance is checked before anything moves. What was the data file is kept beside it under
// another name, which is returned (empty where there was none). Killed on the way, the program
// finds the former file or the restored one when it starts next. The backup is only read. Throws
// StoreError and PlatformError; the data file is then as it was.
std::string RestoreDataFile(const DataFileLocation& location, const DataSource& backup,
                            const std::string& password, const Writer& writer, Platform& platform);

// Removes of the files that restoring has kept under their day and time those that are no longer
// needed, as with backups (see Superfluous): the latest always stays. What somebody works in, or
// has written to since it was put aside, and what cannot be removed, stays, too. Returns how many
// are gone.
std::size_t ThinKeptFiles(const DataFileLocation& location, Platform& platform) noexcept;

// The data files of that name that restoring has kept, the latest first.
[[nodiscard]] std::vector<std::string> FindKeptFiles(const DataFileLocation& location);

}  // namespace corvanta::inline datafile
