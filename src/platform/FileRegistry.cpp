#include "platform/FileRegistry.h"

#include "platform/FileHandle.h"
#include "platform/PlatformError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace corvanta::inline platform {
namespace {

constexpr std::size_t kLargestFile = 16U << 20U;
constexpr auto kLockPatience = std::chrono::seconds(5);
// Two writes within one tick of the file system's clock can leave equal stamps, so a younger
// file is read again. One from the future was not written just now.
constexpr std::int64_t kSettledAfter = 100'000'000;  // nanoseconds

std::int64_t NowNanoseconds() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

// Held while a hive is read, changed and written.
class WriteLock {
 public:
  explicit WriteLock(const std::string& path)
      : file_(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)) {
    if (!file_.IsOpen()) throw SystemError("Cannot lock the settings with", path, errno);
    const auto end = std::chrono::steady_clock::now() + kLockPatience;
    while (::flock(file_.Get(), LOCK_EX | LOCK_NB) != 0) {
      if (errno != EWOULDBLOCK && errno != EINTR) {
        throw SystemError("Cannot lock the settings with", path, errno);
      }
      if (std::chrono::steady_clock::now() > end) {
        throw PlatformError("The settings are being written by another program (" + path +
                            " is locked). Nothing was changed. Please try again.");
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  }

 private:
  FileHandle file_;
};

}  // namespace

FileRegistry::FileRegistry(std::string userFile, std::string machineFile, Files& files)
    : files_(files) {
  hives_[0].file = std::move(userFile);
  hives_[1].file = std::move(machineFile);
}

FileRegistry::Stamp FileRegistry::StampOf(const std::string& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return {};
    throw SystemError("Cannot read the settings in", file, errno);
  }
  return {status.st_dev, status.st_ino, status.st_size,
          status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec};
}

const RegistryText& FileRegistry::Load(Hive hive) const {
  Loaded& loaded = HiveOf(hive);
  const Stamp stamp = StampOf(loaded.file);
  if (loaded.isCurrent && stamp == loaded.stamp) return loaded.text;
  loaded.isCurrent = false;
  RegistryText text;
  if (stamp.size >= 0) {
    const std::string bytes = ReadFile(loaded.file, kLargestFile);
    if (bytes.find('\0') != std::string::npos) {
      throw PlatformError(
          "The settings file " + loaded.file +
          " is damaged (it is no text). It was left as it is. Repair it or move it away.");
    }
    text = RegistryText(bytes);
  }
  loaded.text = std::move(text);
  loaded.stamp = stamp;
  loaded.isCurrent = stamp.size < 0 || std::abs(NowNanoseconds() - stamp.changed) > kSettledAfter;
  return loaded.text;
}

void FileRegistry::Change(Hive hive, const std::function<bool(RegistryText&)>& change) {
  Loaded& loaded = HiveOf(hive);
  // A linked settings file stays a link: its target is what is replaced.
  std::error_code ignored;
  const auto resolved =
      std::filesystem::weakly_canonical(std::filesystem::absolute(loaded.file), ignored);
  const std::string file = ignored ? loaded.file : resolved.string();
  const std::string folder = std::filesystem::path(file).parent_path().string();
  const bool isNewFolder = !FolderExists(folder);
  files_.CreateFolder(folder);
  if (hive == Hive::LocalMachine && isNewFolder && ::chmod(folder.c_str(), 0755) != 0) {
    throw SystemError("Cannot open to all users", folder, errno);
  }
  const WriteLock lock(file + ".lock");
  loaded.isCurrent = false;
  RegistryText text = Load(hive);
  if (!change(text)) return;
  loaded.isCurrent = false;
  Save(hive, file, text.ToText());
}

void FileRegistry::Save(Hive hive, const std::string& file, const std::string& text) {
  if (hive == Hive::CurrentUser) {
    files_.WriteAtomically(file, text);
    return;
  }
  const std::string beside = file + ".new";
  files_.WriteAtomically(beside, text);
  if (::chmod(beside.c_str(), 0644) != 0) throw SystemError("Cannot open to all", beside, errno);
  files_.Replace(beside, file);
}

std::optional<std::string> FileRegistry::Read(Hive hive, std::string_view key,
                                              std::string_view name) const {
  return Load(hive).Read(key, name);
}

void FileRegistry::Write(Hive hive, std::string_view key, std::string_view name,
                         std::string_view value) {
  Change(hive, [&](RegistryText& text) { return text.Write(key, name, value); });
}

void FileRegistry::WriteKeys(Hive hive, const RegistryKeys& keys) {
  Change(hive, [&](RegistryText& text) {
    bool isChanged = false;
    for (const auto& [key, values] : keys) {
      for (const auto& [name, value] : values) isChanged |= text.Write(key, name, value);
    }
    return isChanged;
  });
}

std::vector<std::string> FileRegistry::ValueNames(Hive hive, std::string_view key) const {
  return Load(hive).ValueNames(key);
}

std::vector<std::string> FileRegistry::SubKeys(Hive hive, std::string_view key) const {
  return Load(hive).SubKeys(key);
}

void FileRegistry::DeleteValue(Hive hive, std::string_view key, std::string_view name) {
  if (!Read(hive, key, name)) return;
  Change(hive, [&](RegistryText& text) { return text.DeleteValue(key, name); });
}

void FileRegistry::DeleteKey(Hive hive, std::string_view key) {
  if (StampOf(HiveOf(hive).file).size < 0) return;
  Change(hive, [&](RegistryText& text) { return text.DeleteKey(key); });
}

bool FileRegistry::IsEmpty(Hive hive) const {
  return !Load(hive).HasContent();
}

}  // namespace corvanta::inline platform
