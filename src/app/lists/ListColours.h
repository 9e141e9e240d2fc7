#pragma once

#include "app/register/RegisterDelegate.h"

#include <cstdint>

namespace corvanta::inline platform {
class Settings;
}

namespace corvanta::inline app {

// The colour of that number: red + 256 * green + 65536 * blue, or one of the system's, taken from
// the palette.
[[nodiscard]] QColor ColourOf(std::uint32_t number, const QPalette& palette);

// The list colours of the settings. A colour that names one of the system's is taken from the
// palette.
[[nodiscard]] ListColours ReadListColours(const Settings& settings, const QPalette& palette);

// Gives every list of the program, in the window and in dialogs, the rows and lines of the
// settings. To be called again when the desktop's palette changes.
void ApplyListColours(const Settings& settings);

}  // namespace corvanta::inline app
