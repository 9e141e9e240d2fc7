#pragma once

#include "platform/Spreadsheet.h"

#include <map>
#include <string>
#include <vector>

namespace corvanta {

// The rows of a sheet as texts: numbers with a point and without grouping, days as MM/DD/YYYY.
using OfficeTable = std::vector<std::vector<std::string>>;

// Whether a spreadsheet program is installed that can be asked.
[[nodiscard]] bool HasOffice();

// What that program reads out of workbooks, by the names of their files ("a.xlsx"). It works all
// formulas out anew. One run of the program serves all of them, in a profile of its own. A workbook
// that it does not read is missing.
[[nodiscard]] std::map<std::string, OfficeTable> ReadByOffice(
    const std::map<std::string, std::string>& workbooks);

// The table with other results of its sums, which are thus right only where they are worked out.
[[nodiscard]] SpreadsheetTable WithoutResults(SpreadsheetTable table);

// Every cell of the sheet says what the table does; a day where the table has one, and so on.
void ExpectSame(const OfficeTable& read, const SpreadsheetTable& written, const std::string& name);

}  // namespace corvanta
