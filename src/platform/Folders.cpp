#include "platform/Folders.h"

#include "platform/PlatformError.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace corvanta::inline platform {
namespace {

std::string HomeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && home[0] == '/') return home;
  if (const passwd* user = ::getpwuid(::getuid());
      user != nullptr && user->pw_dir != nullptr && user->pw_dir[0] == '/') {
    return user->pw_dir;
  }
  throw PlatformError(
      "This user has no home folder. Nothing was changed. Set HOME to a folder for the settings.");
}

// A relative path in the variable counts as unset, as the base directory rules have it.
std::string BaseFolder(const char* variable, const std::string& belowHome) {
  const char* value = std::getenv(variable);
  const std::string base = value != nullptr && value[0] == '/' ? value : HomeFolder() + belowHome;
  return base + (base.back() == '/' ? "corvanta" : "/corvanta");
}

}  // namespace

std::string DefaultProfileFolder() {
  return BaseFolder("XDG_CONFIG_HOME", "/.config");
}
std::string DefaultDataFolder() {
  return BaseFolder("XDG_DATA_HOME", "/.local/share");
}

}  // namespace corvanta::inline platform
