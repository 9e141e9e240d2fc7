#include "platform/Machine.h"

#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "platform/TextCase.h"

#include <sodium.h>

#include <array>
#include <string>

namespace corvanta::inline platform {
namespace {

std::string ReadIdentity() {
  for (const char* path : {"/etc/machine-id", "/var/lib/dbus/machine-id"}) {
    try {
      const std::string text = ReadFile(path, 4096);
      if (const auto identity = Trim(text); !identity.empty()) return std::string(identity);
    } catch (const PlatformError&) {
      // Absent in containers and on other systems: the next place may have it.
    }
  }
  return {};
}

}  // namespace

std::uint64_t SystemMachineValue::Read() const {
  // Hashed together with the program's name: the identity itself is not to leave the machine.
  const std::string identity = ReadIdentity();
  if (identity.empty()) return 1;
  const std::string text = "corvanta machine value:" + identity;
  std::array<unsigned char, crypto_generichash_BYTES> hash{};
  crypto_generichash(hash.data(), hash.size(), reinterpret_cast<const unsigned char*>(text.data()),
                     text.size(), nullptr, 0);
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) value = value << 8U | hash[i];
  value &= 0x7FFFFFFFU;
  return value == 0 ? 1 : value;
}

}  // namespace corvanta::inline platform
