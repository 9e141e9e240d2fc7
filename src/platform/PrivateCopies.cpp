#include "platform/PrivateCopies.h"

#include "platform/FileHandle.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <optional>

namespace corvanta::inline platform {
namespace {

namespace fs = std::filesystem;

// The time of a copy that nobody has written to.
constexpr std::array<timespec, 2> kUntouched{timespec{1, 0}, timespec{1, 0}};
constexpr std::size_t kLongestName = 200;  // bytes

// Whether somebody has written to the copy. What another program puts beside it for its own use is
// hidden, and a copy that was only to be looked at is write-protected.
bool IsChanged(const fs::path& path) {
  struct stat status {};
  if (path.filename().string().starts_with('.') || ::stat(path.c_str(), &status) != 0) return false;
  return (status.st_mode & S_IWUSR) != 0 && status.st_mtim.tv_sec != kUntouched[1].tv_sec;
}

// Best effort: what the disk itself has kept of it nobody can reach from here.
void Overwrite(const std::string& path) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
  ::chmod(path.c_str(), S_IRUSR | S_IWUSR);
  const FileHandle file(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW));
  if (file.IsOpen() && ::fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode)) {
    static constexpr std::array<char, 16384> kNothing{};
    for (off_t left = status.st_size; left > 0;) {
      const auto part = std::min<std::size_t>(kNothing.size(), static_cast<std::size_t>(left));
      const ssize_t written = ::write(file.Get(), kNothing.data(), part);
      if (written <= 0) break;
      left -= written;
    }
    ::fsync(file.Get());
  }
}

std::vector<fs::path> EntriesOf(const fs::path& folder) {
  std::error_code error;
  std::vector<fs::path> entries;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    entries.push_back(entry->path());
  }
  return entries;
}

// With what other programs have put beside the copy.
void WipeFolder(const fs::path& folder) {
  for (const fs::path& file : EntriesOf(folder)) Overwrite(file.string());
  std::error_code error;
  fs::remove_all(folder, error);
}

// What was saved beside the copy under a name of its own is somebody's work: it stays, and the next
// Sweep finds it.
void WipeCopy(const fs::path& path) {
  const fs::path folder = path.parent_path();
  const std::vector<fs::path> entries = EntriesOf(folder);
  const bool hasWork = std::ranges::any_of(
      entries, [&](const fs::path& entry) { return entry != path && IsChanged(entry); });
  if (!hasWork) return WipeFolder(folder);
  Overwrite(path.string());
  std::error_code error;
  fs::remove(path, error);
}

// "1234-1": the program that made it; nullopt for a folder of another kind.
std::optional<pid_t> OwnerOf(const std::string& folder) {
  const std::size_t end = folder.find('-');
  pid_t owner = 0;
  const auto [last, error] = std::from_chars(folder.data(), folder.data() + folder.size(), owner);
  const bool isNumber =
      error == std::errc() && end != std::string::npos && last == folder.data() + end && owner > 0;
  return isNumber ? std::optional(owner) : std::nullopt;
}

bool IsAlive(pid_t owner) {
  return owner == ::getpid() || ::kill(owner, 0) == 0 || errno == EPERM;
}

std::string NameOf(const std::string& name) {
  std::string clean;
  for (const char letter : fs::path(name).filename().string()) {
    const bool isHarmless = static_cast<unsigned char>(letter) >= ' ' && letter != 0x7f;
    if (isHarmless) clean += letter;
  }
  clean.erase(0, clean.find_first_not_of('.'));
  if (clean.empty()) return "attachment";
  // The ending says which program is for it.
  if (clean.size() > kLongestName) clean.erase(0, clean.size() - kLongestName);
  while (!clean.empty() && (static_cast<unsigned char>(clean.front()) & 0xC0U) == 0x80U) {
    clean.erase(0, 1);
  }
  return clean;
}

}  // namespace

PrivateCopies::~PrivateCopies() {
  for (const std::string& path : paths_) WipeCopy(path);
}

std::string PrivateCopies::Put(const std::string& name, const std::string& bytes,
                               bool isToBeChanged) {
  SystemFiles files;
  files.CreateFolder(folder_);
  const std::string own =
      folder_ + '/' + std::to_string(::getpid()) + '-' + std::to_string(++made_);
  files.CreateFolder(own);
  const std::string path = own + '/' + NameOf(name);
  files.WriteNew(path, bytes);
  paths_.push_back(path);
  if (!isToBeChanged) ::chmod(path.c_str(), S_IRUSR);
  if (::utimensat(AT_FDCWD, path.c_str(), kUntouched.data(), 0) != 0) {
    throw SystemError("Cannot write", path, errno);
  }
  return path;
}

void PrivateCopies::Release(const std::string& path) {
  std::erase(paths_, path);
}

std::vector<std::string> PrivateCopies::Sweep() {
  std::vector<std::string> kept;
  for (const fs::path& folder : EntriesOf(folder_)) {
    const auto owner = OwnerOf(folder.filename().string());
    if (!owner || IsAlive(*owner)) continue;
    fs::path place = folder;
    const std::vector<fs::path> copies = EntriesOf(folder);
    if (std::ranges::none_of(copies, IsChanged)) {
      WipeFolder(folder);
      continue;
    }
    place.replace_filename("kept-" + folder.filename().string());
    std::error_code error;
    fs::rename(folder, place, error);
    if (error) continue;
    for (const fs::path& copy : copies) {
      if (IsChanged(place / copy.filename())) kept.push_back((place / copy.filename()).string());
    }
  }
  return kept;
}

}  // namespace corvanta::inline platform
