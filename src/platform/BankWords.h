// The words of banks' files, in the languages of their customers. All are compared without case and
// accents.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvanta::inline platform {

// In lower case and without accents, blanks around it taken off.
[[nodiscard]] std::string PlainWord(std::string_view text);

// -1 for a word or sign of money out, 1 for one of money in; nullopt for any other text.
[[nodiscard]] std::optional<int> SideOfWord(std::string_view word);

// What a column of a CSV file holds.
enum class BankColumn {
  Date,
  Payee,
  Category,
  Amount,
  Income,
  Expense,
  Description,
  Reference,
  Number
};

// What the headings of such a column say, as PlainWord gives them, the surest first.
[[nodiscard]] std::span<const std::string_view> HeadingWords(BankColumn column);
// Whether a heading, as PlainWord gives it, says the word; one of up to three letters must be all
// that it says.
[[nodiscard]] bool HasWord(std::string_view heading, std::string_view word);
// Whether it is that of a running balance.
[[nodiscard]] bool IsBalance(std::string_view heading);

}  // namespace corvanta::inline platform
