#pragma once

#include <functional>

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline controls {

// Runs one command of the window. What the data file or the machine refuses ends the command, is
// told in words and logged, and the program goes on. True when the command ran to its end.
bool RunCommand(Prompts& prompts, const std::function<void()>& command);

}  // namespace corvanta::inline controls
