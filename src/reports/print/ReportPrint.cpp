#include "reports/print/ReportPrint.h"

#include "platform/Locale.h"
#include "platform/TextCase.h"
#include "reports/print/TextWrap.h"
#include "reports/query/ReportTable.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvanta::inline reports {
namespace {

// About as a list on the screen would have it. Digits are wider than most letters.
constexpr int kPixelsOfCharacter = 7;
constexpr int kPixelsOfDigit = 8;
constexpr int kPixelsOfBold = 9;
constexpr int kEdges = 14;
constexpr std::size_t kMinLetters = 6;
constexpr std::size_t kMaxLetters = 32;
constexpr std::size_t kLongestWord = 20;
// In letters that are small and yet legible; what is wider would lose figures.
constexpr int kWidestLandscape = 1350;
// What fits on upright paper in letters of the usual size.
constexpr int kWidestPortrait = 800;
constexpr int kMaxDecimals = 6;

// As many decimals as the number needs.
int DecimalsOf(double number) {
  int decimals = 0;
  double scale = 1;
  while (decimals < kMaxDecimals && std::abs(std::round(number * scale) / scale - number) > 1e-9) {
    scale *= 10;
    ++decimals;
  }
  return decimals;
}

// The same for all of a column, so that they stand below each other.
int DecimalsOf(const ReportTable& report, std::size_t column) {
  if (report.columns[column].content != ReportColumn::Content::Quantity) return 0;
  int decimals = 0;
  for (const ReportRow& row : report.rows) {
    if (column >= row.cells.size() || row.cells[column].IsNull()) continue;
    if (!row.cells[column].IsText()) {
      decimals = std::max(decimals, DecimalsOf(row.cells[column].Double()));
    }
  }
  return decimals;
}

std::string CellText(const ReportTable& report, const ReportRow& row, std::size_t column,
                     int decimals, const Locale& locale) {
  if (column >= row.cells.size() || row.cells[column].IsNull()) return {};
  const Value& value = row.cells[column];
  const ReportColumn& info = report.columns[column];
  if (info.content == ReportColumn::Content::Date) {
    const auto day = value.AsDate();
    return day ? locale.FormatShortDate(*day) : value.Text();
  }
  if (!info.HoldsNumbers() || value.IsText()) return value.Text();
  // Money is shown as everywhere on the screen.
  const bool isMoney = info.content == ReportColumn::Content::Money;
  return isMoney ? locale.FormatNumber(value.Double())
                 : locale.FormatNumber(value.Double(), decimals);
}

std::size_t LongestWordOf(const std::string& text) {
  return TextLength(std::string(LongestWord(text)));
}

// What a column needs: so that no figure and no usual word is divided, and so that few cells are.
struct ColumnNeed {
  int least = 0;
  int wished = 0;
};

ColumnNeed NeedOf(const PrintTable& table, std::size_t column) {
  const bool isNumber = table.columns[column].alignment == PrintAlignment::Right;
  const std::string& header = table.columns[column].header;
  ColumnNeed need{static_cast<int>(LongestWordOf(header)) * kPixelsOfBold,
                  static_cast<int>(TextLength(header)) * kPixelsOfBold};
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    const std::string& text = table.rows[row][column];
    const int digit = table.totals.contains(row) ? kPixelsOfBold : kPixelsOfDigit;
    const std::size_t word = isNumber ? TextLength(text) : LongestWordOf(text);
    need.least = std::max(need.least,
                          static_cast<int>(isNumber ? word : std::min(word, kLongestWord)) * digit);
    const int whole =
        static_cast<int>(std::min(std::max(TextLength(text), kMinLetters), kMaxLetters));
    need.wished = std::max(need.wished, whole * kPixelsOfCharacter);
  }
  need.wished = std::max(need.wished, need.least);
  return {need.least + kEdges, need.wished + kEdges};
}

// What is too wide for a page in legible letters is taken from the columns that can wrap.
void SetWidths(PrintTable& table) {
  std::vector<ColumnNeed> needs;
  int least = 0;
  int wished = 0;
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    needs.push_back(NeedOf(table, column));
    least += needs.back().least;
    wished += needs.back().wished;
  }
  const double share = wished <= kWidestLandscape || wished == least
                           ? 1
                           : std::max(0.0, static_cast<double>(kWidestLandscape - least) /
                                               static_cast<double>(wished - least));
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    const ColumnNeed& need = needs[column];
    table.columns[column].width =
        need.least + static_cast<int>(std::lround((need.wished - need.least) * share));
  }
  if (wished > kWidestPortrait) table.orientation = PrintOrientation::Landscape;
}

std::string SubjectOf(const ReportTable& report, const Locale& locale) {
  std::string subject;
  for (const std::string& part : {report.savedName, DaysText(report.periods, locale),
                                  RatesText(report, locale), report.notice}) {
    if (!part.empty()) subject += (subject.empty() ? "" : kBetweenDetails) + part;
  }
  return subject;
}

}  // namespace

std::string DaysText(const std::vector<Period>& periods, const Locale& locale) {
  if (periods.empty()) return "All days";
  std::string text;
  for (const Period& period : periods) {
    if (!text.empty()) text += ", compared with ";
    text += locale.FormatLongDate(period.from) + " to " + locale.FormatLongDate(period.to);
  }
  return text;
}

std::string RatesText(const ReportTable& report, const Locale& locale) {
  std::string text;
  if (report.convertedInto.empty()) return text;
  for (const ReportRate& rate : report.rates) {
    // One that is not known leaves the amounts as they are.
    if (!rate.isConverted) continue;
    text += (text.empty() ? "" : "  ") + ("1 " + rate.currency) + " = " +
            locale.FormatNumber(rate.rate, 4) + " " + report.convertedInto;
  }
  return text;
}

PrintTable PrintTableOf(const ReportTable& report, const Locale& locale) {
  PrintTable table;
  table.title = report.name;
  table.subject = SubjectOf(report, locale);
  std::vector<int> decimals;
  for (const ReportColumn& column : report.columns) {
    table.columns.push_back(
        {column.header, 0, column.HoldsNumbers() ? PrintAlignment::Right : PrintAlignment::Left});
    decimals.push_back(DecimalsOf(report, decimals.size()));
  }
  for (const ReportRow& row : report.rows) {
    if (row.kind == ReportRowKind::Total) table.totals.insert(table.rows.size());
    std::vector<std::string> cells;
    for (std::size_t column = 0; column < report.columns.size(); ++column) {
      cells.push_back(CellText(report, row, column, decimals[column], locale));
    }
    table.rows.push_back(std::move(cells));
  }
  SetWidths(table);
  return table;
}

}  // namespace corvanta::inline reports
