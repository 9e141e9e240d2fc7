#include "ledger/LedgerTest.h"
#include "platform/Spreadsheet.h"
#include "reports/query/PlainLedger.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRunner.h"
#include "reports/sheet/SheetTable.h"
#include "support/OfficeReader.h"

#include <map>
#include <random>

namespace corvanta {
namespace {

// What an installed spreadsheet program makes of the reports.
class SpreadsheetPrograms : public LedgerTest {
 protected:
  ReportTable Run(int report) {
    ReportRequest request;
    request.report = report;
    request.currency = "GBP";
    return RunReport(Ledger(), request, rates_, machine_.Get());
  }
  PlainRates rates_;
  WorkbookSpreadsheet spreadsheet_;
};

TEST_F(SpreadsheetPrograms, EveryReportIsReadAsItIsWritten) {
  if (!HasOffice()) GTEST_SKIP() << "no spreadsheet program (soffice) is installed";
  std::mt19937 random(3);
  WriteLedger(RandomLedger(random, 120), Store());
  std::map<std::string, SpreadsheetTable> tables;
  std::map<std::string, std::string> workbooks;
  std::size_t sums = 0;
  for (const ReportInfo& info : ReportCatalogue()) {
    const std::string name = "report" + std::to_string(info.number) + ".xlsx";
    const SpreadsheetTable& table = tables[name] = SheetOf(Run(info.number));
    EXPECT_FALSE(table.rows.empty()) << info.name;
    for (const SpreadsheetRow& row : table.rows) {
      for (const auto& cell : row.cells) sums += std::holds_alternative<SpreadsheetSum>(cell);
    }
    workbooks[name] = spreadsheet_.Render(WithoutResults(table), SpreadsheetForm::Xlsx);
  }
  EXPECT_GT(sums, 20U) << "totals are formulas";
  // The older form is written by the program itself; texts that look like formulas stay texts.
  SpreadsheetTable odd{"Odd", {{"Payee"}, {"Amount", SpreadsheetKind::Money}, {"Day"}}, {}};
  odd.columns[2].kind = SpreadsheetKind::Date;
  odd.rows = {
      {{std::string("=1+1"), -12.5, *Date::FromYmd(2026, 11, 21)}},
      {{std::string("Käse, \"mild\" 🧀"), 1e6, std::monostate{}}},
      {{std::string("00123"), 0.125, *Date::FromYmd(2024, 2, 29)}, 3},
      {{std::string("Total"), SpreadsheetSum{999987.625, 0, 2, {}}, std::monostate{}}, 2, true}};
  tables["odd.xls"] = odd;
  workbooks["odd.xls"] = spreadsheet_.Render(odd, SpreadsheetForm::Xls);
  EXPECT_TRUE(workbooks["odd.xls"].starts_with("\xD0\xCF\x11\xE0"));
  const auto read = ReadByOffice(workbooks);
  ASSERT_EQ(read.size(), workbooks.size());
  for (const auto& [name, rows] : read) ExpectSame(rows, tables[name], name);
}

}  // namespace
}  // namespace corvanta
