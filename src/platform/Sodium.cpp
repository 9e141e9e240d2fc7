#include "platform/Sodium.h"

#include "platform/PlatformError.h"

#include <sodium.h>

namespace corvanta::inline platform {

void StartSodium() {
  if (sodium_init() < 0) {
    throw PlatformError(
        "The cipher library cannot be started: the system gives no random numbers. Nothing was "
        "changed. Restart the computer and try again.");
  }
}

std::string HexOf(const unsigned char* bytes, std::size_t count) {
  std::string text(count * 2 + 1, '\0');
  sodium_bin2hex(text.data(), text.size(), bytes, count);
  text.pop_back();
  return text;
}

}  // namespace corvanta::inline platform
