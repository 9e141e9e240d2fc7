#pragma once

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline datafile {

// Makes what the schema does not name but the program needs: its access paths and the tables of its
// own, whose names begin with own_. Throws StoreError.
void EnsureAccessPaths(Connection& connection);

}  // namespace corvanta::inline datafile
