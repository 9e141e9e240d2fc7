#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {

// The kinds of files of banks, as the desktop names them.
inline constexpr std::string_view kQifType = "application/x-qw";
inline constexpr std::string_view kOfxType = "application/x-ofx";

// What to tell a person whose desktop knows no such program.
inline constexpr const char* kNotOnDesktop =
    "This desktop does not list Corvanta among its programs, so QIF and OFX files cannot be opened "
    "with it yet. Install Corvanta, and set this again.";

// What the system opens files and addresses with.
class Opener {
 public:
  virtual ~Opener() = default;
  // False when the system has no application for it.
  [[nodiscard]] virtual bool Open(const std::string& pathOrUrl) = 0;
  // Has the desktop open files of these kinds with this program from now on, or as it did before.
  // False when the desktop knows no such program: nothing is changed then. Throws PlatformError.
  [[nodiscard]] virtual bool Associate(const std::vector<std::string_view>& types, bool isOn) = 0;
};

// Starts the desktop's own opener (xdg-open) and waits for its word, not for the application. What
// opens which kind stands in the user's mimeapps.list.
class DesktopOpener : public Opener {
 public:
  [[nodiscard]] bool Open(const std::string& pathOrUrl) override;
  [[nodiscard]] bool Associate(const std::vector<std::string_view>& types, bool isOn) override;
};

}  // namespace corvanta::inline platform
