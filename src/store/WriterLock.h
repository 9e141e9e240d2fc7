#pragma once

#include "platform/FileHandle.h"

#include <memory>
#include <string>

namespace corvanta {

// The right to write a data file, held by one program at a time. It is a small locked file beside
// the data file that names its holder; it goes with its holder, also when that one crashes.
class WriterLock {
 public:
  // Takes the lock for `holder` ("the Corvanta window", "corvanta-cli add"). Throws
  // StoreError(Locked), whose text names the present holder, or StoreError(ReadOnly).
  static std::unique_ptr<WriterLock> Acquire(const std::string& dataFilePath,
                                             const std::string& holder);
  ~WriterLock();
  WriterLock(const WriterLock&) = delete;
  WriterLock& operator=(const WriterLock&) = delete;

 private:
  WriterLock(std::string path, FileHandle file);
  std::string path_;
  FileHandle file_;
};

}  // namespace corvanta
