#pragma once

#include "platform/FileHandle.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace corvanta::inline datafile {

// How long one that wants to write waits for another that does, and how it passes the time.
struct Patience {
  std::chrono::milliseconds longest{0};
  std::function<void(std::chrono::milliseconds)> pause;  // empty: the thread sleeps
};

// Who wants to write: "the Corvanta window", "corvanta-cli add".
struct Writer {
  std::string name = "another program";
  Patience patience;
};

enum class LockedName {
  DataFile,
  CompactionTarget  // the name that all data files of a folder are compacted under
};

// The right to write a data file, held by one program at a time. It is a small locked file beside
// the data file that names its holder; it goes with its holder, also when that one crashes.
class WriterLock {
 public:
  // Takes the lock. Throws StoreError(Locked), whose text names the present holder, when it is not
  // free in time, or StoreError(ReadOnly).
  static std::unique_ptr<WriterLock> Acquire(const std::string& path, const Writer& writer,
                                             LockedName name = LockedName::DataFile);
  // The same without waiting.
  static std::unique_ptr<WriterLock> Acquire(const std::string& path, const std::string& holder);
  // The name of the locked file: beside the data file itself, wherever a link to it stands, so that
  // two names of one file share one lock.
  [[nodiscard]] static std::string PathOf(const std::string& dataFile);
  ~WriterLock();
  WriterLock(const WriterLock&) = delete;
  WriterLock& operator=(const WriterLock&) = delete;

 private:
  WriterLock(std::string path, FileHandle file);
  std::string path_;
  FileHandle file_;
};

}  // namespace corvanta::inline datafile
