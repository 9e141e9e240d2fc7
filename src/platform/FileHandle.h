#pragma once

#include <unistd.h>

#include <utility>

namespace corvanta::inline platform {

// Owns a file descriptor and closes it.
class FileHandle {
 public:
  explicit FileHandle(int descriptor = -1) : descriptor_(descriptor) {}
  ~FileHandle() { Close(); }
  FileHandle(FileHandle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    if (this != &other) {
      Close();
      descriptor_ = std::exchange(other.descriptor_, -1);
    }
    return *this;
  }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
  [[nodiscard]] int Get() const { return descriptor_; }
  // False when the system reports that a write before was lost.
  bool Close() {
    const int descriptor = std::exchange(descriptor_, -1);
    return descriptor < 0 || ::close(descriptor) == 0;
  }

 private:
  int descriptor_;
};

}  // namespace corvanta::inline platform
