#pragma once

struct sqlite3;

namespace corvanta::inline platform {
class Clock;
}

namespace corvanta::jet {

// Gives a connection the collation and the functions that the written statements call. The clock
// must outlive the connection.
void RegisterFunctions(sqlite3* database, const Clock& clock);

}  // namespace corvanta::jet
