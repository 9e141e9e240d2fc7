#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline reports {

using TextMeasure = std::function<double(std::string_view)>;

// What becomes of a word that is wider than the line.
enum class LongWord {
  Broken,  // goes on in the next line
  Marked   // kDoesNotFit stands for it
};

inline constexpr std::string_view kDoesNotFit = "* * *";

// The text in lines that are no wider than `width`, broken at blanks and at its own line ends; at
// least one line. A line whose single character is too wide stays too wide.
[[nodiscard]] std::vector<std::string> WrapText(std::string_view text, double width, LongWord words,
                                                const TextMeasure& measure);

// The longest piece between blanks and line ends, by its bytes; empty for none.
[[nodiscard]] std::string_view LongestWord(std::string_view text);

}  // namespace corvanta::inline reports
