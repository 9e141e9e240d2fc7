#include "platform/PlatformError.h"

#include <system_error>

namespace corvanta {

PlatformError SystemError(const std::string& what, const std::string& path, int code) {
  return PlatformError(what + " " + path + ": " + std::generic_category().message(code));
}

}  // namespace corvanta
