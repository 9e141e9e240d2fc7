#include "platform/SpreadsheetProgram.h"

#include "platform/Files.h"
#include "platform/PlatformError.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <thread>

namespace corvanta::inline platform {
namespace {

constexpr std::array<std::string_view, 3> kPrograms = {"soffice", "libreoffice", "localc"};
constexpr auto kPatience = std::chrono::minutes(2);
constexpr auto kBetweenLooks = std::chrono::milliseconds(20);
constexpr std::size_t kLargest = 1U << 30U;

constexpr const char* kNotConverted =
    "The spreadsheet program did not write the file. Nothing was written. Choose a name that ends "
    "in .xlsx instead.";

// A folder of this user alone, for as long as the object lives.
class WorkFolder {
 public:
  WorkFolder() {
    path_ = Base() + "/corvanta-sheet-XXXXXX";
    if (::mkdtemp(path_.data()) == nullptr) throw SystemError("Cannot make", path_, errno);
  }
  ~WorkFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  [[nodiscard]] std::string Path(const std::string& name) const { return path_ + "/" + name; }

 private:
  // What this user's session has is in memory and ends with it: the rows are not left on a disk.
  static std::string Base() {
    const char* session = std::getenv("XDG_RUNTIME_DIR");
    if (session != nullptr && *session == '/' && ::access(session, W_OK | X_OK) == 0) {
      return session;
    }
    std::error_code error;
    const auto base = std::filesystem::temp_directory_path(error);
    return error ? std::string("/tmp") : base.string();
  }

  std::string path_;
};

// Waits until the child has ended; one that takes too long is ended.
bool EndsWell(pid_t child) {
  const auto limit = std::chrono::steady_clock::now() + kPatience;
  for (;;) {
    int status = 0;
    const pid_t ended = ::waitpid(child, &status, WNOHANG);
    if (ended == child) return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (ended < 0 && errno != EINTR) return false;
    if (std::chrono::steady_clock::now() > limit) {
      // It starts others, which are of its group.
      ::kill(-child, SIGKILL);
      ::waitpid(child, &status, 0);
      return false;
    }
    std::this_thread::sleep_for(kBetweenLooks);
  }
}

bool RunQuietly(std::vector<std::string> arguments) {
  std::vector<char*> texts;
  for (std::string& argument : arguments) texts.push_back(argument.data());
  texts.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawnattr_init(&attributes);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    ::posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
  }
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
  pid_t child = 0;
  const int error =
      ::posix_spawn(&child, texts.front(), &actions, &attributes, texts.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  ::posix_spawnattr_destroy(&attributes);
  return error == 0 && EndsWell(child);
}

}  // namespace

std::vector<std::string> ProgramFolders() {
  const char* path = std::getenv("PATH");
  std::string_view rest = path == nullptr ? "/usr/local/bin:/usr/bin:/bin" : path;
  std::vector<std::string> folders;
  while (!rest.empty()) {
    const std::size_t end = rest.find(':');
    // What is relative depends on where the program was started.
    if (rest.starts_with('/')) folders.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return folders;
}

SpreadsheetProgram::SpreadsheetProgram(const std::vector<std::string>& folders) {
  for (const std::string& folder : folders) {
    for (const std::string_view name : kPrograms) {
      const std::string path = folder + "/" + std::string(name);
      if (::access(path.c_str(), X_OK) != 0 || !path_.empty()) continue;
      path_ = path;
    }
  }
}

std::string SpreadsheetProgram::Convert(const std::string& workbook,
                                        const std::string& extension) const {
  const WorkFolder folder;
  SystemFiles().WriteNew(folder.Path("list.xlsx"), workbook);
  // A profile of its own: the person may have the program open, and their settings are theirs.
  const bool isDone = RunQuietly({path_, "-env:UserInstallation=file://" + folder.Path("profile"),
                                  "--headless", "--norestore", "--convert-to", extension,
                                  "--outdir", folder.Path("out"), folder.Path("list.xlsx")});
  const std::string made = folder.Path("out/list." + extension);
  if (!isDone || !FileExists(made)) throw PlatformError(kNotConverted);
  return ReadFile(made, kLargest);
}

}  // namespace corvanta::inline platform
