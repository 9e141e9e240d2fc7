#include "support/OfficeReader.h"

#include "platform/Files.h"
#include "platform/SpreadsheetProgram.h"
#include "support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace corvanta {
namespace {

// Formulas are worked out whoever wrote the file.
constexpr const char* kProfile =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\" "
    "xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n"
    "<item oor:path=\"/org.openoffice.Office.Calc/Formula/Load\">"
    "<prop oor:name=\"OOXMLRecalcMode\" oor:op=\"fuse\"><value>0</value></prop></item>\n"
    "</oor:items>\n";

// Commas, UTF-8, cells in full and not as they are shown.
constexpr const char* kForm = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,false,false";

OfficeTable RowsOf(const std::string& csv) {
  OfficeTable rows;
  std::vector<std::string> row;
  std::string cell;
  bool isQuoted = false;
  for (std::size_t i = 0; i < csv.size(); ++i) {
    const char c = csv[i];
    if (c == '"' && isQuoted && i + 1 < csv.size() && csv[i + 1] == '"') {
      cell += csv[++i];
    } else if (c == '"') {
      isQuoted = !isQuoted;
    } else if (isQuoted || (c != ',' && c != '\n')) {
      cell += c;
    } else {
      row.push_back(std::exchange(cell, {}));
      if (c == '\n') rows.push_back(std::exchange(row, {}));
    }
  }
  return rows;
}

std::string Expected(const SpreadsheetCell& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  if (const auto* day = std::get_if<Date>(&cell)) {
    return fmt::format("{:02}/{:02}/{:04}", day->Month(), day->Day(), day->Year());
  }
  return {};
}

void ExpectNumber(const std::string& read, double value, double slack, const std::string& where) {
  char* end = nullptr;
  const double number = std::strtod(read.c_str(), &end);
  EXPECT_TRUE(!read.empty() && *end == '\0') << where << ": \"" << read << '"';
  EXPECT_NEAR(number, value, slack) << where;
}

}  // namespace

bool HasOffice() {
  return SpreadsheetProgram(ProgramFolders()).IsInstalled();
}

std::map<std::string, OfficeTable> ReadByOffice(
    const std::map<std::string, std::string>& workbooks) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.Path("profile/user"));
  folder.Write("profile/user/registrymodifications.xcu", kProfile);
  std::string files;
  for (const auto& [name, bytes] : workbooks) files += " '" + folder.Write(name, bytes) + "'";
  const std::string command =
      "LC_ALL=C timeout 200 "
      "\"$(command -v soffice || command -v libreoffice || command -v localc)\" "
      "'-env:UserInstallation=file://" +
      folder.Path("profile") + "' --headless --norestore --convert-to '" + kForm + "' --outdir '" +
      folder.Path("out") + "'" + files + " >'" + folder.Path("log") + "' 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << ReadFile(folder.Path("log"));
  std::map<std::string, OfficeTable> tables;
  for (const auto& [name, bytes] : workbooks) {
    const std::string made = folder.Path("out/" + name.substr(0, name.rfind('.')) + ".csv");
    if (FileExists(made)) tables[name] = RowsOf(ReadFile(made));
  }
  return tables;
}

SpreadsheetTable WithoutResults(SpreadsheetTable table) {
  for (SpreadsheetRow& row : table.rows) {
    for (SpreadsheetCell& cell : row.cells) {
      if (auto* sum = std::get_if<SpreadsheetSum>(&cell)) sum->value = -987654321;
    }
  }
  return table;
}

void ExpectSame(const OfficeTable& read, const SpreadsheetTable& written, const std::string& name) {
  ASSERT_EQ(read.size(), written.rows.size() + 1) << name;
  for (std::size_t column = 0; column < written.columns.size(); ++column) {
    EXPECT_EQ(read.front().at(column), written.columns[column].header) << name;
  }
  for (std::size_t row = 0; row < written.rows.size(); ++row) {
    const auto& cells = written.rows[row].cells;
    for (std::size_t column = 0; column < cells.size(); ++column) {
      const std::string where = fmt::format("{}, row {}, column {}", name, row + 1, column + 1);
      const std::string cell =
          column < read[row + 1].size() ? read[row + 1][column] : std::string();
      if (const auto* number = std::get_if<double>(&cells[column])) {
        ExpectNumber(cell, *number, std::abs(*number) * 1e-9 + 1e-9, where);
      } else if (const auto* sum = std::get_if<SpreadsheetSum>(&cells[column])) {
        ExpectNumber(cell, sum->value, 0.0051, where + ", a sum");
      } else {
        EXPECT_EQ(cell, Expected(cells[column])) << where;
      }
    }
  }
}

}  // namespace corvanta
