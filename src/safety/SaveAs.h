#pragma once

#include "safety/Backup.h"

#include <string>

namespace corvanta::inline safety {

// Copies the data file, which may be open, whole and checked to another place, with the folder of
// attached files where that is another one. A file that stands there is kept under its name with
// ".old" behind it; one that is in use, and the data file itself, are refused with StoreError.
// Throws PlatformError.
void SaveDataFileAs(const BackedFile& file, const std::string& path, Platform& platform,
                    const Writer& writer);

}  // namespace corvanta::inline safety
