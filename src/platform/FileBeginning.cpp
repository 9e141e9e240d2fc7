#include "platform/FileBeginning.h"

#include "platform/FileHandle.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace corvanta::inline platform {

std::string ReadBeginning(const std::string& path, std::size_t size) {
  const FileHandle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  std::string bytes(size, '\0');
  std::size_t count = 0;
  while (count < size) {
    const ssize_t got = ::read(file.Get(), bytes.data() + count, size - count);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    count += static_cast<std::size_t>(got);
  }
  bytes.resize(count);
  return bytes;
}

}  // namespace corvanta::inline platform
