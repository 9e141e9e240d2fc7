#pragma once

#include "ledger/register/Period.h"
#include "ledger/register/RowFilter.h"
#include "ledger/register/StatusFilter.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline reports {

// A payment that a forecast counts as if it were expected; it is stored nowhere.
struct WhatIf {
  Date day;
  std::int64_t accountId = 0;
  double amount = 0;      // in the account's currency, money out negative
  std::string text = {};  // what it is; empty: "What if"
  bool operator==(const WhatIf&) const = default;
};

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
  // The range has few of the rows, so that they are found by their days. The figures are the same.
  bool isOfFewDays = false;

  std::vector<WhatIf> whatIf;  // of a forecast alone
  // Of the budget of a month alone: whether what was left in the months before it counts, and
  // whether categories without a plan and without an amount have rows, too.
  bool carriesOver = true;
  bool withAllCategories = false;

  bool operator==(const ReportRequest&) const = default;
};

}  // namespace corvanta::inline reports
