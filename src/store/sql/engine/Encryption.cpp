#include "store/sql/engine/Encryption.h"

#include "platform/Sodium.h"
#include "store/sql/engine/Sqlite.h"

#include <sodium.h>
#include <sqlcipher/sqlite3.h>

#include <optional>

namespace corvanta::inline sql {
namespace {

void Derive(std::string_view password, std::string_view purpose, unsigned char* out,
            std::size_t size) {
  crypto_generichash(out, size, reinterpret_cast<const unsigned char*>(password.data()),
                     password.size(), reinterpret_cast<const unsigned char*>(purpose.data()),
                     purpose.size());
}

constexpr char kMark = '@';
constexpr std::size_t kMarkSize = 1 + 2 * FileKey::kSaltSize;

// The salt that the password names; nullopt where it names none.
std::optional<FileKey::SaltBytes> NamedSalt(std::string_view password) {
  if (password.size() <= kMarkSize) return std::nullopt;
  const std::string_view mark = password.substr(password.size() - kMarkSize);
  if (mark.front() != kMark) return std::nullopt;
  FileKey::SaltBytes salt{};
  std::size_t size = 0;
  const int result = sodium_hex2bin(salt.data(), salt.size(), mark.data() + 1, mark.size() - 1,
                                    nullptr, &size, nullptr);
  return result == 0 && size == salt.size() ? std::optional(salt) : std::nullopt;
}

}  // namespace

std::string FileKey::SaltMark(const SaltBytes& salt) {
  return kMark + HexOf(salt.data(), salt.size());
}

bool FileKey::HasSaltMark(std::string_view password) {
  return NamedSalt(password).has_value();
}

FileKey::FileKey(std::string_view password) {
  std::array<unsigned char, 32> key{};
  Derive(password, "corvanta data file key", key.data(), key.size());
  const std::optional<SaltBytes> named = NamedSalt(password);
  isSaltNamed_ = named.has_value();
  if (named) {
    salt_ = *named;
  } else {
    Derive(password, "corvanta data file salt", salt_.data(), salt_.size());
  }
  std::string keyHex = HexOf(key.data(), key.size());
  text_.reserve(3 + 96);
  text_ += "x'";
  text_ += keyHex;
  text_ += HexOf(salt_.data(), salt_.size());
  text_ += '\'';
  sodium_memzero(keyHex.data(), keyHex.size());
  sodium_memzero(key.data(), key.size());
}

FileKey::~FileKey() {
  sodium_memzero(text_.data(), text_.size());
}

void ApplyKey(sqlite3* database, const FileKey& key, const std::string& file) {
  const std::string& text = key.Text();
  const int result = sqlite3_key(database, text.data(), static_cast<int>(text.size()));
  if (result != SQLITE_OK) throw ErrorOf(database, result, {}, file);
  // Newer libraries write to standard error what a person is told in words by whoever opens. The
  // first key of a program sets it going, so that what was said before is forgotten.
  Run(database, "PRAGMA cipher_log_level = NONE", file);
  SetPageFormat(database, "main", file);
}

void SetPageFormat(sqlite3* database, const std::string& schema, const std::string& file) {
  // Older libraries do not know the first of these and ignore it; it brings a page size of its own.
  Run(database, "PRAGMA " + schema + ".cipher_compatibility = 3", file);
  Run(database, "PRAGMA " + schema + ".cipher_page_size = " + std::to_string(kPageSize), file);
}

}  // namespace corvanta::inline sql
