// What the window's program says where it was started from.
#pragma once

#include <string_view>

namespace corvanta::inline app {

// A line on the standard error stream, as ShownText has it: names of files and what a person typed
// are part of it, and must not steer the terminal.
void TellTerminal(std::string_view line);

// From now on what Qt and the program note goes there as well (qWarning and the like). For the
// whole run of the program.
void TellTerminalWhatIsNoted();

}  // namespace corvanta::inline app
