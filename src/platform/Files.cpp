#include "platform/Files.h"

#include "platform/FileHandle.h"
#include "platform/PlatformError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace corvanta {
namespace {

std::string FolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

void SyncPath(const std::string& path, int flags) {
  const FileHandle file(::open(path.c_str(), flags | O_CLOEXEC));
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

// Removes the file unless it was kept: a failed write leaves nothing behind.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target) : path_(target + ".tmp.XXXXXX") {
    file_ = FileHandle(::mkostemp(path_.data(), O_CLOEXEC));
    if (!file_.IsOpen()) throw SystemError("Cannot create a file beside", target, errno);
  }
  ~TemporaryFile() {
    if (!kept_) ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void WriteAndSync(std::string_view text) {
    WriteFully(file_.Get(), text, path_);
    if (::fsync(file_.Get()) != 0 || !file_.Close()) throw SystemError("Cannot save", path_, errno);
  }
  void MoveOver(const std::string& target) {
    if (std::rename(path_.c_str(), target.c_str()) != 0) {
      throw SystemError("Cannot replace", target, errno);
    }
    kept_ = true;
  }

 private:
  std::string path_;
  FileHandle file_;
  bool kept_ = false;
};

}  // namespace

void SystemFiles::Replace(const std::string& from, const std::string& to) {
  SyncPath(from, O_RDONLY);
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
  TemporaryFile file(path);
  file.WriteAndSync(text);
  file.MoveOver(path);
  SyncFolder(FolderOf(path));
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
  const FileHandle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsOpen()) throw SystemError("Cannot open", path, errno);
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

}  // namespace corvanta
