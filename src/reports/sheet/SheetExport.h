// Files that spreadsheets open.
#pragma once

#include "ledger/Warning.h"
#include "platform/Spreadsheet.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reports {

enum class SheetForm { Csv, Xls, Xlsx };

// By the file name's extension; nullopt for any other.
[[nodiscard]] std::optional<SheetForm> SheetFormOf(std::string_view path);

// The table as RFC 4180 in UTF-8 with a line of headers: ISO dates, numbers with a point and in
// their shortest form; what a spreadsheet would run as a formula has an apostrophe before it.
[[nodiscard]] std::string CsvOf(const SpreadsheetTable& table);

// The bytes of a file of that form. Throws PlatformError, with the words of the program where none
// is installed that writes the older form.
[[nodiscard]] std::string SheetBytes(const SpreadsheetTable& table, SheetForm form,
                                     Platform& platform);

// The warning for a file name without the extension of one of the forms.
[[nodiscard]] std::optional<Warning> CheckSheetFile(std::string_view path);
// Writes the table into that file, in the form that its name asks for, and tells when it is done.
// Throws PlatformError when it cannot be written; a former file is as it was then.
void ExportSheet(const SpreadsheetTable& table, const std::string& path, Platform& platform);
// Asks for the file first. True when it was written; a name without an extension, and a missing
// program, are told. Throws PlatformError.
bool AskAndExportSheet(const SpreadsheetTable& table, Platform& platform);

}  // namespace corvanta::inline reports
