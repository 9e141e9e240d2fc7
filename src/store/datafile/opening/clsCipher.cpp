#include "store/datafile/opening/clsCipher.h"

#include <sodium.h>

#include <array>
#include <stdexcept>
#include <vector>

namespace corvanta::inline datafile {
namespace {

using Bytes = std::vector<unsigned char>;
using Key = std::array<unsigned char, crypto_secretbox_KEYBYTES>;

constexpr std::string_view kProgramPhrase = "Corvanta Personal Finance transfer file";
constexpr int kBase64 = sodium_base64_VARIANT_ORIGINAL;

Key ProgramKey() {
  if (sodium_init() < 0) throw std::runtime_error("The cipher library cannot be started.");
  Key key{};
  crypto_generichash(key.data(), key.size(),
                     reinterpret_cast<const unsigned char*>(kProgramPhrase.data()),
                     kProgramPhrase.size(), nullptr, 0);
  return key;
}

}  // namespace

std::string clsCipher::Encipher(std::string_view text) const {
  const Key key = ProgramKey();
  Bytes box(crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES + text.size());
  randombytes_buf(box.data(), crypto_secretbox_NONCEBYTES);
  crypto_secretbox_easy(box.data() + crypto_secretbox_NONCEBYTES,
                        reinterpret_cast<const unsigned char*>(text.data()), text.size(),
                        box.data(), key.data());
  std::string line(sodium_base64_encoded_len(box.size(), kBase64), '\0');
  sodium_bin2base64(line.data(), line.size(), box.data(), box.size(), kBase64);
  line.pop_back();  // the terminator
  return line;
}

std::optional<std::string> clsCipher::Decipher(std::string_view line) const {
  if (line.empty()) return std::nullopt;
  const Key key = ProgramKey();
  Bytes box(line.size());
  std::size_t size = 0;
  if (sodium_base642bin(box.data(), box.size(), line.data(), line.size(), nullptr, &size, nullptr,
                        kBase64) != 0) {
    return std::nullopt;
  }
  constexpr std::size_t kOverhead = crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES;
  if (size < kOverhead) return std::nullopt;
  std::string text(size - kOverhead, '\0');
  const unsigned char* const nonce = box.data();
  if (crypto_secretbox_open_easy(reinterpret_cast<unsigned char*>(text.data()),
                                 nonce + crypto_secretbox_NONCEBYTES,
                                 size - crypto_secretbox_NONCEBYTES, nonce, key.data()) != 0) {
    return std::nullopt;
  }
  return text;
}

}  // namespace corvanta::inline datafile
