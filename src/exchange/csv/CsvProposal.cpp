// What a CSV text looks like, so that a person has little left to choose.
#include "exchange/csv/CsvPreview.h"
#include "exchange/text/DateStyle.h"
#include "platform/BankWords.h"
#include "platform/Locale.h"
#include "platform/NumberStyle.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <map>

namespace corvanta::inline exchange {
namespace {

constexpr std::array<std::string_view, 4> kSeparators = {",", ";", "\t", "|"};

// How many of the rows have the most common number of columns, where that is two or more.
std::size_t Evenness(const std::vector<CsvRow>& rows) {
  std::map<std::size_t, std::size_t> counts;
  for (const CsvRow& row : rows) {
    if (row.cells.size() > 1) ++counts[row.cells.size()];
  }
  std::size_t most = 0;
  for (const auto& [columns, count] : counts) most = std::max(most, count * 16 + columns);
  return most;
}

std::string FindSeparator(std::string_view text) {
  std::string best = ",";
  std::size_t most = 0;
  for (const std::string_view separator : kSeparators) {
    const std::size_t even = Evenness(FirstRows(text, separator, kPreviewRows));
    if (even <= most) continue;
    most = even;
    best = separator;
  }
  return best;
}

bool IsAmount(std::string_view cell, const Locale& locale) {
  return !cell.empty() && !IsDateText(cell, locale) &&
         ReadFileNumber(cell, DecimalMark::Point).has_value();
}

bool IsTransaction(const CsvRow& row, const Locale& locale) {
  const auto any = [&](const auto& is) {
    return std::ranges::any_of(row.cells, [&](const std::string& cell) { return is(Trim(cell)); });
  };
  return any([&](std::string_view cell) { return IsDateText(cell, locale); }) &&
         any([&](std::string_view cell) { return IsAmount(cell, locale); });
}

// Chooses the columns of the rows below the headings.
class ColumnFinder {
 public:
  ColumnFinder(const std::vector<CsvRow>& rows, int skip, const Locale& locale) : locale_(locale) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const bool isData = static_cast<int>(i) >= skip;
      if (isData && IsTransaction(rows[i], locale)) rows_.push_back(&rows[i]);
      if (!isData && !rows[i].IsBlank()) ReadHeadings(rows[i]);
      columns_ = std::max(columns_, static_cast<int>(rows[i].cells.size()));
    }
  }

  void Choose(CsvMapping& mapping) const {
    const auto isDate = [this](std::string_view cell) { return IsDateText(cell, locale_); };
    const auto isAny = [](std::string_view) { return true; };
    mapping.date = Named(BankColumn::Date, isDate, {});
    if (mapping.date == 0) mapping.date = Filled(isDate, {});
    ChooseAmounts(mapping);
    const auto isText = [&](std::string_view cell) { return !isDate(cell) && !IsNumber(cell); };
    const std::vector<int> amounts = {mapping.date, mapping.income, mapping.expense, mapping.sign};
    mapping.category = Named(BankColumn::Category, isAny, amounts);
    mapping.payee = Named(BankColumn::Payee, isAny, amounts);
    if (mapping.payee == 0) mapping.payee = Named(BankColumn::Description, isAny, amounts);
    if (mapping.payee == 0) {
      mapping.payee = Filled(isText, {mapping.date, mapping.category, mapping.sign});
    }
    std::vector<int> taken = amounts;
    const auto take = [&](BankColumn column) {
      taken.push_back(Named(column, isAny, taken));
      return taken.back();
    };
    taken.insert(taken.end(), {mapping.category, mapping.payee});
    mapping.description = take(BankColumn::Description);
    mapping.number = take(BankColumn::Number);
    mapping.reference = take(BankColumn::Reference);
    mapping.zeroIsEmpty = ZeroIsEmpty(mapping);
  }

 private:
  void ReadHeadings(const CsvRow& row) {
    headings_.clear();
    for (const std::string& cell : row.cells) headings_.push_back(PlainWord(cell));
  }

  [[nodiscard]] bool IsNumber(std::string_view cell) const {
    return cell.empty() || IsAmount(cell, locale_);
  }

  void ChooseAmounts(CsvMapping& mapping) const {
    const auto isNumber = [this](std::string_view cell) { return IsNumber(cell); };
    const auto isSide = [&](std::string_view cell) {
      return !cell.empty() && SideOf(cell, mapping).has_value();
    };
    mapping.income = Named(BankColumn::Income, isNumber, {});
    mapping.expense = Named(BankColumn::Expense, isNumber, {});
    if (mapping.income != 0 && mapping.expense != 0) return;
    int amount = Named(BankColumn::Amount, isNumber, {});
    if (amount == 0)
      amount = Filled([this](std::string_view c) { return IsAmount(c, locale_); }, {});
    mapping.income = mapping.expense = amount;
    // Only a column whose every cell says one of the two is worth proposing.
    const int side = Filled(isSide, {});
    if (side != amount) mapping.sign = side;
  }

  // The first column whose heading has one of the words, and whose cells are what they should be.
  template <typename Is>
  [[nodiscard]] int Named(BankColumn wanted, const Is& is, const std::vector<int>& taken) const {
    for (const std::string_view word : HeadingWords(wanted)) {
      for (int column = 1; column <= static_cast<int>(headings_.size()); ++column) {
        const std::string& heading = headings_[static_cast<std::size_t>(column - 1)];
        const bool isTaken = std::ranges::find(taken, column) != taken.end();
        if (isTaken || !HasWord(heading, word) || IsBalance(heading)) continue;
        if (All(column, is)) return column;
      }
    }
    return 0;
  }

  // The first column in which every row's cell is what it should be.
  template <typename Is>
  [[nodiscard]] int Filled(const Is& is, std::initializer_list<int> taken) const {
    for (int column = 1; column <= columns_ && !rows_.empty(); ++column) {
      const bool isTaken = std::ranges::find(taken, column) != taken.end();
      if (!isTaken && All(column, is)) return column;
    }
    return 0;
  }

  template <typename Is>
  [[nodiscard]] bool All(int column, const Is& is) const {
    return std::ranges::all_of(rows_, [&](const CsvRow* row) { return is(row->Cell(column)); });
  }

  [[nodiscard]] bool ZeroIsEmpty(const CsvMapping& mapping) const {
    if (mapping.income == mapping.expense) return false;
    return std::ranges::any_of(rows_, [&](const CsvRow* row) {
      const std::string_view income = row->Cell(mapping.income);
      const std::string_view expense = row->Cell(mapping.expense);
      return !income.empty() && !expense.empty() && IsZeroText(income) != IsZeroText(expense);
    });
  }

  const Locale& locale_;
  std::vector<const CsvRow*> rows_;
  std::vector<std::string> headings_;
  int columns_ = 0;
};

}  // namespace

DateOrder FindDateOrder(std::string_view text, const CsvMapping& mapping, const Locale& locale) {
  DateOrderFinder dates;
  CsvRows rows(text, mapping.separator);
  CsvRow row;
  for (int number = 0; rows.Next(row); ++number) {
    if (number >= mapping.skip) dates.Add(row.Cell(mapping.date));
  }
  return dates.Find(locale);
}

CsvMapping ProposeMapping(std::string_view text, const Locale& locale) {
  CsvMapping mapping;
  mapping.order = locale.ShortDateOrder();
  mapping.separator = FindSeparator(text);
  const std::vector<CsvRow> rows = FirstRows(text, mapping.separator, kPreviewRows);
  const auto first =
      std::ranges::find_if(rows, [&](const CsvRow& row) { return IsTransaction(row, locale); });
  if (first == rows.end()) return mapping;
  mapping.skip = static_cast<int>(first - rows.begin());
  ColumnFinder(rows, mapping.skip, locale).Choose(mapping);
  if (mapping.date == 0) return mapping;
  mapping.order = FindDateOrder(text, mapping, locale);
  return mapping;
}

}  // namespace corvanta::inline exchange
