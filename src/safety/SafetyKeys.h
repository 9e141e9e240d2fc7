// Where the program keeps what it remembers of backups and data files: beside the preferences, so
// that none of it goes to another machine with them.
#pragma once

#include <string_view>

namespace corvanta::inline safety {

inline constexpr std::string_view kSafetyKey = "Software\\Corvanta 2.0\\Safety";
inline constexpr std::string_view kRecentKey = "Software\\Corvanta 2.0\\Recent";

}  // namespace corvanta::inline safety
