#pragma once

#include <string>
#include <string_view>

namespace corvanta::inline exchange {

// The encoding in which bytes that are no UTF-8, and of which no header speaks, make the best
// words: a word's letters are of one script, capitals stand at its beginning, and no sign stands
// inside it. Windows-1252 where others are no better.
[[nodiscard]] std::string GuessEncoding(std::string_view bytes);

}  // namespace corvanta::inline exchange
