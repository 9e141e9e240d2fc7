// Case of UTF-8 text in the root locale, the same on every machine.
#pragma once

#include <string>
#include <string_view>

namespace corvanta::inline platform {

[[nodiscard]] std::string ToLower(std::string_view text);
[[nodiscard]] std::string ToUpper(std::string_view text);
// Full case folding: two texts that differ only in case fold to the same bytes.
[[nodiscard]] std::string FoldCase(std::string_view text);
// Orders two texts by their folded bytes; negative, 0 or positive. Fast for ASCII, allocates only
// where a text is not.
[[nodiscard]] int CompareFolded(std::string_view a, std::string_view b);
[[nodiscard]] inline bool EqualFolded(std::string_view a, std::string_view b) {
  return CompareFolded(a, b) == 0;
}
// Blanks, tabs and line ends off both ends.
[[nodiscard]] std::string_view Trim(std::string_view text);
// Letters with their accents as one character each (normalisation form C), however they were typed.
[[nodiscard]] std::string Composed(std::string_view text);
// The number of characters (code points) of a UTF-8 text.
[[nodiscard]] std::size_t TextLength(std::string_view text);

}  // namespace corvanta::inline platform
