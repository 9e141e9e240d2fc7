#pragma once

#include <optional>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// The password that a key text stands for: the contents of a transfer file, of the key file of an
// installation or of a saved recovery key, or a recovery key as typed. nullopt when it holds none,
// or one with a slip in it.
[[nodiscard]] std::optional<std::string> PasswordFromKey(const std::string& text);

// True when the password opens the data file. Throws StoreError for any other refusal.
[[nodiscard]] bool OpensWith(const std::string& path, const std::string& password,
                             Platform& platform);

}  // namespace corvanta::inline datafile
