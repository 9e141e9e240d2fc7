#include "ledger/LoginPassword.h"

#include "platform/TextCase.h"
#include "store/Connection.h"
#include "store/SqlText.h"
#include "store/StoreError.h"

#include <sodium.h>

#include <array>
#include <cstring>
#include <optional>

namespace corvanta {
namespace {

// The column holds 50 characters: this mark and 48 of base64, which are a salt and a short hash.
constexpr std::string_view kMark = "1$";
constexpr std::size_t kHashSize = 20;
constexpr std::size_t kPackedSize = crypto_pwhash_SALTBYTES + kHashSize;
constexpr int kBase64 = sodium_base64_VARIANT_ORIGINAL;
constexpr std::size_t kTextSize = 48;
static_assert(sodium_base64_ENCODED_LEN(kPackedSize, kBase64) == kTextSize + 1);

using Packed = std::array<unsigned char, kPackedSize>;

// Fills in the hash behind the salt.
void FillHash(Packed& packed, std::string_view password) {
  // The library wants an address for an empty text, too.
  if (password.data() == nullptr) password = "";
  const int result =
      crypto_pwhash(packed.data() + crypto_pwhash_SALTBYTES, kHashSize, password.data(),
                    password.size(), packed.data(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                    crypto_pwhash_MEMLIMIT_INTERACTIVE, crypto_pwhash_ALG_ARGON2ID13);
  if (result != 0) {
    throw StoreError(StoreErrorCode::Io,
                     "There is not enough memory to check the password. Close other programs and "
                     "try again.");
  }
}

void StartSodium() {
  if (sodium_init() < 0) {
    throw StoreError(StoreErrorCode::Io, "The system gives no random numbers.");
  }
}

std::optional<Packed> Unpack(std::string_view stored) {
  if (stored.size() != kMark.size() + kTextSize || !stored.starts_with(kMark)) return std::nullopt;
  Packed packed;
  std::size_t size = 0;
  stored.remove_prefix(kMark.size());
  const int result = sodium_base642bin(packed.data(), packed.size(), stored.data(), stored.size(),
                                       nullptr, &size, nullptr, kBase64);
  if (result != 0 || size != packed.size()) return std::nullopt;
  return packed;
}

std::string HashedText(std::string_view password) {
  StartSodium();
  Packed packed;
  randombytes_buf(packed.data(), crypto_pwhash_SALTBYTES);
  FillHash(packed, password);
  std::array<char, kTextSize + 1> text{};
  sodium_bin2base64(text.data(), text.size(), packed.data(), packed.size(), kBase64);
  return std::string(kMark) + text.data();
}

bool HashMatches(const Packed& stored, std::string_view password) {
  StartSodium();
  Packed typed = stored;
  FillHash(typed, password);
  return sodium_memcmp(typed.data(), stored.data(), typed.size()) == 0;
}

}  // namespace

bool LoginPassword::IsSet() {
  return !Stored().empty();
}

bool LoginPassword::Matches(std::string_view typed) {
  const std::string stored = Stored();
  const std::string_view password = Trim(typed);
  if (const std::optional<Packed> packed = Unpack(stored)) return HashMatches(*packed, password);
  return Trim(stored) == password;
}

bool LoginPassword::Accept(std::string_view typed) {
  const std::string stored = Stored();
  if (!stored.empty() && !Matches(typed)) return false;
  if (!Unpack(stored)) Set(typed);
  return true;
}

void LoginPassword::Set(std::string_view password) {
  const std::string_view trimmed = Trim(password);
  Store(trimmed.empty() ? std::string() : HashedText(trimmed));
}

std::string LoginPassword::Stored() {
  return connection_.QueryValue("Select [Password] from tblVerification").Text();
}

void LoginPassword::Store(const std::string& text) {
  connection_.Execute("UPDATE tblVerification SET [Password] = " + SqlText(text));
}

}  // namespace corvanta
