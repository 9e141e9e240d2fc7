#pragma once

#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline safety {

// Writes a transfer file: the key of the data file, which that password is, and the person's
// settings. Whoever has it and the data file can read the accounts, so it is written where a person
// asks for it, and never beside the data file in use: that is refused, with StoreError(Sql). Throws
// PlatformError.
void WriteTransfer(const std::string& path, const std::string& dataFile,
                   const std::string& password, Platform& platform);

}  // namespace corvanta::inline safety
