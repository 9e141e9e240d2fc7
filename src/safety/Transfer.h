#pragma once

#include "platform/Files.h"

#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline safety {

// Whether nothing stands there, or a transfer file of the data file that the password opens: such a
// one is replaced by a newer one without a question.
[[nodiscard]] bool IsFreeForTransfer(const std::string& path, const std::string& password);

// Writes a transfer file: the key of the data file, which that password is, and the person's
// settings. Whoever has it and the data file can read the accounts, so it is written where a person
// asks for it, and never beside the data file in use: that is refused, with StoreError(Sql). Where
// it is not free, `former` says what becomes of what stands there. Throws FileRefused and
// PlatformError.
void WriteTransfer(const std::string& path, const std::string& dataFile,
                   const std::string& password, FormerFile former, Platform& platform);

}  // namespace corvanta::inline safety
