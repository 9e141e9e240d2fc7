#pragma once

#include "app/RegisterDelegate.h"

namespace corvanta::inline platform {
class Settings;
}

namespace corvanta::inline app {

// The list colours of the settings. A colour that names one of the system's is taken from the
// palette.
[[nodiscard]] ListColours ReadListColours(const Settings& settings, const QPalette& palette);

}  // namespace corvanta::inline app
