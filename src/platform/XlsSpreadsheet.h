#pragma once

#include "platform/Spreadsheet.h"

#include <string>
#include <vector>

namespace corvanta::inline platform {

// The bytes of an Excel 97 to 2003 workbook with one sheet of that name, its columns as wide as
// `widths` says (characters). The table fits (FitsXls); texts are cut after 4,000 characters.
[[nodiscard]] std::string XlsWorkbookOf(const SpreadsheetTable& table, const std::string& sheetName,
                                        const std::vector<double>& widths);

// Whether the table has no more rows and columns than a sheet of that form.
[[nodiscard]] bool FitsXls(const SpreadsheetTable& table);

}  // namespace corvanta::inline platform
