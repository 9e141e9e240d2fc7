#pragma once

#include <initializer_list>
#include <string>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta {

// Every row of the tables as one text, in which nothing and an empty text differ: what a test
// compares to see that nothing was changed.
[[nodiscard]] std::string ContentsOf(Connection& connection,
                                     std::initializer_list<const char*> tables);

}  // namespace corvanta
