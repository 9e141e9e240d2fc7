// Where the desktop keeps a user's settings and data (the XDG base directories).
#pragma once

#include <string>

namespace corvanta::inline platform {

// "$XDG_CONFIG_HOME/corvanta" or "~/.config/corvanta". Not created. Throws PlatformError when the
// user has no home folder.
[[nodiscard]] std::string DefaultProfileFolder();
// "$XDG_DATA_HOME/corvanta" or "~/.local/share/corvanta", likewise.
[[nodiscard]] std::string DefaultDataFolder();

}  // namespace corvanta::inline platform
