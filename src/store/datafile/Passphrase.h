// A data file may be protected with a passphrase of its owner's in the place of an installation's
// key: it opens wherever that is typed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline datafile {

// True when the file begins as one that a passphrase opens; false where there is none.
[[nodiscard]] bool WantsPassphrase(const std::string& path);
// True for a password that was made from a passphrase.
[[nodiscard]] bool IsFromPassphrase(std::string_view password);

// The password of a data file that is to be protected with the passphrase from now on: another one
// at each call. Slow on purpose (Argon2id, RFC 9106, with 256 MB, about half a second), so that
// guessing is. It does not matter how a letter with an accent was typed. Throws PlatformError
// without the memory for it.
[[nodiscard]] std::string NewPasswordFromPassphrase(std::string_view passphrase);
// The password that the passphrase gives for that file, right or wrong; nullopt where no passphrase
// is wanted. As slow, and throws as above.
[[nodiscard]] std::optional<std::string> PasswordFromPassphrase(std::string_view passphrase,
                                                                const std::string& path);

}  // namespace corvanta::inline datafile
