// The texts of exported files.
#pragma once

#include "ledger/register/RegisterRow.h"

#include <functional>
#include <optional>
#include <span>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
class Locale;
struct DateTime;
}  // namespace corvanta::inline platform

namespace corvanta::inline exchange {

using ExportRows = std::span<const RegisterRow>;  // in the order of the view

// A number as files carry it: the shortest form with a point; a fraction of three digits gets a
// fourth, so that nobody takes it for thousands.
[[nodiscard]] std::string FileNumber(double number);

// QIF, lines ended by line feeds: the dates in the user's short form, of a transfer the other
// account in place of the payee, the lines of splits.
[[nodiscard]] std::string QifExport(clsCorvanta& ledger, const Locale& locale, ExportRows rows);

// What an OFX statement says beside its rows.
struct OfxStatement {
  std::string currency;  // the code
  std::string sortCode;
  std::string accountNo;
  Date start;
  Date end;
};
// An OFX 1.02 statement in Windows-1252, lines separated by line feeds. `random` gives numbers from
// 0 to less than 1.
[[nodiscard]] std::string OfxExport(const OfxStatement& statement, ExportRows rows, DateTime now,
                                    const std::function<double()>& random);

// The register's columns as RFC 4180 in UTF-8: ISO dates, amounts without a sign in a column for
// each direction; what a spreadsheet would run as a formula is guarded (see FormulaGuard.h).
[[nodiscard]] std::string CsvExport(ExportRows rows);

}  // namespace corvanta::inline exchange
