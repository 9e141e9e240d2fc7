#pragma once

namespace corvanta::inline sql {
class Connection;
struct DataSource;
}  // namespace corvanta::inline sql

namespace corvanta::inline platform {
class Clock;
}

namespace corvanta::inline datafile {

// Makes what the schema does not name but the program needs: its access paths and the tables of its
// own, whose names begin with own_. Throws StoreError.
void EnsureAccessPaths(Connection& connection);

// Makes the indexes of the rows that move shares and of the lines of splits, and of no others: they
// are few among many. `connection` must be idle. Throws StoreError.
void EnsurePartPaths(const Connection& connection, const DataSource& source, const Clock& clock);

}  // namespace corvanta::inline datafile
