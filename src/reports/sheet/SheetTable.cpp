#include "reports/sheet/SheetTable.h"

#include "platform/CurrencyDecimals.h"
#include "platform/Locale.h"
#include "reports/print/PrintTable.h"
#include "reports/query/ReportTable.h"
#include "reports/sheet/SheetSums.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace corvanta::inline reports {
namespace {

SpreadsheetKind KindOf(ReportColumn::Content content) {
  switch (content) {
    case ReportColumn::Content::Date:
      return SpreadsheetKind::Date;
    case ReportColumn::Content::Count:
      return SpreadsheetKind::Count;
    case ReportColumn::Content::Money:
      return SpreadsheetKind::Money;
    case ReportColumn::Content::Quantity:
      return SpreadsheetKind::Number;
    case ReportColumn::Content::Text:
      break;
  }
  return SpreadsheetKind::Text;
}

SpreadsheetCell CellOf(const Value& value, const ReportColumn& column) {
  if (value.IsNull()) return {};
  if (column.content == ReportColumn::Content::Date) {
    if (const auto day = value.AsDate()) return *day;
  }
  if (column.HoldsNumbers() && !value.IsText()) return value.Double();
  return value.Text();
}

// How many decimals a number shows.
int DecimalsOf(const std::string& text, const std::string& separator) {
  const std::size_t at = text.rfind(separator);
  if (separator.empty() || at == std::string::npos) return 0;
  const auto digits = std::count_if(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(),
                                    [](char c) { return c >= '0' && c <= '9'; });
  return static_cast<int>(digits);
}

// A column of a list, by its texts.
class ListColumnReader {
 public:
  ListColumnReader(const PrintTable& list, std::size_t column, const Locale& locale)
      : list_(list), column_(column), locale_(locale) {
    const bool isNumber = list.columns[column].alignment == PrintAlignment::Right;
    if (isNumber && AllRead([&](const std::string& text) { return locale.ParseNumber(text); })) {
      kind_ = SpreadsheetKind::Money;
    } else if (AllRead([&](const std::string& text) { return locale.ParseDate(text); })) {
      kind_ = SpreadsheetKind::Date;
    }
  }

  [[nodiscard]] SpreadsheetKind Kind() const { return kind_; }
  [[nodiscard]] SpreadsheetCell Cell(std::size_t row) const {
    const std::string& text = Text(row);
    if (text.empty()) return {};
    if (kind_ == SpreadsheetKind::Money) return *locale_.ParseNumber(text);
    if (kind_ == SpreadsheetKind::Date) return *locale_.ParseDate(text);
    return text;
  }
  [[nodiscard]] int Decimals(std::size_t row) const {
    if (kind_ != SpreadsheetKind::Money) return 0;
    return DecimalsOf(Text(row), locale_.DecimalSeparator());
  }

 private:
  [[nodiscard]] const std::string& Text(std::size_t row) const {
    static const std::string kNone;
    const auto& cells = list_.rows[row];
    return column_ < cells.size() ? cells[column_] : kNone;
  }
  template <typename Read>
  [[nodiscard]] bool AllRead(const Read& read) const {
    bool isAny = false;
    for (std::size_t row = 0; row < list_.rows.size(); ++row) {
      if (Text(row).empty()) continue;
      if (!read(Text(row))) return false;
      isAny = true;
    }
    return isAny;
  }

  const PrintTable& list_;
  std::size_t column_;
  const Locale& locale_;
  SpreadsheetKind kind_ = SpreadsheetKind::Text;
};

// A figure with its name before it.
struct NamedFigure {
  std::string name;
  double value = 0;
  int decimals = 0;
};

std::optional<NamedFigure> FigureOf(const std::string& text, const Locale& locale) {
  const std::size_t at = text.rfind(": ");
  if (at == std::string::npos) return std::nullopt;
  const std::string number = text.substr(at + 2);
  const auto value = locale.ParseNumber(number);
  if (!value) return std::nullopt;
  std::string name = text.substr(0, at);
  while (name.ends_with(' ')) name.pop_back();
  return NamedFigure{name, *value, DecimalsOf(number, locale.DecimalSeparator())};
}

// Behind the first column, which has the name; nullopt where no column has amounts.
std::optional<std::size_t> ColumnFor(const SpreadsheetTable& table, const std::string& name) {
  std::optional<std::size_t> last;
  for (std::size_t i = 1; i < table.columns.size(); ++i) {
    if (table.columns[i].kind != SpreadsheetKind::Money) continue;
    if (table.columns[i].header == name) return i;
    last = i;
  }
  return last;
}

SpreadsheetRow SummaryRow(const SpreadsheetTable& table, const std::string& text,
                          const Locale& locale) {
  SpreadsheetRow row{std::vector<SpreadsheetCell>(table.columns.size()), 0, true};
  row.cells.front() = text;
  const auto figure = FigureOf(text, locale);
  const auto column = figure ? ColumnFor(table, figure->name) : std::nullopt;
  if (!column) return row;
  row.cells.front() = figure->name;
  row.cells[*column] = figure->value;
  row.decimals = figure->decimals;
  return row;
}

// The currency of each row: what its column says, and of a total what stands between brackets.
std::vector<std::string> CurrenciesOf(const SpreadsheetTable& table, std::size_t column) {
  std::vector<std::string> currencies;
  for (const SpreadsheetRow& row : table.rows) {
    const auto* text = std::get_if<std::string>(&row.cells[row.isTotal ? 0 : column]);
    std::string code = text == nullptr ? std::string() : *text;
    if (row.isTotal) {
      const std::size_t open = code.rfind('(');
      code = open != std::string::npos && code.ends_with(')')
                 ? code.substr(open + 1, code.size() - open - 2)
                 : std::string();
    }
    currencies.push_back(std::move(code));
  }
  return currencies;
}

}  // namespace

void AddSummaries(SpreadsheetTable& table, const std::vector<PrintSummary>& summaries,
                  const Locale& locale) {
  if (table.columns.empty()) return;
  for (const PrintSummary& summary : summaries) {
    for (const std::string& text : {summary.left, summary.right}) {
      if (!text.empty()) table.rows.push_back(SummaryRow(table, text, locale));
    }
  }
}

SpreadsheetTable SheetOf(const ReportTable& report) {
  SpreadsheetTable table;
  table.name = report.name;
  for (const ReportColumn& column : report.columns) {
    table.columns.push_back({column.header, KindOf(column.content)});
  }
  std::vector<std::string> currencies;
  for (const ReportRow& row : report.rows) {
    SpreadsheetRow line;
    line.decimals = CurrencyDecimals(row.currency);
    line.isTotal = row.kind == ReportRowKind::Total;
    for (std::size_t i = 0; i < row.cells.size() && i < report.columns.size(); ++i) {
      line.cells.push_back(CellOf(row.cells[i], report.columns[i]));
    }
    table.rows.push_back(std::move(line));
    currencies.push_back(row.currency);
  }
  AddSums(table, report.Column("Currency"), currencies);
  return table;
}

SpreadsheetTable SheetOf(const PrintTable& list, const Locale& locale) {
  SpreadsheetTable table;
  table.name = list.title;
  std::vector<ListColumnReader> columns;
  for (std::size_t i = 0; i < list.columns.size(); ++i) {
    if (list.columns[i].width <= 0) continue;
    columns.emplace_back(list, i, locale);
    table.columns.push_back({list.columns[i].header, columns.back().Kind()});
  }
  for (std::size_t row = 0; row < list.rows.size(); ++row) {
    SpreadsheetRow line;
    line.isTotal = list.totals.contains(row);
    line.decimals = 0;
    for (const ListColumnReader& column : columns) {
      line.cells.push_back(column.Cell(row));
      line.decimals = std::max(line.decimals, column.Decimals(row));
    }
    table.rows.push_back(std::move(line));
  }
  AddSummaries(table, list.summaries, locale);
  const auto currency =
      std::ranges::find(table.columns, std::string("Currency"), &SpreadsheetColumn::header);
  if (currency == table.columns.end()) {
    AddSums(table, std::nullopt, {});
  } else {
    const auto column = static_cast<std::size_t>(currency - table.columns.begin());
    AddSums(table, column, CurrenciesOf(table, column));
  }
  return table;
}

}  // namespace corvanta::inline reports
