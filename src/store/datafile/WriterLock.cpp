#include "store/datafile/WriterLock.h"

#include "platform/FileHandle.h"
#include "platform/Files.h"
#include "store/sql/FailureText.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <thread>
#include <utility>

namespace corvanta::inline datafile {
namespace {

std::string HostName() {
  std::array<char, 256> name{};
  if (::gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
}

std::string ReadHolder(int descriptor) {
  std::array<char, 1024> buffer{};
  const ssize_t count = ::pread(descriptor, buffer.data(), buffer.size(), 0);
  const std::size_t size = count > 0 ? static_cast<std::size_t>(count) : 0;
  std::istringstream lines(std::string(buffer.data(), size));
  std::string holder;
  std::string process;
  std::string host;
  std::getline(lines, holder);
  std::getline(lines, process);
  std::getline(lines, host);
  // The holder has the lock before it has written its name.
  if (holder.empty()) return "another program";
  if (!process.empty()) holder += " (process " + process;
  if (!process.empty() && !host.empty() && host != HostName()) holder += " on " + host;
  return process.empty() ? holder : holder + ")";
}

[[noreturn]] void ThrowOpenError(int error, const std::string& dataFilePath) {
  const std::string folder = std::filesystem::path(dataFilePath).parent_path().string();
  const std::string reason = std::string(" (") + std::strerror(error) + ").";
  StoreErrorCode code = StoreErrorCode::ReadOnly;
  std::string happened = "The folder " + folder + " cannot be written to" + reason;
  if (error == ENOSPC || error == EDQUOT) {
    code = StoreErrorCode::DiskFull;
    happened = "The disk is full" + reason;
  } else if (error == ENOENT || error == ENOTDIR) {
    code = StoreErrorCode::Missing;
    happened = "The folder " + folder + " could not be found" + reason;
  }
  throw StoreError(code, FailureText(code, happened), {}, dataFilePath);
}

// The one that holds the lock removes the file when it is done, so the name may by now stand for
// another file, or for none.
bool IsStillNamed(int descriptor, const std::string& path) {
  struct stat held {};
  struct stat named {};
  return ::fstat(descriptor, &held) == 0 && ::stat(path.c_str(), &named) == 0 &&
         held.st_ino == named.st_ino && held.st_dev == named.st_dev;
}

// A courtesy to others: on a full disk the name finds no room, and what is on it must still be
// shown.
void WriteHolder(int descriptor, const std::string& holder) {
  const std::string text = holder + "\n" + std::to_string(::getpid()) + "\n" + HostName() + "\n";
  if (::ftruncate(descriptor, 0) != 0) return;
  if (::pwrite(descriptor, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()))
    return;
  // Half a name would be taken for one.
  [[maybe_unused]] const int emptied = ::ftruncate(descriptor, 0);
}

// Who may write the data file may lock it, also where another user has left the file behind. To
// lock it, reading it is enough: it is opened to all where its owner cannot be the data file's.
// `model` is what may be written: the data file, or the folder where there is none yet.
void ShareWithWriters(int descriptor, const std::string& model) {
  struct stat own {};
  struct stat other {};
  if (::fstat(descriptor, &own) != 0 || ::stat(model.c_str(), &other) != 0) return;
  constexpr uid_t kSame = static_cast<uid_t>(-1);
  const bool isOwner = own.st_uid == other.st_uid || ::fchown(descriptor, other.st_uid, kSame) == 0;
  const bool isGroup = own.st_gid == other.st_gid || ::fchown(descriptor, kSame, other.st_gid) == 0;
  mode_t mode = S_IRUSR | S_IWUSR;
  if ((other.st_mode & S_IWGRP) != 0) mode |= isGroup ? S_IRGRP | S_IWGRP : S_IRGRP | S_IROTH;
  if ((other.st_mode & S_IWOTH) != 0) mode |= S_IRGRP | S_IROTH | S_IWOTH;
  if (!isOwner) mode |= S_IRGRP | S_IROTH;
  // Where the file system knows no such rights, the file is as it came.
  [[maybe_unused]] const int isShared = ::fchmod(descriptor, mode);
}

struct LockFile {
  FileHandle file;
  bool isReadOnly = false;  // another user's, and to be locked, not written
  int error = 0;            // why it is not open
};

LockFile OpenLockFile(const std::string& path, const std::string& model) {
  constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW;
  for (;;) {
    // Without O_CREAT, with which some folders open no file of another user.
    LockFile lock{FileHandle(::open(path.c_str(), O_RDWR | kFlags))};
    if (!lock.file.IsOpen() && errno == EACCES) {
      lock = {FileHandle(::open(path.c_str(), O_RDONLY | kFlags)), true};
    }
    if (!lock.file.IsOpen() && errno == ENOENT) {
      lock = {FileHandle(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | kFlags, 0600))};
      if (lock.file.IsOpen()) ShareWithWriters(lock.file.Get(), model);
      if (!lock.file.IsOpen() && errno == EEXIST) continue;
    }
    if (!lock.file.IsOpen()) lock.error = errno;
    return lock;
  }
}

std::string Refusal(LockedName name, const std::string& holder) {
  if (name == LockedName::DataFile) {
    return "The data file is in use by " + holder + ".";
  }
  return "Another data file of this folder is being made or validated by " + holder + ".";
}

// A lock file that cannot even be read, as no program of now leaves it: whether somebody holds it
// cannot be known.
[[noreturn]] void ThrowOthers(LockedName name, const std::string& lockPath,
                              const std::string& path) {
  throw StoreError(
      StoreErrorCode::Locked,
      FailureText(StoreErrorCode::Locked, Refusal(name, "another user of this computer")) +
          " Where nobody has it open, remove the file " + lockPath + " that was left behind.",
      {}, path);
}

// The wait for a lock, in short pauses. What counts is the time that was waited through, so that
// it needs no clock.
class Turn {
 public:
  explicit Turn(const Patience& patience) : patience_(patience) {}

  // Waits a moment; false when the patience is at its end.
  bool Wait() {
    constexpr std::chrono::milliseconds kPause{20};
    if (waited_ >= patience_.longest) return false;
    const std::chrono::milliseconds pause = std::min(kPause, patience_.longest - waited_);
    if (patience_.pause) {
      patience_.pause(pause);
    } else {
      std::this_thread::sleep_for(pause);
    }
    waited_ += pause;
    return true;
  }

 private:
  const Patience& patience_;
  std::chrono::milliseconds waited_{0};
};

}  // namespace

std::string WriterLock::PathOf(const std::string& dataFile) {
  std::error_code ignored;
  std::filesystem::path file = std::filesystem::weakly_canonical(dataFile, ignored);
  if (file.empty()) file = dataFile;
  return (file.parent_path() / ("." + file.filename().string() + ".lock")).string();
}

std::unique_ptr<WriterLock> WriterLock::Acquire(const std::string& path, const Writer& writer,
                                                LockedName name) {
  if (name == LockedName::DataFile && IsReadOnly(path)) {
    throw StoreError(
        StoreErrorCode::ReadOnly,
        path + "\n" + FailureText(StoreErrorCode::ReadOnly, "This data file is read-only."), {},
        path);
  }
  const std::string lockPath = PathOf(path);
  const std::string folder = std::filesystem::path(lockPath).parent_path().string();
  const bool isOfFile = name == LockedName::DataFile && FileExists(path);
  Turn turn(writer.patience);
  for (;;) {
    LockFile lock = OpenLockFile(lockPath, isOfFile ? path : folder);
    if (lock.error != 0) {
      const bool isOthers = lock.error == EACCES && ::access(lockPath.c_str(), F_OK) == 0;
      if (!isOthers) ThrowOpenError(lock.error, path);
      if (turn.Wait()) continue;
      ThrowOthers(name, lockPath, path);
    }
    const int descriptor = lock.file.Get();
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
      if (errno == EINTR) continue;
      if (errno == EBADF && lock.isReadOnly) ThrowOthers(name, lockPath, path);
      if (errno != EWOULDBLOCK) ThrowOpenError(errno, path);
      if (turn.Wait()) continue;
      throw StoreError(StoreErrorCode::Locked,
                       FailureText(StoreErrorCode::Locked, Refusal(name, ReadHolder(descriptor))),
                       {}, path);
    }
    if (!IsStillNamed(descriptor, lockPath)) continue;
    // Left behind by a killed program of another user. Whoever holds it may remove it, and makes
    // one that bears a name; where the folder forbids that, it is as good without.
    if (lock.isReadOnly && ::unlink(lockPath.c_str()) == 0) continue;
    if (!lock.isReadOnly) WriteHolder(descriptor, writer.name);
    return std::unique_ptr<WriterLock>(new WriterLock(lockPath, std::move(lock.file)));
  }
}

std::unique_ptr<WriterLock> WriterLock::Acquire(const std::string& path,
                                                const std::string& holder) {
  return Acquire(path, Writer{holder, {}});
}

WriterLock::WriterLock(std::string path, FileHandle file)
    : path_(std::move(path)), file_(std::move(file)) {}

WriterLock::~WriterLock() {
  ::unlink(path_.c_str());
}

}  // namespace corvanta::inline datafile
