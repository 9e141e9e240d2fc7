#pragma once

struct sqlite3;

namespace corvanta {

class Clock;

namespace jet {

// Gives a connection the collation and the functions that the written statements call. The clock
// must outlive the connection.
void RegisterFunctions(sqlite3* database, const Clock& clock);

}  // namespace jet
}  // namespace corvanta
