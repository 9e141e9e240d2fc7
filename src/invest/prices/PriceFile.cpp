#include "invest/prices/PriceFile.h"

#include "exchange/csv/CsvPreview.h"
#include "exchange/csv/CsvRows.h"
#include "exchange/text/DateStyle.h"
#include "platform/BankWords.h"
#include "platform/Locale.h"
#include "platform/NumberStyle.h"

#include <algorithm>
#include <array>

namespace corvanta::inline invest {
namespace {

// Of the column of a closing price, the surest first.
constexpr std::array<std::string_view, 8> kPriceWords = {"close", "price", "nav",         "last",
                                                         "kurs",  "cours", "schlusskurs", "value"};

// 0 where no heading names one.
int PriceColumn(const CsvRow& headings) {
  for (const std::string_view word : kPriceWords) {
    for (std::size_t column = 0; column < headings.cells.size(); ++column) {
      const std::string heading = PlainWord(headings.cells[column]);
      if (heading == word) return static_cast<int>(column) + 1;
    }
  }
  for (const std::string_view word : kPriceWords) {
    for (std::size_t column = 0; column < headings.cells.size(); ++column) {
      const std::string heading = PlainWord(headings.cells[column]);
      if (HasWord(heading, word)) return static_cast<int>(column) + 1;
    }
  }
  return 0;
}

DecimalMark MarkOfColumn(std::string_view text, const CsvMapping& mapping, const Locale& locale) {
  if (mapping.decimalMark) return *mapping.decimalMark;
  DecimalMarkFinder finder;
  CsvRows rows(text, mapping.separator);
  CsvRow row;
  for (int number = 0; rows.Next(row); ++number) {
    if (number >= mapping.skip) finder.Add(row.Cell(mapping.income));
  }
  return finder.Find(locale);
}

}  // namespace

CsvMapping ProposePriceMapping(std::string_view text, const Locale& locale) {
  CsvMapping mapping = ProposeMapping(text, locale);
  const std::vector<CsvRow> rows = FirstRows(text, mapping.separator, kPreviewRows);
  for (int row = 0; row < mapping.skip && row < static_cast<int>(rows.size()); ++row) {
    const int column = PriceColumn(rows[static_cast<std::size_t>(row)]);
    if (column != 0 && column != mapping.date) mapping.income = mapping.expense = column;
  }
  return mapping;
}

PriceFileRows ReadPriceFile(std::string_view text, const CsvMapping& mapping,
                            const Locale& locale) {
  const DecimalMark mark = MarkOfColumn(text, mapping, locale);
  PriceFileRows read;
  CsvRows rows(text, mapping.separator);
  CsvRow row;
  for (int number = 0; rows.Next(row); ++number) {
    if (number < mapping.skip || row.IsBlank()) continue;
    const std::string_view day = row.Cell(mapping.date);
    const std::string_view cell = row.Cell(mapping.income);
    const std::optional<Date> date = ReadFileDate(day, mapping.order, locale);
    const std::optional<double> price = ReadFileNumber(cell, mark);
    if (!date) {
      read.problems.push_back({row.line, "\"" + std::string(day) + "\" is no date."});
    } else if (!price || *price <= 0) {
      read.problems.push_back({row.line, "\"" + std::string(cell) + "\" is no price."});
    } else {
      read.prices.push_back({*date, *price});
    }
  }
  return read;
}

}  // namespace corvanta::inline invest
