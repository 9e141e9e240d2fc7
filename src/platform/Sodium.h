// What every use of the cipher library begins and ends with.
#pragma once

#include <cstddef>
#include <string>

namespace corvanta::inline platform {

// To be called before the library is used; costs nothing the second time. Throws PlatformError
// where the system gives no random numbers.
void StartSodium();
// The bytes as lower-case hexadecimal digits.
[[nodiscard]] std::string HexOf(const unsigned char* bytes, std::size_t count);

}  // namespace corvanta::inline platform
