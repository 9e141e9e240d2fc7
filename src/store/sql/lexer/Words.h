#pragma once

#include "store/sql/lexer/Token.h"

#include <string_view>

namespace corvanta::jet {

// The ASCII letter as a capital; any other sign as it is.
constexpr char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

// The word of the dialect that a name spells, in capitals or not; None for any other name, which
// may not be empty.
[[nodiscard]] Word FindWord(std::string_view name);
// That of a sign and, where the two belong together, the one behind it ("<="); None for a sign
// without a meaning.
[[nodiscard]] Word WordOfSign(char sign, char next);

}  // namespace corvanta::jet
