#include "platform/Folders.h"

#include "platform/PlatformError.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
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
  return value != nullptr && value[0] == '/' ? value : HomeFolder() + belowHome;
}

std::string OwnFolder(const std::string& base) {
  return base + (base.back() == '/' ? "corvanta" : "/corvanta");
}

}  // namespace

std::string DefaultProfileFolder() {
  return OwnFolder(ConfigFolder());
}
std::string DefaultDataFolder() {
  return OwnFolder(BaseFolder("XDG_DATA_HOME", "/.local/share"));
}
std::string ConfigFolder() {
  return BaseFolder("XDG_CONFIG_HOME", "/.config");
}

std::vector<std::string> DataFolders() {
  std::vector<std::string> folders{BaseFolder("XDG_DATA_HOME", "/.local/share")};
  const char* value = std::getenv("XDG_DATA_DIRS");
  const std::string listed =
      value != nullptr && value[0] != '\0' ? value : "/usr/local/share:/usr/share";
  for (std::size_t start = 0; start <= listed.size();) {
    const std::size_t end = std::min(listed.find(':', start), listed.size());
    if (end > start) folders.push_back(listed.substr(start, end - start));
    start = end + 1;
  }
  return folders;
}

}  // namespace corvanta::inline platform
