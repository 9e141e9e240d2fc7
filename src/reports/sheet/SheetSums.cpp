#include "reports/sheet/SheetSums.h"

#include "ledger/Money.h"

#include <algorithm>
#include <cmath>

namespace corvanta::inline reports {
namespace {

// Part of a formula, where anything else could be read as a condition.
bool IsPlainCode(const std::string& text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
  });
}

class SumFinder {
 public:
  SumFinder(const SpreadsheetTable& table, std::optional<std::size_t> currencyColumn,
            const std::vector<std::string>& currencies)
      : table_(table), currencyColumn_(currencyColumn), currencies_(currencies) {}

  [[nodiscard]] std::optional<SpreadsheetSum> Find(std::size_t row, std::size_t column,
                                                   double value) const {
    for (std::optional<SpreadsheetSum> sum : {OfCurrency(row), SinceLastTotal(row), OfAll(row)}) {
      if (!sum || !IsOf(*sum, column)) continue;
      sum->value = value;
      if (RoundMoney(Worth(*sum, column)) == RoundMoney(value)) return sum;
    }
    return std::nullopt;
  }

 private:
  [[nodiscard]] bool IsTotal(std::size_t row) const { return table_.rows[row].isTotal; }

  // The last row above that is no total.
  [[nodiscard]] std::optional<std::size_t> LastRow(std::size_t row) const {
    while (row > 0) {
      if (!IsTotal(--row)) return row;
    }
    return std::nullopt;
  }
  [[nodiscard]] std::optional<SpreadsheetSum> OfAll(std::size_t row) const {
    const auto last = LastRow(row);
    if (!last) return std::nullopt;
    return SpreadsheetSum{0, 0, *last, std::nullopt};
  }
  [[nodiscard]] std::optional<SpreadsheetSum> SinceLastTotal(std::size_t row) const {
    std::size_t first = row;
    while (first > 0 && !IsTotal(first - 1)) --first;
    if (first == row) return std::nullopt;
    return SpreadsheetSum{0, first, row - 1, std::nullopt};
  }
  // Where all rows have one currency, no condition is needed.
  [[nodiscard]] std::optional<SpreadsheetSum> OfCurrency(std::size_t row) const {
    auto sum = OfAll(row);
    if (!sum || !currencyColumn_ || !IsPlainCode(currencies_[row])) return std::nullopt;
    const auto isOther = [&](std::size_t other) {
      return !IsTotal(other) && currencies_[other] != currencies_[row];
    };
    bool isMixed = false;
    for (std::size_t other = 0; other <= sum->lastRow; ++other) isMixed |= isOther(other);
    if (!isMixed) return std::nullopt;
    sum->only = SpreadsheetSum::Only{*currencyColumn_, currencies_[row]};
    return sum;
  }

  // Whether there is a number to add up at all.
  [[nodiscard]] bool IsOf(const SpreadsheetSum& sum, std::size_t column) const {
    for (std::size_t row = sum.firstRow; row <= sum.lastRow; ++row) {
      if (!IsTotal(row) && NumberAt(row, column)) return true;
    }
    return false;
  }
  [[nodiscard]] std::optional<double> NumberAt(std::size_t row, std::size_t column) const {
    const auto& cells = table_.rows[row].cells;
    if (column >= cells.size()) return std::nullopt;
    if (const auto* number = std::get_if<double>(&cells[column])) return *number;
    const auto* sum = std::get_if<SpreadsheetSum>(&cells[column]);
    return sum == nullptr ? std::nullopt : std::optional(sum->value);
  }
  // What a spreadsheet makes of the formula.
  [[nodiscard]] double Worth(const SpreadsheetSum& sum, std::size_t column) const {
    double worth = 0;
    for (std::size_t row = sum.firstRow; row <= sum.lastRow; ++row) {
      const auto number = NumberAt(row, column);
      if (!number) continue;
      if (sum.only ? HasText(row, *sum.only) : !IsPlainSum(row, column)) worth += *number;
    }
    return worth;
  }
  [[nodiscard]] bool HasText(std::size_t row, const SpreadsheetSum::Only& only) const {
    const auto& cells = table_.rows[row].cells;
    const auto* text =
        only.column < cells.size() ? std::get_if<std::string>(&cells[only.column]) : nullptr;
    return text != nullptr && *text == only.text;
  }
  // A subtotal leaves other subtotals out.
  [[nodiscard]] bool IsPlainSum(std::size_t row, std::size_t column) const {
    const auto* sum = std::get_if<SpreadsheetSum>(&table_.rows[row].cells[column]);
    return sum != nullptr && !sum->only;
  }

  const SpreadsheetTable& table_;
  std::optional<std::size_t> currencyColumn_;
  const std::vector<std::string>& currencies_;
};

}  // namespace

void AddSums(SpreadsheetTable& table, std::optional<std::size_t> currencyColumn,
             const std::vector<std::string>& currencies) {
  const SumFinder finder(table, currencyColumn, currencies);
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    if (!table.rows[row].isTotal) continue;
    for (std::size_t column = 0; column < table.rows[row].cells.size(); ++column) {
      SpreadsheetCell& cell = table.rows[row].cells[column];
      const auto* number = std::get_if<double>(&cell);
      if (number == nullptr || !std::isfinite(*number)) continue;
      if (const auto sum = finder.Find(row, column, *number)) cell = *sum;
    }
  }
}

}  // namespace corvanta::inline reports
