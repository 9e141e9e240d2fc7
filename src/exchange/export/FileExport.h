#pragma once

#include "exchange/export/ExportWriters.h"
#include "ledger/Warning.h"
#include "ledger/register/Period.h"
#include "ledger/register/RegisterRow.h"
#include "platform/Files.h"
#include "platform/Spreadsheet.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline exchange {

enum class ExportKind { Csv, Xls, Xlsx, Ofx, Qif };

// By the file name's extension; nullopt for any other.
[[nodiscard]] std::optional<ExportKind> ExportKindOf(std::string_view path);

// Writes the transactions of one account into a file of the format that its name asks for.
class FileExport {
 public:
  FileExport(clsCorvanta& ledger, Platform& platform);
  // `random` gives numbers from 0 to less than 1.
  FileExport(clsCorvanta& ledger, Platform& platform, std::function<double()> random);

  // The warning for a file name without one of the four extensions.
  [[nodiscard]] static std::optional<Warning> Check(std::string_view path);
  // Asks whether to export from that account into that file.
  [[nodiscard]] bool Confirm(const std::string& account, const std::string& path);
  // Writes the rows of the account and tells when it is done. `period` is that of the view, whose
  // open ends are today in the statement. Throws PlatformError when the file cannot be written; a
  // former one is as it was then.
  void Write(std::int64_t accountId, ExportRows rows, const std::optional<Period>& period,
             const std::string& path, FormerFile former = FormerFile::Replace);

 private:
  [[nodiscard]] OfxStatement StatementOf(std::int64_t accountId,
                                         const std::optional<Period>& period);
  [[nodiscard]] std::vector<RegisterRow> WithPayees(ExportRows rows);
  [[nodiscard]] std::string Content(std::int64_t accountId, ExportRows rows,
                                    const std::optional<Period>& period, ExportKind kind);
  [[nodiscard]] SpreadsheetTable TableOf(std::int64_t accountId, ExportRows rows);

  clsCorvanta& ledger_;
  Platform& platform_;
  std::function<double()> random_;
};

}  // namespace corvanta::inline exchange
