#include "ledger/secrets/LoginPassword.h"

#include "platform/Sodium.h"
#include "platform/TextCase.h"
#include "store/sql/Catalog.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/StoreError.h"

#include <sodium.h>

#include <array>
#include <cstring>

namespace corvanta::inline ledger {
namespace {

// The column holds 50 characters: a mark and 48 of base64, which are a salt and a short hash. The
// mark says whether the file itself wants to be asked for it; before it did, a setting decided.
constexpr std::string_view kAskedMark = "2$";
constexpr std::string_view kFormerMark = "1$";
constexpr std::size_t kMarkSize = kAskedMark.size();
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

std::optional<Packed> Unpack(std::string_view stored) {
  const bool isMarked = stored.starts_with(kAskedMark) || stored.starts_with(kFormerMark);
  if (stored.size() != kMarkSize + kTextSize || !isMarked) return std::nullopt;
  Packed packed;
  std::size_t size = 0;
  stored.remove_prefix(kMarkSize);
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
  return std::string(kAskedMark) + text.data();
}

bool HashMatches(const Packed& stored, std::string_view password) {
  StartSodium();
  Packed typed = stored;
  FillHash(typed, password);
  return sodium_memcmp(typed.data(), stored.data(), typed.size()) == 0;
}

}  // namespace

std::optional<Warning> CheckNewPassword(std::string_view typed, std::string_view again) {
  if (Trim(typed).empty()) {
    return Warning{kPasswordWarning, "You need to enter a Password", "txtNewPassword"};
  }
  if (Trim(typed) != Trim(again)) {
    return Warning{kPasswordWarning, "The two passwords are not the same. Please type them again",
                   "txtPasswordAgain"};
  }
  return std::nullopt;
}

bool LoginPassword::IsSet() {
  return !Stored().empty();
}

bool LoginPassword::IsAsked() {
  return Stored().starts_with(kAskedMark);
}

void LoginPassword::AskFromNowOn() {
  const std::string stored = Stored();
  if (stored.empty() || IsAsked()) return;
  if (Unpack(stored)) {
    Store(std::string(kAskedMark) + stored.substr(kMarkSize));
  } else {
    Set(stored);
  }
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
  // Reading commands open a file without repairing it: an old one may lack the column.
  const TableDef* table = connection_.Table("tblVerification");
  if (table == nullptr || table->Column("Password") == nullptr) return {};
  return connection_.QueryValue("Select [Password] from tblVerification").Text();
}

void LoginPassword::Store(const std::string& text) {
  connection_.Execute("UPDATE tblVerification SET [Password] = " + SqlText(text));
}

}  // namespace corvanta::inline ledger
