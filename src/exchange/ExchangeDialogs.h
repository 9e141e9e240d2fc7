// Opens what brings files in and out, each modal before its parent.
#pragma once

#include "ledger/register/Period.h"
#include "ledger/register/StatusFilter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline exchange {

// What a window works on and stands before. Valid while the data file stays open.
struct ExchangePlace {
  Platform& platform;
  clsCorvanta& ledger;
  QWidget* parent;
};

// What the register shows.
struct ExportView {
  std::int64_t accountId = 0;  // 0: no register stands there, which is told
  StatusFilter filter;
  std::optional<Period> period;
  // The rows in the order in which they stand; those that it leaves out come behind, by date.
  std::vector<std::int64_t> order;
  bool isFiltered = false;  // no others are written then
};

// What came of the import window.
struct ImportResult {
  bool isChanged = false;      // the data file was
  std::int64_t accountId = 0;  // the account to look at; 0 for none
};

// The import window, with that account and file in it; 0 and an empty path for none. What the data
// file refuses is told.
ImportResult OpenImport(std::int64_t accountId, const std::string& file,
                        const ExchangePlace& place);
// Asks for a file and writes the shown rows of the register into it. True when it was written. What
// the data file or the machine refuses is told.
bool OpenExport(const ExportView& view, const ExchangePlace& place);

}  // namespace corvanta::inline exchange
