#pragma once

#include "store/datafile/WriterLock.h"
#include "store/sql/Connection.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// Keys of a table whose rows could not be read, if there were any.
struct LostKeys {
  std::int64_t first = 0;
  std::int64_t last = 0;
};

// What became of one table.
struct SalvagedTable {
  std::string table;
  std::int64_t rows = 0;       // that were read
  std::vector<LostKeys> lost;  // ascending
};

// Reads what can still be read of a damaged data file into a new one under that path, which must be
// free, row by row around the damage. What has lost what it belongs to is made whole: lines without
// their entry go, the other half of a lost transfer becomes an ordinary row, and a lost name that
// rows need is made anew ("Salvaged 12"). The damaged file is
// only read; the new one gets its name when it is whole. Returns every table, in the order of the
// schema. Throws StoreError, Damaged where not even the file's beginning can be read, and
// PlatformError; there is no new file then.
std::vector<SalvagedTable> SalvageDataFile(const DataSource& damaged, const std::string& path,
                                           const Writer& writer, Platform& platform);

}  // namespace corvanta::inline datafile
