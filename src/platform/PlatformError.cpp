#include "platform/PlatformError.h"

#include <cerrno>
#include <system_error>

namespace corvanta::inline platform {
namespace {

const char* AdviceFor(int code) {
  switch (code) {
    case ENOSPC:
    case EDQUOT:
      return "Free some space and try again.";
    case EACCES:
    case EPERM:
    case EROFS:
      return "Check the permissions of the file and of its folder, and try again.";
    case ENOENT:
    case ENOTDIR:
      return "Check the path and try again.";
    case EISDIR:
      return "A folder has this name: move it away, or name a file.";
    case ENAMETOOLONG:
      return "Choose a shorter name.";
    case EMFILE:
    case ENFILE:
    case ENOMEM:
      return "Close other programs and try again.";
    default:
      return "Check the disk and try again.";
  }
}

}  // namespace

PlatformError SystemError(const std::string& what, const std::string& path, int code) {
  return PlatformError(what + " " + path + ": " + std::generic_category().message(code) +
                       ". Nothing was changed. " + AdviceFor(code));
}

}  // namespace corvanta::inline platform
