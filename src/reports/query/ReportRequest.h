#pragma once

#include "ledger/Period.h"
#include "ledger/RowFilter.h"
#include "ledger/StatusFilter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline reports {

// All that a report is run with.
struct ReportRequest {
  int report = 1;    // its number in the catalogue
  RowFilter filter;  // accounts, categories, payees, investments, keywords and a text
  // Names of investment actions ("Buy"); a name that is none lets no row pass.
  std::vector<std::string> actions;
  std::vector<std::int64_t> paymentTypes;
  std::optional<Period> range;  // both days included; nullopt: all days
  std::optional<Period>
      otherRange;  // what a comparison sets beside it; nullopt: as long, before it
  StatusFilter status;
  bool withClosedAccounts = false;
  bool withoutTransfers = false;
  bool foldsSubCategories = false;  // a category with all that is below it is one
  std::string currency;             // the report currency's code; empty: none
  bool converts = false;            // amounts into the report currency

  bool operator==(const ReportRequest&) const = default;
};

}  // namespace corvanta::inline reports
