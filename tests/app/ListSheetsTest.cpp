#include "app/WindowTest.h"
#include "platform/Files.h"
#include "support/OfficeReader.h"

#include <algorithm>
#include <array>
#include <map>

namespace corvanta {
namespace {

constexpr std::array kLists = {"mnuViewAccounts",    "mnuViewRegister",  "mnuViewCategories",
                               "mnuViewPayees",      "mnuViewSchedules", "mnuViewInvestments",
                               "mnuViewInvestTrans", "mnuViewHoldings",  "mnuReport1",
                               "mnuReport3",         "mnuReport5",       "mnuReport11"};

// What the lists of the window become as spreadsheets.
class ListSheets : public WindowTest {
 protected:
  SpreadsheetTable Exported(const char* entry) {
    Trigger(entry);
    machine_.prompts.ExpectSaveFile("Save File As", machine_.folder.Path("list.xlsx"));
    machine_.prompts.ExpectTell("File Export", ScriptedPrompts::kAnyText);
    Trigger("mnuFileSpreadsheet");
    return machine_.spreadsheet.Rendered().back().table;
  }
  // As they are exported for other programs.
  SpreadsheetTable ExportedTransactions() {
    Trigger("mnuViewRegister");
    machine_.prompts.ExpectSaveFile(ScriptedPrompts::kAnyText, machine_.folder.Path("out.xlsx"));
    machine_.prompts.ExpectAsk(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText, true);
    machine_.prompts.ExpectTell(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText);
    Trigger("mnuFileExport");
    return machine_.spreadsheet.Rendered().back().table;
  }
  std::string ExportedText(const char* entry) {
    Trigger(entry);
    const std::string path = machine_.folder.Path("list.csv");
    machine_.prompts.ExpectSaveFile("Save File As", path);
    machine_.prompts.ExpectTell("File Export", ScriptedPrompts::kAnyText);
    Trigger("mnuFileSpreadsheet");
    return ReadFile(path);
  }
  static const SpreadsheetRow* Below(const SpreadsheetTable& table, const std::string& name) {
    const auto found = std::ranges::find_if(table.rows, [&](const SpreadsheetRow& row) {
      const auto* text = std::get_if<std::string>(&row.cells.front());
      return row.isTotal && text != nullptr && *text == name;
    });
    return found == table.rows.end() ? nullptr : &*found;
  }
  static std::size_t ColumnOf(const SpreadsheetTable& table, const std::string& header) {
    const auto found = std::ranges::find(table.columns, header, &SpreadsheetColumn::header);
    return static_cast<std::size_t>(found - table.columns.begin());
  }
};

TEST_F(ListSheets, WhatStandsBelowAListGoesAlong) {
  OpenData();
  ShowWindow();
  const SpreadsheetTable sheet = Exported("mnuViewRegister");
  const auto* balance = Below(sheet, "Balance");
  ASSERT_NE(balance, nullptr);
  const std::size_t column = ColumnOf(sheet, "Balance");
  ASSERT_LT(column, sheet.columns.size());
  EXPECT_TRUE(std::holds_alternative<double>(balance->cells[column]) ||
              std::holds_alternative<SpreadsheetSum>(balance->cells[column]));
  ASSERT_NE(Below(sheet, "Paid In"), nullptr);
  // In front of them stands every row of the register, and behind them none.
  const auto first = std::ranges::find(sheet.rows, true, &SpreadsheetRow::isTotal);
  EXPECT_TRUE(std::all_of(first, sheet.rows.end(), [](const auto& row) { return row.isTotal; }));
  EXPECT_TRUE(std::all_of(sheet.rows.begin(), first, [](const SpreadsheetRow& row) {
    return std::holds_alternative<Date>(row.cells.front());
  })) << "only rows of the register have a day";

  const std::string text = ExportedText("mnuViewPayees");
  EXPECT_NE(text.find(" payees,"), std::string::npos) << text;
  EXPECT_NE(ExportedText("mnuReport1").find("All days"), std::string::npos);
}

TEST_F(ListSheets, TheTotalOfAListIsASumWhereItIsOne) {
  OpenData(true);
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Purse',2,17,100,0)");
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Bank',2,17,50.5,0)");
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Card',2,1,7,0)");
  ShowWindow();
  const SpreadsheetTable sheet = Exported("mnuViewAccounts");
  std::map<std::string, double> sums;
  for (const SpreadsheetRow& row : sheet.rows) {
    for (const SpreadsheetCell& cell : row.cells) {
      const auto* sum = std::get_if<SpreadsheetSum>(&cell);
      if (sum != nullptr && sum->only) sums[sum->only->text] = sum->value;
    }
  }
  ASSERT_EQ(sums.size(), 2U);
  EXPECT_EQ(sums["GBP"], 150.5);
}

// What an installed spreadsheet program makes of all of them.
TEST_F(ListSheets, EveryListIsReadAsItIsWritten) {
  if (!HasOffice()) GTEST_SKIP() << "no spreadsheet program (soffice) is installed";
  OpenData();
  ShowWindow();
  std::map<std::string, SpreadsheetTable> tables;
  std::map<std::string, std::string> workbooks;
  WorkbookSpreadsheet spreadsheet;
  for (const char* entry : kLists) {
    const std::string name = std::string(entry) + ".xlsx";
    tables[name] = Exported(entry);
    EXPECT_FALSE(tables[name].rows.empty()) << name;
    workbooks[name] = spreadsheet.Render(WithoutResults(tables[name]), SpreadsheetForm::Xlsx);
  }
  tables["export.xlsx"] = ExportedTransactions();
  EXPECT_FALSE(tables["export.xlsx"].rows.empty());
  workbooks["export.xlsx"] = spreadsheet.Render(tables["export.xlsx"], SpreadsheetForm::Xlsx);
  const auto read = ReadByOffice(workbooks);
  ASSERT_EQ(read.size(), workbooks.size());
  for (const auto& [name, rows] : read) ExpectSame(rows, tables[name], name);
}

}  // namespace
}  // namespace corvanta
