#include "platform/Files.h"

#include "platform/FileHandle.h"
#include "platform/FileIdentity.h"
#include "platform/PlatformError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace corvanta::inline platform {
namespace {

std::string FolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

void SyncPath(const std::string& path, int flags) {
  // Without waiting, as somebody's pipe may be what is moved out of the way.
  const FileHandle file(::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen()) throw SystemError("Cannot open", path, errno);
  // Some file systems know no syncing of folders; they say so with EINVAL.
  if (::fsync(file.Get()) != 0 && errno != EINVAL) throw SystemError("Cannot save", path, errno);
}

void SyncFolder(const std::string& path) {
  SyncPath(path, O_RDONLY | O_DIRECTORY);
}

void WriteFully(int descriptor, std::string_view text, const std::string& path) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) throw SystemError("Cannot write", path, errno);
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

void RequireOrdinary(const FileHandle& file, const std::string& path) {
  struct stat status {};
  if (::fstat(file.Get(), &status) != 0) throw SystemError("Cannot read", path, errno);
  if (S_ISDIR(status.st_mode)) throw SystemError("Cannot read", path, EISDIR);
  if (S_ISREG(status.st_mode)) return;
  throw PlatformError("Cannot read " + path +
                      ": it is a pipe or a device. Put an ordinary file in its place.");
}

// Removes the file unless it was kept: a failed write leaves nothing behind.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target)
      : target_(target), path_(target + ".tmp.XXXXXX") {
    file_ = FileHandle(::mkostemp(path_.data(), O_CLOEXEC));
    if (!file_.IsOpen()) throw SystemError("Cannot create a file beside", target, errno);
  }
  ~TemporaryFile() {
    if (!kept_) ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void WriteAndSync(std::string_view text) {
    WriteFully(file_.Get(), text, target_);
    if (::fsync(file_.Get()) != 0 || !file_.Close())
      throw SystemError("Cannot save", target_, errno);
  }
  void MoveOver(const std::string& target) {
    if (std::rename(path_.c_str(), target.c_str()) != 0) {
      throw SystemError("Cannot replace", target, errno);
    }
    kept_ = true;
  }
  // Never over anything, however lately it came.
  void MoveTo(const std::string& target) {
    if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) {
      kept_ = true;
    } else if (errno == EINVAL || errno == ENOSYS) {
      // The file system knows no such renaming; another name for the file does the same.
      if (::link(path_.c_str(), target.c_str()) != 0) ThrowNotNew(target, errno);
    } else {
      ThrowNotNew(target, errno);
    }
  }

 private:
  [[noreturn]] static void ThrowNotNew(const std::string& target, int code) {
    if (code != EEXIST) throw SystemError("Cannot write", target, code);
    throw FileRefused("There is a file " + target + " already. It was left as it is.");
  }

  std::string target_;  // whose name a person knows
  std::string path_;
  FileHandle file_;
  bool kept_ = false;
};

PlatformError NoPlace(const std::string& path, const std::string& why) {
  return PlatformError("Cannot write " + path + ": " + why + " Choose another name.");
}

// The file that is to be replaced: of a link what it points to.
std::string TargetOf(const std::string& path) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0) return path;
  if (!S_ISLNK(status.st_mode)) {
    if (!S_ISREG(status.st_mode)) throw NoPlace(path, "this is no ordinary file.");
    return path;
  }
  // In a folder that many may write to, a link may be a trap.
  if (status.st_uid != ::geteuid()) throw NoPlace(path, "this is a link of another user.");
  std::error_code error;
  const std::string target = std::filesystem::canonical(path, error).string();
  if (error) throw NoPlace(path, "this is a link that leads nowhere.");
  if (!std::filesystem::is_regular_file(target, error)) {
    throw NoPlace(path, "this is a link to something that is no ordinary file.");
  }
  return target;
}

}  // namespace

void Files::Save(const std::string& path, std::string_view text, FormerFile former) {
  own_.RequireOther(path);
  if (former == FormerFile::Replace) {
    WriteAtomically(path, text);
  } else {
    WriteNew(path, text);
  }
}

void SystemFiles::Replace(const std::string& from, const std::string& to) {
  SyncPath(from, O_RDONLY);
  // What was removed beside the old file, such as its journal, must not come back to the new one.
  SyncFolder(FolderOf(to));
  if (std::rename(from.c_str(), to.c_str()) != 0) throw SystemError("Cannot replace", to, errno);
  SyncFolder(FolderOf(to));
  if (FolderOf(from) != FolderOf(to)) SyncFolder(FolderOf(from));
}

void SystemFiles::Remove(const std::string& path) {
  if (::unlink(path.c_str()) == 0) {
    SyncFolder(FolderOf(path));
  } else if (errno != ENOENT && errno != ENOTDIR) {
    throw SystemError("Cannot remove", path, errno);
  }
}

void SystemFiles::CreateFolder(const std::string& path) {
  if (path.empty() || FolderExists(path)) return;
  const std::string trimmed = path.back() == '/' ? path.substr(0, path.size() - 1) : path;
  const std::string above = FolderOf(trimmed);
  CreateFolder(above);
  if (::mkdir(trimmed.c_str(), 0700) != 0) {
    if (errno == EEXIST && FolderExists(trimmed)) return;
    throw SystemError("Cannot create the folder", trimmed, errno);
  }
  SyncFolder(above);
}

void SystemFiles::WriteAtomically(const std::string& path, std::string_view text) {
  const std::string target = TargetOf(path);
  TemporaryFile file(target);
  file.WriteAndSync(text);
  file.MoveOver(target);
  SyncFolder(FolderOf(target));
}

void SystemFiles::WriteNew(const std::string& path, std::string_view text) {
  TemporaryFile file(path);
  file.WriteAndSync(text);
  file.MoveTo(path);
  SyncFolder(FolderOf(path));
}

std::optional<FileIdentity> IdentityOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

bool FileExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool FolderExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string ReadFile(const std::string& path, std::size_t limit) {
  // Without waiting: a pipe that nobody writes to would never open, and a terminal never end.
  const FileHandle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file.IsOpen()) throw SystemError("Cannot open", path, errno);
  RequireOrdinary(file, path);
  std::string text;
  std::array<char, 16384> buffer;
  for (;;) {
    const ssize_t count = ::read(file.Get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw SystemError("Cannot read", path, errno);
    if (count == 0) return text;
    if (text.size() + static_cast<std::size_t>(count) > limit) {
      throw PlatformError("The file " + path +
                          " is too large to be read. Nothing was changed. Choose another file.");
    }
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

bool IsReadOnly(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return false;
  struct statvfs volume {};
  if (::statvfs(path.c_str(), &volume) == 0 && (volume.f_flag & ST_RDONLY) != 0) return true;
  return (status.st_mode & S_IWUSR) == 0 || ::access(path.c_str(), W_OK) != 0;
}

}  // namespace corvanta::inline platform
