// Where the desktop keeps a user's settings and data (the XDG base directories).
#pragma once

#include <string>
#include <vector>

namespace corvanta::inline platform {

// "$XDG_CONFIG_HOME/corvanta" or "~/.config/corvanta". Not created. Throws PlatformError when the
// user has no home folder.
[[nodiscard]] std::string DefaultProfileFolder();
// "$XDG_DATA_HOME/corvanta" or "~/.local/share/corvanta", likewise.
[[nodiscard]] std::string DefaultDataFolder();
// "$XDG_CONFIG_HOME" or "~/.config" itself, where desktops keep what they are set to, likewise.
[[nodiscard]] std::string ConfigFolder();
// The folders in which desktops look for what is installed, the user's own first: "$XDG_DATA_HOME"
// and "$XDG_DATA_DIRS".
[[nodiscard]] std::vector<std::string> DataFolders();

}  // namespace corvanta::inline platform
