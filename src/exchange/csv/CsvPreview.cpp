#include "exchange/csv/CsvPreview.h"

#include "exchange/csv/CsvReader.h"
#include "exchange/csv/StyleFinder.h"
#include "exchange/import/ImportKind.h"
#include "exchange/text/DateStyle.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <cmath>

namespace corvanta::inline exchange {
namespace {

class RowReader {
 public:
  RowReader(std::string_view text, const CsvMapping& mapping, const Locale& locale)
      : mapping_(mapping), locale_(locale) {
    if (mapping.date == 0) return;
    end_ = CsvReader(text, mapping, locale).FindEnd();
    if (mapping.income == 0 || mapping.expense == 0) return;
    hasAmounts_ = true;
    StyleFinder finder;
    ImportJob job;
    job.csv = mapping;
    ReadImport(ImportKind::Csv, text, job, locale, finder);
    mark_ = finder.Find(ImportKind::Csv, job, locale).mark;
  }

  void Read(const CsvRow& row, CsvPreviewRow& shown) const {
    shown.isSkipped = shown.number <= mapping_.skip || row.IsBlank() ||
                      (mapping_.date != 0 && row.line >= end_.line);
    ImportRecord record;
    if (!shown.isSkipped && hasAmounts_) {
      shown.isSkipped = !CsvReader::ReadRow(row, mapping_, record);
    }
    if (shown.isSkipped) return;
    shown.payee = row.Cell(mapping_.payee);
    shown.category = row.Cell(mapping_.category);
    shown.description = row.Cell(mapping_.description);
    shown.reference = CsvReader::ReferenceIn(row, mapping_);
    shown.problem = record.fault;
    if (mapping_.date != 0) ReadDate(std::string(row.Cell(mapping_.date)), shown);
    if (hasAmounts_) ReadAmount(record, shown);
  }

 private:
  void ReadDate(const std::string& cell, CsvPreviewRow& shown) const {
    const auto date = ReadFileDate(cell, mapping_.order, locale_, DateTolerance::OrderOnly);
    if (date) {
      shown.date = locale_.FormatShortDate(*date);
    } else {
      shown.problem = "\"" + cell + "\" is no date.";
    }
  }

  void ReadAmount(const ImportRecord& record, CsvPreviewRow& shown) const {
    const std::optional<double> amount = ReadFileNumber(record.amount.text, mark_);
    if (amount) {
      shown.amount = locale_.FormatNumber(OnSide(*amount, record.side));
    } else {
      shown.problem = "\"" + record.amount.text + "\" is no number.";
    }
  }

  const CsvMapping& mapping_;
  const Locale& locale_;
  CsvReader::End end_;
  std::optional<DecimalMark> mark_;
  bool hasAmounts_ = false;
};

}  // namespace

std::vector<CsvRow> FirstRows(std::string_view text, std::string_view separator, int most) {
  std::vector<CsvRow> result;
  CsvRows rows(text, separator);
  CsvRow row;
  while (static_cast<int>(result.size()) < most && rows.Next(row)) result.push_back(row);
  return result;
}

CsvPreview ReadPreview(std::string_view text, const CsvMapping& mapping, const Locale& locale) {
  CsvPreview preview;
  preview.hasDescriptions = mapping.description != 0;
  preview.hasReferences = mapping.reference != 0 || mapping.number != 0;
  const RowReader reader(text, mapping, locale);
  const std::vector<CsvRow> rows = FirstRows(text, mapping.separator, kPreviewRows);
  preview.isWhole = rows.empty() || rows.back().offset >= text.size();
  for (const CsvRow& row : rows) {
    CsvPreviewRow shown;
    shown.number = static_cast<int>(preview.rows.size()) + 1;
    shown.cells = row.cells;
    reader.Read(row, shown);
    preview.columns = std::max(preview.columns, static_cast<int>(row.cells.size()));
    preview.rows.push_back(std::move(shown));
  }
  return preview;
}

std::string HeaderOf(std::string_view text, const CsvMapping& mapping) {
  if (mapping.skip < 1) return {};
  std::string header;
  for (const CsvRow& row : FirstRows(text, mapping.separator, mapping.skip)) {
    if (row.IsBlank()) continue;
    header.clear();
    for (const std::string& cell : row.cells) {
      if (!header.empty()) header += " | ";
      header += Trim(cell);
    }
  }
  std::ranges::replace(header, '\n', ' ');
  return header;
}

}  // namespace corvanta::inline exchange
