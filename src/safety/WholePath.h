#pragma once

#include "ledger/Warning.h"

#include <optional>
#include <string>

namespace corvanta::inline safety {

// Refuses a path that does not say from its beginning where it leads: in a window nobody knows
// which folder it would count from. `what` is what shall lie there, such as "backup file". nullopt
// for a whole path.
[[nodiscard]] std::optional<Warning> WholePathFault(const std::string& path,
                                                    const std::string& what, const char* title,
                                                    const char* field);

}  // namespace corvanta::inline safety
