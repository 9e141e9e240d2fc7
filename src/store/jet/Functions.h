#pragma once

struct sqlite3;

namespace corvanta {

class Clock;

namespace jet {

// The collation under which texts are compared: folded bytes. It stands only in queries, never in
// the stored schema, so that other tools can read and check the file.
inline constexpr const char* kCollation = "jet";

// Gives a connection the collation and the functions that the written statements call. The clock
// must outlive the connection.
void RegisterFunctions(sqlite3* database, const Clock& clock);

}  // namespace jet
}  // namespace corvanta
