#include "ledger/search/SearchQuery.h"

#include "ledger/Money.h"
#include "platform/BankWords.h"
#include "platform/Locale.h"
#include "platform/NumberStyle.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace corvanta::inline ledger {
namespace {

// A row's words are marked in the bits of one number.
constexpr std::size_t kMaxWords = 32;

struct FieldName {
  SearchField field;
  std::string_view name;
};
constexpr std::array kFieldNames = {FieldName{SearchField::Payee, "payee"},
                                    FieldName{SearchField::Category, "category"},
                                    FieldName{SearchField::Description, "description"},
                                    FieldName{SearchField::Reference, "ref"},
                                    FieldName{SearchField::Reference, "reference"},
                                    FieldName{SearchField::Amount, "amount"}};

// Whether decimals were typed: then there are more digits than the whole part has.
bool HasDecimals(std::string_view text, double value) {
  std::size_t digits = 0;
  for (const char c : text) {
    if (c >= '0' && c <= '9' && (c != '0' || digits > 0)) ++digits;
  }
  std::size_t whole = 0;
  for (double rest = std::floor(value); rest >= 1; rest = std::floor(rest / 10)) ++whole;
  // "0.00" has no digit that counts, and is nothing but itself.
  const bool isZero = value == 0 && text.find_first_of(".,") != std::string_view::npos;
  return digits > whole || isZero;
}

// The next word with its field's name and its quotes, which is taken off the text.
std::string_view TakeWord(std::string_view& text) {
  bool isQuoted = false;
  std::size_t end = 0;
  while (end < text.size() && (isQuoted || text[end] != ' ')) {
    if (text[end] == '"') isQuoted = !isQuoted;
    ++end;
  }
  const std::string_view word = text.substr(0, end);
  text = Trim(text.substr(end));
  return word;
}

}  // namespace

std::string FoldForSearch(std::string_view text) {
  return PlainWord(FoldCase(text));
}

bool SoughtAmount::Fits(double amount) const {
  if ((sign < 0 && amount > 0) || (sign > 0 && amount < 0)) return false;
  const double size = RoundMoney(std::fabs(amount));
  return isWhole ? std::floor(size) == value : size == RoundMoney(value);
}

std::vector<SoughtAmount> SoughtAmounts(std::string_view text, const Locale& locale) {
  std::vector<SoughtAmount> amounts;
  const std::string_view trimmed = Trim(text);
  // Words alone, such as a bank's for debit, are none.
  if (trimmed.find_first_of("0123456789") == std::string_view::npos) return amounts;
  for (const auto& read : {locale.ParseNumber(trimmed), ReadFileNumber(trimmed, DecimalMark::Point),
                           ReadFileNumber(trimmed, DecimalMark::Comma)}) {
    if (!read) continue;
    SoughtAmount amount{std::fabs(*read), 0, false};
    if (*read < 0) amount.sign = -1;
    if (trimmed.front() == '+') amount.sign = 1;
    amount.isWhole = !HasDecimals(trimmed, amount.value);
    if (std::ranges::find(amounts, amount) == amounts.end()) amounts.push_back(amount);
  }
  return amounts;
}

bool SearchWord::FitsText(SearchField of, std::string_view folded) const {
  if (field != SearchField::Any && field != of) return false;
  if (!isExact) return !text.empty() && folded.find(text) != std::string_view::npos;
  if (folded == text) return true;
  return of == SearchField::Category && folded.size() > text.size() && folded.starts_with(text) &&
         folded[text.size()] == ':';
}

bool SearchWord::FitsAmount(double amount) const {
  return std::ranges::any_of(amounts, [&](const SoughtAmount& one) { return one.Fits(amount); });
}

SearchQuery::SearchQuery(std::string_view text, const Locale& locale) {
  std::string_view rest = Trim(text);
  if (rest.find(' ') != std::string_view::npos) {
    std::vector<SoughtAmount> whole = SoughtAmounts(rest, locale);
    if (!whole.empty()) {
      words_.push_back({FoldForSearch(rest), SearchField::Any, false, std::move(whole)});
      return;
    }
  }
  while (!rest.empty() && words_.size() < kMaxWords) AddWord(TakeWord(rest), locale);
}

void SearchQuery::AddWord(std::string_view typed, const Locale& locale) {
  SearchWord word;
  if (const std::size_t mark = typed.find_first_of(":="); mark != std::string_view::npos) {
    for (const FieldName& known : kFieldNames) {
      if (!EqualFolded(typed.substr(0, mark), known.name)) continue;
      word.field = known.field;
      word.isExact = typed[mark] == '=';
    }
    if (word.field != SearchField::Any) typed.remove_prefix(mark + 1);
  }
  std::string plain(typed);
  std::erase(plain, '"');
  word.text = FoldForSearch(plain);
  // The field's name with nothing behind it yet keeps no row away.
  if (word.text.empty()) return;
  if (word.field == SearchField::Any || word.field == SearchField::Amount) {
    word.amounts = SoughtAmounts(plain, locale);
  }
  words_.push_back(std::move(word));
}

bool SearchQuery::FitsCells(const std::vector<Cell>& cells) const {
  return std::ranges::all_of(words_, [&](const SearchWord& word) {
    return std::ranges::any_of(cells, [&](const Cell& cell) {
      const bool hasText = cell.folded.find(word.text) != std::string::npos;
      return hasText || (cell.number && word.FitsAmount(*cell.number));
    });
  });
}

std::string ExactQuery(SearchField field, std::string_view name) {
  const auto found = std::ranges::find(kFieldNames, field, &FieldName::field);
  std::string plain(name);
  // A quote in a name would end the word.
  std::erase(plain, '"');
  const std::string prefix = found == kFieldNames.end() ? "" : std::string(found->name) + "=";
  return prefix + '"' + plain + '"';
}

}  // namespace corvanta::inline ledger
