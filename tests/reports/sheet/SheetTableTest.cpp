#include "platform/Locale.h"
#include "platform/Spreadsheet.h"
#include "reports/print/PrintTable.h"
#include "reports/query/ReportTable.h"
#include "reports/sheet/SheetTable.h"
#include "support/FixedLocale.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <unzip.h>

#include <array>

namespace corvanta {
namespace {

constexpr auto kTotal = ReportRowKind::Total;
constexpr auto kGroup = ReportRowKind::Group;

ReportColumn Column(const char* header, ReportColumn::Content content) {
  return {header, ReportColumn::Text, content};
}

ReportRow RowOf(ReportRowKind kind, const char* currency, std::vector<Value> cells) {
  ReportRow row;
  row.kind = kind;
  row.currency = currency;
  row.cells = std::move(cells);
  return row;
}

// Two currencies, one of them without decimals.
ReportTable Summary() {
  using enum ReportColumn::Content;
  ReportTable report;
  report.name = "Account Summary";
  report.columns = {Column("Account", Text), Column("Records", Count), Column("Income", Money),
                    Column("Balance", Money), Column("Currency", Text)};
  report.rows = {RowOf(kGroup, "EUR", {"Giro", 2, 10.25, 110.5, "EUR"}),
                 RowOf(kGroup, "JPY", {"=1+1", 3, 500.0, 900.0, "JPY"}),
                 RowOf(kGroup, "EUR", {"Cash & <more>", 4, 0.1, Value(), "EUR"}),
                 RowOf(kTotal, "EUR", {"Total (EUR)", 6, 10.35, 999.0, "EUR"}),
                 RowOf(kTotal, "JPY", {"Total (JPY)", 3, 500.0, 900.0, "JPY"})};
  return report;
}

const SpreadsheetSum* SumAt(const SpreadsheetTable& table, std::size_t row, std::size_t column) {
  return std::get_if<SpreadsheetSum>(&table.rows.at(row).cells.at(column));
}

// A part of the workbook as it is in the file.
std::string PartOf(const std::string& workbook, const char* part) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("list.xlsx", workbook);
  unzFile file = unzOpen(path.c_str());
  if (file == nullptr) return {};
  std::string content;
  if (unzLocateFile(file, part, 1) == UNZ_OK && unzOpenCurrentFile(file) == UNZ_OK) {
    std::array<char, 4096> bytes{};
    for (int read = 0; (read = unzReadCurrentFile(file, bytes.data(), bytes.size())) > 0;) {
      content.append(bytes.data(), static_cast<std::size_t>(read));
    }
    unzCloseCurrentFile(file);
  }
  unzClose(file);
  return content;
}

bool Holds(const std::string& text, const char* piece) {
  return text.find(piece) != std::string::npos;
}

TEST(SheetTable, ATotalThatIsASumBecomesOne) {
  const SpreadsheetTable sheet = SheetOf(Summary());
  EXPECT_EQ(sheet.rows[0].decimals, 2);
  EXPECT_EQ(sheet.rows[1].decimals, 0);
  const auto* income = SumAt(sheet, 3, 2);
  ASSERT_NE(income, nullptr);
  EXPECT_EQ(income->value, 10.35);
  EXPECT_EQ(income->lastRow, 2U);
  ASSERT_TRUE(income->only);
  EXPECT_EQ(income->only->column, 4U);
  EXPECT_EQ(income->only->text, "EUR");
  EXPECT_NE(SumAt(sheet, 3, 1), nullptr) << "of counts, too";
  EXPECT_EQ(SumAt(sheet, 3, 3), nullptr) << "what is no sum of the rows stays a number";
  EXPECT_EQ(std::get<double>(sheet.rows[3].cells[3]), 999);
  EXPECT_EQ(SumAt(sheet, 4, 2)->only->text, "JPY");

  ReportTable one = Summary();
  one.rows.erase(one.rows.begin() + 1);
  one.rows.pop_back();
  EXPECT_FALSE(SumAt(SheetOf(one), 2, 2)->only) << "there is one currency alone";
  one.rows.back().currency = "E\"R";
  for (ReportRow& row : one.rows) row.currency = row.kind == kTotal ? "E\"R" : row.currency;
  EXPECT_FALSE(SumAt(SheetOf(one), 2, 2)->only) << "nothing odd gets into a formula";
}

TEST(SheetTable, TotalsBetweenTheRowsAreOfTheRowsBeforeThem) {
  using enum ReportColumn::Content;
  ReportTable report;
  report.columns = {Column("Account", Text), Column("Total", Money)};
  for (const double amount : {1.0, 2.0}) report.rows.push_back(RowOf(kGroup, "", {"a", amount}));
  report.rows.push_back(RowOf(kTotal, "", {"Total for a", 3.0}));
  report.rows.push_back(RowOf(kGroup, "", {"b", 4.0}));
  report.rows.push_back(RowOf(kTotal, "", {"Total for b", 4.0}));
  report.rows.push_back(RowOf(kTotal, "", {"Total", 7.0}));
  const SpreadsheetTable sheet = SheetOf(report);
  EXPECT_EQ(SumAt(sheet, 2, 1)->firstRow, 0U);
  EXPECT_EQ(SumAt(sheet, 2, 1)->lastRow, 1U);
  EXPECT_EQ(SumAt(sheet, 4, 1)->firstRow, 3U);
  ASSERT_NE(SumAt(sheet, 5, 1), nullptr);
  EXPECT_EQ(SumAt(sheet, 5, 1)->firstRow, 0U) << "subtotals are left out of it";
  EXPECT_EQ(SumAt(sheet, 5, 1)->lastRow, 3U);
}

TEST(SheetTable, AWorkbookHoldsNumbersDaysAndFormulas) {
  ReportTable report = Summary();
  report.columns.push_back(Column("Date", ReportColumn::Content::Date));
  report.rows[0].cells.push_back(Value("2026-11-21"));
  const std::string workbook = WorkbookSpreadsheet().Render(SheetOf(report), SpreadsheetForm::Xlsx);
  const std::string sheet = PartOf(workbook, "xl/worksheets/sheet1.xml");
  EXPECT_TRUE(Holds(sheet, "<v>10.25</v>"));
  EXPECT_TRUE(Holds(sheet, "<v>46347</v>")) << "21 November 2026 as spreadsheets count";
  EXPECT_TRUE(Holds(sheet, "<f>SUMIF($E$2:$E$4,\"EUR\",C2:C4)</f><v>10.35</v>"));
  EXPECT_TRUE(Holds(sheet, "state=\"frozen\""));
  EXPECT_TRUE(Holds(sheet, "<autoFilter ref=\"A1:F4\"/>")) << "the totals are not filtered";
  EXPECT_FALSE(Holds(sheet, "<f>1+1</f>"));
  EXPECT_TRUE(Holds(sheet, "<col min=\"1\" max=\"1\""));
  const std::string texts = PartOf(workbook, "xl/sharedStrings.xml");
  EXPECT_TRUE(Holds(texts, "<t>=1+1</t>"));
  EXPECT_TRUE(Holds(texts, "<t>Cash &amp; &lt;more&gt;</t>"));
  const std::string styles = PartOf(workbook, "xl/styles.xml");
  EXPECT_TRUE(Holds(styles, "formatCode=\"#,##0.00\""));
  EXPECT_TRUE(Holds(styles, "formatCode=\"#,##0\""));
  EXPECT_TRUE(Holds(styles, "numFmtId=\"14\"")) << "a day";
}

TEST(SheetTable, AListIsReadAsTheLocaleWritesIt) {
  const FixedLocale locale;
  PrintTable list;
  list.title = "Sample Bank Account";
  list.columns = {{"Date", 90},
                  {"Payee", 100},
                  {"Hidden", 0},
                  {"Amount", 90, PrintAlignment::Right},
                  {"Worth", 90, PrintAlignment::Right}};
  list.rows = {{"21/11/2026", "12", "secret", "1,234.50", "GBP 5.00"},
               {"", "b", "secret", "-2.00", ""},
               {"01/12/2026", "Total", "", "1,232.50", "GBP 5.00"}};
  list.totals = {2};
  const SpreadsheetTable sheet = SheetOf(list, locale);
  ASSERT_EQ(sheet.columns.size(), 4U);
  EXPECT_EQ(std::get<Date>(sheet.rows[0].cells[0]), *Date::FromYmd(2026, 11, 21));
  EXPECT_EQ(std::get<std::string>(sheet.rows[0].cells[1]), "12");
  EXPECT_EQ(std::get<double>(sheet.rows[0].cells[2]), 1234.5);
  EXPECT_EQ(std::get<std::string>(sheet.rows[0].cells[3]), "GBP 5.00");
  EXPECT_EQ(sheet.rows[1].decimals, 2);
  EXPECT_NE(SumAt(sheet, 2, 2), nullptr);
}

TEST(SheetTable, WhatStandsBelowAListFollowsItsRows) {
  const FixedLocale locale;
  PrintTable list;
  list.columns = {{"Account", 90},
                  {"Currency", 90},
                  {"Opening", 90, PrintAlignment::Right},
                  {"Balance", 90, PrintAlignment::Right}};
  list.rows = {{"Bank", "EUR", "1.00", "1,200.50"},
               {"Purse", "EUR", "2.00", "34.00"},
               {"Yen", "JPY", "3", "500"}};
  list.summaries = {{"3 accounts", "Total (EUR): 1,234.50"},
                    {"", "Total (JPY): 500"},
                    {"", "Opening : 6.00"},
                    {"", "Total (EUR): 5.00, gain 2.00"}};
  const SpreadsheetTable sheet = SheetOf(list, locale);
  ASSERT_EQ(sheet.rows.size(), 8U);
  const auto name = [&](std::size_t row) {
    return std::get<std::string>(sheet.rows[row].cells.front());
  };
  EXPECT_EQ(name(3), "3 accounts");
  EXPECT_EQ(name(4), "Total (EUR)");
  ASSERT_NE(SumAt(sheet, 4, 3), nullptr);
  EXPECT_EQ(SumAt(sheet, 4, 3)->only->text, "EUR");
  EXPECT_EQ(SumAt(sheet, 5, 3)->value, 500);
  EXPECT_EQ(sheet.rows[4].decimals, 2);
  EXPECT_EQ(sheet.rows[5].decimals, 0);
  EXPECT_EQ(name(6), "Opening");
  EXPECT_NE(SumAt(sheet, 6, 2), nullptr) << "in the column of that name";
  EXPECT_EQ(name(7), "Total (EUR): 5.00, gain 2.00") << "what is no figure stays as it is";
  for (std::size_t row = 3; row < sheet.rows.size(); ++row) EXPECT_TRUE(sheet.rows[row].isTotal);
}

}  // namespace
}  // namespace corvanta
