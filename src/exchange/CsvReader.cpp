#include "exchange/CsvReader.h"

#include "exchange/DateStyle.h"

#include <limits>

namespace corvanta {
namespace {

constexpr std::size_t kMostTrailing = 5;

std::string_view AmountCell(const CsvRow& row, int column, bool zeroIsEmpty) {
  const std::string_view cell = row.Cell(column);
  return zeroIsEmpty && IsZeroText(cell) ? std::string_view() : cell;
}

}  // namespace

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
  record.amount = {std::string(income.empty() ? expense : income), row.line};
  record.side = income.empty() ? AmountSide::Expense : AmountSide::AsItStands;
  const std::optional<int> side = SideOf(row.Cell(mapping.sign));
  if (!side) {
    record.fault = "\"" + std::string(row.Cell(mapping.sign)) + "\" says neither debit nor credit.";
  } else if (*side != 0) {
    record.side = *side < 0 ? AmountSide::Debit : AmountSide::Credit;
  }
  return true;
}

std::size_t CsvReader::LastLine() const {
  constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
  CsvRows rows(text_, mapping_.separator);
  CsvRow row;
  std::size_t last = kNone;
  std::size_t trailing = 0;
  for (int number = 0; rows.Next(row); ++number) {
    if (number < mapping_.skip || row.IsBlank()) continue;
    if (IsDateShape(row.Cell(mapping_.date), locale_)) {
      last = row.line;
      trailing = 0;
    } else {
      ++trailing;
    }
  }
  return trailing > kMostTrailing ? kNone : last;
}

void CsvReader::Run(ImportSink& sink) const {
  const std::size_t last = LastLine();
  CsvRows rows(text_, mapping_.separator);
  CsvRow row;
  for (int number = 0; rows.Next(row); ++number) {
    if (number < mapping_.skip || row.IsBlank()) continue;
    ImportRecord record;
    if (!ReadRow(row, mapping_, record)) {
      sink.OnProblem(row.line, "The row has no amount; it was left out.");
    } else if (row.line > last) {
      sink.OnProblem(row.line, "The row has no date; it was left out.");
    } else if (!sink.OnRecord(record)) {
      return;
    }
  }
}

}  // namespace corvanta
