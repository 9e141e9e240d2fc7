#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline datafile {

// The reversible cipher of the transfer file's first line. Its key is the program's own, so that
// every installation can read it: it keeps a password from being read in passing and a damaged one
// from being used, and is no more of a secret than the transfer file itself.
class clsCipher {
 public:
  // One line of base64; another one at every call.
  [[nodiscard]] std::string Encipher(std::string_view text) const;
  // The text of an enciphered line; nullopt when the line was changed or is none.
  [[nodiscard]] std::optional<std::string> Decipher(std::string_view line) const;
};

}  // namespace corvanta::inline datafile
