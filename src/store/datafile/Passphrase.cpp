#include "store/datafile/Passphrase.h"

#include "platform/FileBeginning.h"
#include "platform/PlatformError.h"
#include "platform/Sodium.h"
#include "platform/TextCase.h"
#include "store/sql/engine/Encryption.h"

#include <sodium.h>

#include <algorithm>
#include <array>

namespace corvanta::inline datafile {
namespace {

constexpr std::size_t kKeySize = 32;
// Of the bytes that the file begins with the last ones are a check of the others: they say that it
// is a passphrase which opens it.
constexpr std::size_t kCheckSize = 4;
constexpr std::size_t kDrawnSize = FileKey::kSaltSize - kCheckSize;
constexpr std::string_view kPurpose = "corvanta passphrase salt";

using Salt = std::array<unsigned char, FileKey::kSaltSize>;

void SetCheck(Salt& salt) {
  std::array<unsigned char, crypto_generichash_BYTES> hash{};
  crypto_generichash(hash.data(), hash.size(), salt.data(), kDrawnSize,
                     reinterpret_cast<const unsigned char*>(kPurpose.data()), kPurpose.size());
  std::copy_n(hash.begin(), kCheckSize, salt.begin() + kDrawnSize);
}

std::optional<Salt> SaltOf(const std::string& path) {
  StartSodium();
  Salt salt{};
  const std::string beginning = ReadBeginning(path, salt.size());
  if (beginning.size() < salt.size()) return std::nullopt;
  std::ranges::copy(beginning, salt.begin());
  Salt expected = salt;
  SetCheck(expected);
  return expected == salt ? std::optional(salt) : std::nullopt;
}

std::string Derive(std::string_view passphrase, const Salt& salt) {
  static_assert(crypto_pwhash_SALTBYTES == FileKey::kSaltSize);
  std::string composed = Composed(passphrase);
  std::array<unsigned char, kKeySize> key{};
  const int result = crypto_pwhash(key.data(), key.size(), composed.data(), composed.size(),
                                   salt.data(), crypto_pwhash_OPSLIMIT_MODERATE,
                                   crypto_pwhash_MEMLIMIT_MODERATE, crypto_pwhash_ALG_ARGON2ID13);
  sodium_memzero(composed.data(), composed.size());
  if (result != 0) {
    throw PlatformError(
        "There is not enough memory to check the passphrase, which takes 256 MB. Close other "
        "programs and try again.");
  }
  std::string password = HexOf(key.data(), key.size()) + FileKey::SaltMark(salt);
  sodium_memzero(key.data(), key.size());
  return password;
}

}  // namespace

bool WantsPassphrase(const std::string& path) {
  return SaltOf(path).has_value();
}

bool IsFromPassphrase(std::string_view password) {
  return FileKey::HasSaltMark(password);
}

std::string NewPasswordFromPassphrase(std::string_view passphrase) {
  StartSodium();
  Salt salt{};
  randombytes_buf(salt.data(), kDrawnSize);
  SetCheck(salt);
  return Derive(passphrase, salt);
}

std::optional<std::string> PasswordFromPassphrase(std::string_view passphrase,
                                                  const std::string& path) {
  const std::optional<Salt> salt = SaltOf(path);
  if (!salt) return std::nullopt;
  return Derive(passphrase, *salt);
}

}  // namespace corvanta::inline datafile
