#include "cli/output/TextTableWriter.h"

#include "cli/output/OutputTable.h"
#include "platform/Locale.h"
#include "platform/ShortestNumber.h"
#include "platform/ShownText.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ostream>

namespace corvanta::inline cli {
namespace {

constexpr int kMaxDecimals = 10;
constexpr double kLargestGrouped = 1e15;  // beyond it a double has no more digits to show
constexpr std::string_view kGap = "  ";

bool IsRightAligned(OutputKind kind) {
  return kind == OutputKind::Integer || kind == OutputKind::Number || kind == OutputKind::Money;
}

// A row stays a line.
std::string CellText(const std::string& text) {
  std::string shown = ShownText(text);
  std::ranges::replace(shown, '\n', ' ');
  return shown;
}

int DecimalsOf(const Value& value) {
  if (!value.IsDouble()) return 0;
  const std::string text = ShortestNumber(value.Double());
  const std::size_t point = text.find('.');
  if (point == std::string::npos || text.find('e') != std::string::npos) return 0;
  return static_cast<int>(std::min<std::size_t>(text.size() - point - 1, kMaxDecimals));
}

// One number of decimals for a whole column, so that its points stand under one another.
int DecimalsOfColumn(const OutputTable& table, std::size_t column) {
  int decimals = 0;
  for (const std::vector<Value>& row : table.Rows()) {
    decimals = std::max(decimals, DecimalsOf(row[column]));
  }
  return decimals;
}

std::string Padded(const std::string& text, std::size_t width, bool right) {
  const std::string padding(width - std::min(width, TextLength(text)), ' ');
  return right ? padding + text : text + padding;
}

void WriteLine(std::string line, std::ostream& out) {
  line.erase(line.find_last_not_of(' ') + 1);
  out << line << '\n';
}

}  // namespace

std::string TextTableWriter::NumberCell(double number, int decimals) const {
  const double size = std::abs(number);
  const bool vanishes = decimals >= 0 && size != 0 && size < 0.5 * std::pow(10.0, -decimals);
  if (!std::isfinite(number) || size >= kLargestGrouped || vanishes) return ShortestNumber(number);
  return locale_.FormatNumber(number, decimals);
}

std::string TextTableWriter::DateCell(const std::string& iso) const {
  const std::optional<DateTime> moment = DateTime::FromIso(iso);
  if (!moment) return CellText(iso);
  std::string text = locale_.FormatShortDate(moment->date);
  if (moment->seconds != 0) text += " " + moment->ToIso().substr(std::string("YYYY-MM-DDT").size());
  return text;
}

std::vector<std::string> TextTableWriter::Cells(const OutputTable& table,
                                                std::size_t column) const {
  const OutputColumn& header = table.Columns()[column];
  const int decimals = header.kind == OutputKind::Money ? -1 : DecimalsOfColumn(table, column);
  std::vector<std::string> cells = {CellText(header.name)};
  for (const std::vector<Value>& row : table.Rows()) {
    const Value& value = row[column];
    const bool isMoney = header.kind == OutputKind::Money && !value.IsNull() && !value.IsText();
    if (value.IsDouble() || isMoney) {
      cells.push_back(NumberCell(value.Double(), decimals));
    } else if (header.kind == OutputKind::Date) {
      cells.push_back(DateCell(value.Text()));
    } else {
      cells.push_back(CellText(value.Text()));
    }
  }
  return cells;
}

void TextTableWriter::Write(const OutputTable& table, std::ostream& out) const {
  std::vector<std::string> lines(table.Rows().size() + 1);
  std::string underline;
  for (std::size_t column = 0; column < table.Columns().size(); ++column) {
    const std::vector<std::string> cells = Cells(table, column);
    std::size_t width = 0;
    for (const std::string& cell : cells) width = std::max(width, TextLength(cell));
    const bool right = IsRightAligned(table.Columns()[column].kind);
    for (std::size_t line = 0; line < lines.size(); ++line) {
      if (column != 0) lines[line] += kGap;
      lines[line] += Padded(cells[line], width, right);
    }
    if (column != 0) underline += kGap;
    underline += std::string(width, '-');
  }
  WriteLine(lines.front(), out);
  WriteLine(underline, out);
  for (std::size_t line = 1; line < lines.size(); ++line) WriteLine(lines[line], out);
}

}  // namespace corvanta::inline cli
