#include "store/datafile/InstallationKey.h"

#include <sodium.h>

#include <array>
#include <cctype>
#include <cstdint>

namespace corvanta::inline datafile {
namespace {

constexpr std::size_t kPasswordBytes = 32;
constexpr std::size_t kCheckBytes = 3;  // makes the whole a multiple of five bits
constexpr std::size_t kKeyBytes = kPasswordBytes + kCheckBytes;
constexpr std::size_t kGroup = 4;
constexpr unsigned kDigitBits = 5;
constexpr unsigned kByteBits = 8;

// No I, L, O and U: read aloud or from paper they are taken for others.
constexpr std::string_view kDigits = "0123456789ABCDEFGHJKMNPQRSTVWXYZ";

using KeyBytes = std::array<unsigned char, kKeyBytes>;

void SetCheck(KeyBytes& key) {
  std::array<unsigned char, kPasswordBytes> hash{};
  crypto_generichash(hash.data(), hash.size(), key.data(), kPasswordBytes, nullptr, 0);
  for (std::size_t i = 0; i < kCheckBytes; ++i) key[kPasswordBytes + i] = hash[i];
}

// The value of a typed digit, -1 for what is none.
int DigitValue(char typed) {
  char digit = static_cast<char>(std::toupper(static_cast<unsigned char>(typed)));
  if (digit == 'O') digit = '0';
  if (digit == 'I' || digit == 'L') digit = '1';
  const std::size_t position = kDigits.find(digit);
  return position == std::string_view::npos ? -1 : static_cast<int>(position);
}

bool IsSeparator(char typed) {
  return std::isspace(static_cast<unsigned char>(typed)) != 0 || typed == '-';
}

std::optional<KeyBytes> BytesOf(std::string_view text) {
  KeyBytes key{};
  std::size_t count = 0;
  std::uint32_t buffer = 0;
  unsigned bits = 0;
  for (const char typed : text) {
    if (IsSeparator(typed)) continue;
    const int value = DigitValue(typed);
    if (value < 0 || count == key.size()) return std::nullopt;
    buffer = (buffer << kDigitBits) | static_cast<std::uint32_t>(value);
    bits += kDigitBits;
    if (bits < kByteBits) continue;
    bits -= kByteBits;
    key[count++] = static_cast<unsigned char>(buffer >> bits);
  }
  if (count != key.size()) return std::nullopt;
  return key;
}

}  // namespace

std::string RecoveryKeyFromPassword(std::string_view password) {
  KeyBytes key{};
  std::size_t count = 0;
  if (sodium_hex2bin(key.data(), kPasswordBytes, password.data(), password.size(), nullptr, &count,
                     nullptr) != 0 ||
      count != kPasswordBytes) {
    return {};
  }
  SetCheck(key);
  std::string text;
  std::uint32_t buffer = 0;
  unsigned bits = 0;
  std::size_t digits = 0;
  for (const unsigned char byte : key) {
    buffer = (buffer << kByteBits) | byte;
    bits += kByteBits;
    while (bits >= kDigitBits) {
      bits -= kDigitBits;
      if (digits > 0 && digits % kGroup == 0) text += '-';
      text += kDigits[(buffer >> bits) & 31U];
      ++digits;
    }
  }
  return text;
}

std::optional<std::string> PasswordFromRecoveryKey(std::string_view key) {
  const std::optional<KeyBytes> typed = BytesOf(key);
  if (!typed.has_value()) return std::nullopt;
  KeyBytes expected = *typed;
  SetCheck(expected);
  if (expected != *typed) return std::nullopt;
  std::string password(kPasswordBytes * 2 + 1, '\0');
  sodium_bin2hex(password.data(), password.size(), typed->data(), kPasswordBytes);
  password.pop_back();
  return password;
}

}  // namespace corvanta::inline datafile
