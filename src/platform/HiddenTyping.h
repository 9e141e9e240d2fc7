#pragma once

#include <functional>
#include <optional>
#include <string>

namespace corvanta::inline platform {

// A line that was typed at a terminal, or the signal that came in between.
struct TypedLine {
  std::optional<std::string> text;  // without its end; nullopt at the end of the input
  int signal = 0;                   // 0 unless a signal ended the typing
};

// Reads a line of the terminal that nobody sees. The terminal shows again what is typed when this
// returns, whatever happens: signals that would end or stop the program wait until then, and the
// first one is returned, for the caller to raise. `ask` is called when nothing is seen any more, to
// write the question. Throws PlatformError.
[[nodiscard]] TypedLine ReadHidden(int terminal, const std::function<void()>& ask);

// One line without its end; nullopt when nothing is left. Byte by byte: what follows the line
// belongs to the next question. Throws PlatformError.
[[nodiscard]] std::optional<std::string> ReadSecretLine(int descriptor);

}  // namespace corvanta::inline platform
