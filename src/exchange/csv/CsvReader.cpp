#include "exchange/csv/CsvReader.h"

#include "exchange/text/DateStyle.h"

#include <limits>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kMaxTrailing = 5;

std::string_view AmountCell(const CsvRow& row, int column, bool zeroIsEmpty) {
  const std::string_view cell = row.Cell(column);
  return zeroIsEmpty && IsZeroText(cell) ? std::string_view() : cell;
}

// Whether the file ends inside the row, the last one with a date: in a quoted cell, or in a line
// without its end that has fewer cells than the rows above.
bool IsCut(const CsvRow& row, std::size_t cellsBefore, std::string_view text) {
  const bool isOpen = !text.ends_with('\n') && !text.ends_with('\r');
  const bool isShort = row.cells.size() < cellsBefore;
  if (row.hasOpenQuote) return isOpen || isShort;
  return isOpen && isShort && row.offset >= text.size();
}

}  // namespace

std::string CsvReader::ReferenceIn(const CsvRow& row, const CsvMapping& mapping) {
  const std::string number(row.Cell(mapping.number));
  const std::string reference(row.Cell(mapping.reference));
  if (number.empty() || number == reference) return reference;
  return reference.empty() ? number : number + " " + reference;
}

bool CsvReader::ReadRow(const CsvRow& row, const CsvMapping& mapping, ImportRecord& record) {
  const bool one = mapping.income == mapping.expense;
  const bool zeroIsEmpty = mapping.zeroIsEmpty && !one;
  const std::string_view income = AmountCell(row, mapping.income, zeroIsEmpty);
  const std::string_view expense = AmountCell(row, mapping.expense, zeroIsEmpty);
  if (income.empty() && expense.empty()) return false;
  record.line = row.line;
  record.offset = row.offset;
  record.date = {std::string(row.Cell(mapping.date)), row.line};
  record.payee = row.Cell(mapping.payee);
  record.category = ReadImportCategory(row.Cell(mapping.category));
  record.memo = row.Cell(mapping.description);
  record.reference = ReferenceIn(row, mapping);
  record.amount = {std::string(income.empty() ? expense : income), row.line};
  record.side = income.empty() ? AmountSide::Expense : AmountSide::AsItStands;
  const std::optional<int> side = SideOf(row.Cell(mapping.sign), mapping);
  if (!side) {
    record.fault = "\"" + std::string(row.Cell(mapping.sign)) + "\" says neither debit nor credit.";
  } else if (*side != 0) {
    record.side = *side < 0 ? AmountSide::Debit : AmountSide::Credit;
  }
  return true;
}

CsvReader::End CsvReader::FindEnd() const {
  CsvRows rows(text_, mapping_.separator);
  CsvRow row;
  End end{std::numeric_limits<std::size_t>::max(), false};
  std::size_t trailing = 0;
  std::size_t cells = 0;
  for (int number = 0; rows.Next(row); ++number) {
    if (number < mapping_.skip || row.IsBlank()) continue;
    if (IsDateShape(row.Cell(mapping_.date), locale_)) {
      end.isCut = IsCut(row, cells, text_);
      end.line = row.line + (end.isCut ? 0 : 1);
      cells = row.cells.size();
      trailing = 0;
    } else {
      ++trailing;
    }
  }
  if (end.isCut || trailing <= kMaxTrailing) return end;
  return {std::numeric_limits<std::size_t>::max(), false};
}

void CsvReader::Run(ImportSink& sink) const {
  const End end = FindEnd();
  CsvRows rows(text_, mapping_.separator);
  CsvRow row;
  for (int number = 0; rows.Next(row); ++number) {
    if (number < mapping_.skip || row.IsBlank()) continue;
    if (end.isCut && row.line >= end.line) {
      return sink.OnProblem(row.line,
                            "The file ends inside this row; nothing of it was imported. Ask the "
                            "bank for the whole file.");
    }
    ImportRecord record;
    if (!ReadRow(row, mapping_, record)) {
      sink.OnProblem(row.line, "The row has no amount; it was left out.");
    } else if (row.line >= end.line) {
      sink.OnProblem(row.line, "The row has no date; it was left out.");
    } else if (!sink.OnRecord(record)) {
      return;
    }
  }
}

}  // namespace corvanta::inline exchange
