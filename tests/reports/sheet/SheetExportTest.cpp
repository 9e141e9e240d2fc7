#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "reports/sheet/SheetExport.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

SpreadsheetTable Sheet() {
  SpreadsheetTable sheet{"List", {{"Payee"}, {"Amount", SpreadsheetKind::Money}, {"Day"}}, {}};
  sheet.rows = {{{std::string("Baker, \"Söhne\""), -12.5, *Date::FromYmd(2026, 11, 21)}},
                {{std::string("=cmd|' /C calc'!A0"), 1e6}},
                {{std::string("Total"), SpreadsheetSum{999987.5, 0, 1, {}}, std::monostate{}}}};
  return sheet;
}

TEST(SheetExport, TextFilesRunNothing) {
  EXPECT_EQ(CsvOf(Sheet()),
            "Payee,Amount,Day\r\n"
            "\"Baker, \"\"Söhne\"\"\",-12.5,2026-11-21\r\n"
            "'=cmd|' /C calc'!A0,1000000,\r\n"
            "Total,999987.5,\r\n");
}

TEST(SheetExport, TheNameSaysTheForm) {
  TestPlatform machine;
  for (const char* name : {"a.csv", "a.XLS", "a.xlsx"}) {
    const std::string path = machine.folder.Path(name);
    machine.prompts.ExpectSaveFile("Save File As", path);
    machine.prompts.ExpectTell("File Export", "File Export Complete\r\n");
    EXPECT_TRUE(AskAndExportSheet(Sheet(), machine.Get()));
    EXPECT_FALSE(ReadFile(path).empty());
  }
  ASSERT_EQ(machine.spreadsheet.Rendered().size(), 2U);
  EXPECT_EQ(machine.spreadsheet.Rendered()[0].form, SpreadsheetForm::Xls);
  EXPECT_EQ(machine.spreadsheet.Rendered()[1].form, SpreadsheetForm::Xlsx);

  machine.prompts.ExpectSaveFile("Save File As", machine.folder.Path("a.txt"));
  machine.prompts.ExpectTell("File Export Warning",
                             "Please enter, file name including correct file extension");
  EXPECT_FALSE(AskAndExportSheet(Sheet(), machine.Get()));
  machine.prompts.ExpectSaveFile("Save File As", std::nullopt);
  EXPECT_FALSE(AskAndExportSheet(Sheet(), machine.Get()));
}

TEST(SheetExport, NothingIsWrittenWithoutAProgramForTheForm) {
  TestPlatform usual;
  WorkbookSpreadsheet bare{std::vector<std::string>{}};
  const Platform& all = usual.Get();
  Platform machine{all.registry, all.locale,   all.clock,  all.machine, all.files, all.prompts,
                   all.progress, all.download, all.opener, bare,        "",        ""};
  const std::string path = usual.folder.Path("a.xls");
  try {
    ExportSheet(Sheet(), path, machine);
    FAIL();
  } catch (const PlatformError& error) {
    EXPECT_STREQ(error.what(), "Microsoft Excel not installed. Cannot create export file");
  }
  EXPECT_FALSE(FileExists(path));
}

}  // namespace
}  // namespace corvanta
