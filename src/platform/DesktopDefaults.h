// Which program a desktop opens a kind of file with: the form of its list of default applications.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {

// Whether a desktop entry of that name ("corvanta.desktop") is installed for this user.
[[nodiscard]] bool IsDesktopProgram(std::string_view entry);

// The text of a mimeapps.list in which `entry` is the first of the default applications of these
// types, or none of them any more. Everything else stays as it was, line by line.
[[nodiscard]] std::string WithDefaults(std::string_view text, std::string_view entry,
                                       const std::vector<std::string_view>& types, bool isOn);

}  // namespace corvanta::inline platform
