#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvanta {

struct Platform;

// This installation's database password: 64 hexadecimal digits, made from 256 random bits and the
// machine value, both drawn at the first call and kept owner-only in the profile, so that a changed
// machine does not lock its owner out. Throws PlatformError when the profile cannot be read or
// written, or when its key file is damaged (a damaged one is never replaced).
[[nodiscard]] std::string InstallationPassword(Platform& platform);
// Whether the key has been drawn already. Creates nothing.
[[nodiscard]] bool HasInstallationKey(const Platform& platform);

// The password in a form to write down: groups of letters and digits with a checksum. Empty when
// the password is not one of an installation.
[[nodiscard]] std::string RecoveryKeyFromPassword(std::string_view password);
// The password of a typed recovery key (blanks, dashes and case do not matter, O and 0, I, L and 1
// are the same); nullopt when it is mistyped.
[[nodiscard]] std::optional<std::string> PasswordFromRecoveryKey(std::string_view key);

}  // namespace corvanta
