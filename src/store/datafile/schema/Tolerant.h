#pragma once

#include <string_view>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline datafile {

// Runs a statement that may be run again on a file that has its effect already: its own fault (the
// object exists, the key is taken) skips it. Returns false then; what the disk refuses is thrown.
bool ExecuteTolerant(Connection& connection, std::string_view sql);

}  // namespace corvanta::inline datafile
