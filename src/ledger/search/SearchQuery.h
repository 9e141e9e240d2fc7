// What a person looks for, as they type it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline ledger {

enum class SearchField { Any, Payee, Category, Description, Reference, Amount };

// The text as it is compared: without case, and without accents where letters have them.
[[nodiscard]] std::string FoldForSearch(std::string_view text);

// An amount that is looked for. One that was typed with a sign is money out or in alone, one
// without decimals stands for every amount of so many whole units.
struct SoughtAmount {
  double value = 0;  // not below 0
  int sign = 0;      // -1 for money out, 1 for money in, 0 for either
  bool isWhole = false;

  [[nodiscard]] bool Fits(double amount) const;
  bool operator==(const SoughtAmount&) const = default;
};

// The amounts that a text may stand for, however it is written: as the locale writes it, with a
// point or with a comma ("1,234" is either); none where it is no number.
[[nodiscard]] std::vector<SoughtAmount> SoughtAmounts(std::string_view text, const Locale& locale);

struct SearchWord {
  std::string text;  // folded
  SearchField field = SearchField::Any;
  bool isExact = false;  // the whole text of the field, of a category with all below it
  std::vector<SoughtAmount> amounts;

  // Whether a folded text of that field has it. Amounts are not texts.
  [[nodiscard]] bool FitsText(SearchField of, std::string_view folded) const;
  [[nodiscard]] bool FitsAmount(double amount) const;
};

// The words of what was typed, all of which a row must have, each in whatever field. What stands in
// double quotes is one word. "payee:", "category:", "description:", "ref:" and "amount:" before a
// word keep it to that field; with "=" in place of ":" it is all that the field says. A text that
// is a number as a whole ("1 234,50 EUR") is one word.
class SearchQuery {
 public:
  SearchQuery() = default;
  SearchQuery(std::string_view text, const Locale& locale);

  [[nodiscard]] bool IsEmpty() const { return words_.empty(); }
  [[nodiscard]] const std::vector<SearchWord>& Words() const { return words_; }
  // Whether a row of these cells has all words.
  struct Cell {
    std::string folded;
    std::optional<double> number;
  };
  [[nodiscard]] bool FitsCells(const std::vector<Cell>& cells) const;

 private:
  void AddWord(std::string_view typed, const Locale& locale);

  std::vector<SearchWord> words_;
};

// A query for what a field says exactly, as it would be typed: payee="Acme Company".
[[nodiscard]] std::string ExactQuery(SearchField field, std::string_view name);

}  // namespace corvanta::inline ledger
