#pragma once

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline datafile {

// Adds the tables and columns that an open data file lacks, all in one transaction. Returns true
// when it has changed something. Throws StoreError for what the disk refuses.
bool CheckSchema(Connection& connection);

}  // namespace corvanta::inline datafile
