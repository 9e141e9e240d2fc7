#include "reports/print/ReportPrint.h"

#include "platform/CurrencyDecimals.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"
#include "reports/query/ReportTable.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvanta::inline reports {
namespace {

// About as a list on the screen would have it.
constexpr int kPixelsOfCharacter = 7;
constexpr int kEdges = 14;
constexpr std::size_t kFewest = 6;
constexpr std::size_t kMost = 32;
// What fits on upright paper in letters of the usual size.
constexpr int kWidestPortrait = 800;
constexpr int kMostDecimals = 6;

// As many decimals as the number has.
std::string QuantityText(double number, const Locale& locale) {
  int decimals = 0;
  double scale = 1;
  while (decimals < kMostDecimals && std::abs(std::round(number * scale) / scale - number) > 1e-9) {
    scale *= 10;
    ++decimals;
  }
  return locale.FormatNumber(number, decimals);
}

std::string CellText(const ReportTable& report, const ReportRow& row, std::size_t column,
                     const Locale& locale) {
  if (column >= row.cells.size() || row.cells[column].IsNull()) return {};
  const Value& value = row.cells[column];
  const ReportColumn& info = report.columns[column];
  if (info.content == ReportColumn::Content::Date) {
    const auto day = value.AsDate();
    return day ? locale.FormatShortDate(*day) : value.Text();
  }
  if (!info.HoldsNumbers() || value.IsText()) return value.Text();
  if (info.content == ReportColumn::Content::Count) return locale.FormatNumber(value.Double(), 0);
  if (info.content == ReportColumn::Content::Quantity) return QuantityText(value.Double(), locale);
  return locale.FormatNumber(value.Double(), CurrencyDecimals(row.currency));
}

int WidthOf(const PrintTable& table, std::size_t column) {
  std::size_t longest = std::max(kFewest, TextLength(table.columns[column].header));
  for (const auto& cells : table.rows) longest = std::max(longest, TextLength(cells[column]));
  return static_cast<int>(std::min(longest, kMost)) * kPixelsOfCharacter + kEdges;
}

}  // namespace

PrintTable PrintTableOf(const ReportTable& report, const Locale& locale) {
  PrintTable table;
  table.title = report.name;
  for (const ReportColumn& column : report.columns) {
    table.columns.push_back(
        {column.header, 0, column.HoldsNumbers() ? PrintAlignment::Right : PrintAlignment::Left});
  }
  for (const ReportRow& row : report.rows) {
    if (row.kind == ReportRowKind::Total) table.totals.insert(table.rows.size());
    std::vector<std::string> cells;
    for (std::size_t column = 0; column < report.columns.size(); ++column) {
      cells.push_back(CellText(report, row, column, locale));
    }
    table.rows.push_back(std::move(cells));
  }
  int width = 0;
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    table.columns[column].width = WidthOf(table, column);
    width += table.columns[column].width;
  }
  if (width > kWidestPortrait) table.orientation = PrintOrientation::Landscape;
  return table;
}

}  // namespace corvanta::inline reports
