#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// This installation's database password: 64 hexadecimal digits, made from 256 random bits and the
// machine value, both drawn at the first call and kept owner-only in the profile, so that a changed
// machine does not lock its owner out. To be called where a data file is made or taken over: a key
// drawn anywhere else opens nothing. Throws PlatformError when the profile cannot be read or
// written, or when its key file is damaged (a damaged one is never replaced).
[[nodiscard]] std::string InstallationPassword(Platform& platform);
// The same without drawing: nullopt where there is no key, as on a new machine and where it was
// lost. Throws as above.
[[nodiscard]] std::optional<std::string> FindInstallationPassword(const Platform& platform);
// Where the key is kept.
[[nodiscard]] std::string InstallationKeyPath(const Platform& platform);
// The password of an installation by the text of its key file; nullopt for any other text.
[[nodiscard]] std::optional<std::string> PasswordFromInstallationKey(const std::string& text);

// The password in a form to write down: groups of letters and digits with a checksum. Empty when
// the password is not one of an installation.
[[nodiscard]] std::string RecoveryKeyFromPassword(std::string_view password);
// The password of a typed recovery key (blanks, dashes and case do not matter, O and 0, I, L and 1
// are the same); nullopt when it is mistyped.
[[nodiscard]] std::optional<std::string> PasswordFromRecoveryKey(std::string_view key);

}  // namespace corvanta::inline datafile
