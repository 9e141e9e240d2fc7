#include "platform/Opener.h"

#include "platform/DesktopDefaults.h"
#include "platform/Files.h"
#include "platform/Folders.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace corvanta::inline platform {
namespace {
constexpr std::string_view kDesktopEntry = "corvanta.desktop";
}

bool DesktopOpener::Open(const std::string& pathOrUrl) {
  if (pathOrUrl.empty()) return false;
  // A path that begins with a hyphen would be read as an option.
  std::string target = pathOrUrl.front() == '-' ? "./" + pathOrUrl : pathOrUrl;
  std::string program = "xdg-open";
  const std::array<char*, 3> arguments{program.data(), target.data(), nullptr};
  pid_t child = 0;
  if (::posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0) {
    return false;
  }
  int status = 0;
  while (::waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return false;
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool DesktopOpener::Associate(const std::vector<std::string_view>& types, bool isOn) {
  if (isOn && !IsDesktopProgram(kDesktopEntry)) return false;
  const std::string path = ConfigFolder() + "/mimeapps.list";
  const std::string before = FileExists(path) ? ReadFile(path) : std::string();
  const std::string after = WithDefaults(before, kDesktopEntry, types, isOn);
  if (after == before) return true;
  SystemFiles files;
  files.CreateFolder(ConfigFolder());
  files.WriteAtomically(path, after);
  return true;
}

}  // namespace corvanta::inline platform
