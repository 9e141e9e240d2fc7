#include "reports/ReportFile.h"
#include "reports/chart/ReportRows.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(ReportFile, TheNameSaysWhatIsMadeOfAReport) {
  TestPlatform machine;
  const ReportTable report = CashFlowReport();
  const auto bytes = [&](const char* name) {
    return ReportBytes(report, ReportFormOf(name).value(), machine.Get()).value();
  };
  EXPECT_TRUE(bytes("a.PDF").starts_with("%PDF-"));
  EXPECT_NE(bytes("a.svg").find("<svg"), std::string::npos);
  EXPECT_TRUE(bytes("a.png").starts_with("\x89PNG"));
  EXPECT_EQ(bytes("a.csv"),
            "Year/Month,Income,Expense,Total,Currency\r\n"
            "202610,100,-120,-20,EUR\r\n"
            "202611,200,-50,150,EUR\r\n"
            "Total (EUR),300,-170,130,EUR\r\n");
  EXPECT_EQ(bytes("a.xlsx"), "spreadsheet");
  EXPECT_EQ(bytes("a.xls"), "spreadsheet");
  ASSERT_EQ(machine.spreadsheet.Rendered().size(), 2U);
  EXPECT_EQ(machine.spreadsheet.Rendered()[0].form, SpreadsheetForm::Xlsx);
  EXPECT_EQ(machine.spreadsheet.Rendered()[1].form, SpreadsheetForm::Xls);
  EXPECT_FALSE(ReportFormOf("a.txt"));
  EXPECT_FALSE(ReportFormOf("pdf"));
}

TEST(ReportFile, WhatHasNoChartSaysSo) {
  TestPlatform machine;
  ReportTable report =
      ReportOf(11, "Investment Transactions", {TextColumn("Account"), MoneyColumn("Total")});
  machine.prompts.ExpectTell("File Export Warning",
                             "The report \"Investment Transactions\" has no chart. Nothing was "
                             "written. Choose a name that ends in .pdf or .xlsx instead.");
  EXPECT_FALSE(ReportBytes(report, ReportForm::Svg, machine.Get()));
  report.report = 2;
  machine.prompts.ExpectTell(
      "File Export Warning",
      "The report has no rows that a chart could be drawn of. Nothing was written.");
  EXPECT_FALSE(ReportBytes(report, ReportForm::Png, machine.Get()));
  EXPECT_TRUE(ReportBytes(report, ReportForm::Pdf, machine.Get()));
}

}  // namespace
}  // namespace corvanta
