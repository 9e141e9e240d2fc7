// How numbers are written in files and by people of other places, as they show it themselves.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace corvanta::inline platform {

class Locale;

enum class DecimalMark { Point, Comma };

// What a text says by itself about the mark before its decimals: "1.234,56" and "200,00" a comma;
// nullopt for one that may be read both ways ("1,234") or holds neither mark.
[[nodiscard]] std::optional<DecimalMark> ProvenMark(std::string_view text);

// The mark as a text that leaves it open is read.
[[nodiscard]] DecimalMark MarkOf(const Locale& locale);

// The number that a text holds: digits grouped by the other mark, by blanks or by apostrophes; a
// sign before or behind, brackets for negative, a currency by sign, code or word, a bank's word for
// debit or credit. A text that proves its own mark is read by it; without a `mark` for the others
// the only one in a text stands before its decimals ("1.234" is less than two). nullopt when it is
// no number, or one too large for money (above 1e15).
[[nodiscard]] std::optional<double> ReadFileNumber(std::string_view text,
                                                   std::optional<DecimalMark> mark);

// True for a number that is zero, however it is written.
[[nodiscard]] bool IsZeroText(std::string_view text);

// Finds the one mark of a file from all its numbers.
class DecimalMarkFinder {
 public:
  void Add(std::string_view text);
  // What most numbers prove; where none proves anything, the locale's.
  [[nodiscard]] DecimalMark Find(const Locale& locale) const;

 private:
  std::size_t points_ = 0;
  std::size_t commas_ = 0;
};

}  // namespace corvanta::inline platform
