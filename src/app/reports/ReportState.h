#pragma once

#include "ledger/register/RowFilter.h"
#include "platform/Settings.h"
#include "reports/query/ReportRequest.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline app {

struct ViewCommand;

// What the reports view shows beside the filter that it shares with the register: enough to show it
// again as it was.
struct ReportState {
  int report = 0;                               // its number; 0: the list of reports alone
  std::optional<DateRange> dates;               // the days that it keeps to
  std::optional<DateRange> otherDates = {};     // that a comparison sets beside them
  std::vector<WhatIf> whatIf = {};              // that a forecast counts; stored nowhere
  std::vector<std::string> actions;             // names of investment actions
  std::vector<std::int64_t> paymentTypes = {};  // that a row of a report has led to
  bool withoutTransfers = false;
  bool foldsSubCategories = false;
  bool converts = false;             // into the currency
  std::string currency;              // the code
  std::vector<std::string> columns;  // headings of the shown ones; none: all
  std::vector<int> widths;           // theirs, as a saved report has them
  std::string definition;            // the saved report that it was opened from; empty for none
  // Lists of that report of which the data file has nothing any more: no row can be of them. They
  // hold as long as the filter is the one that was opened.
  std::vector<FilterKind> emptied;
  RowFilter emptiedWith;

  bool operator==(const ReportState&) const = default;

  // Whether it keeps to rows by more than the shared filter and its days.
  [[nodiscard]] bool HasFilters() const { return !actions.empty() || !paymentTypes.empty(); }
  void DropFilters();
  // Whether it may hide transactions, without regard to the shared filter.
  [[nodiscard]] bool IsFiltered() const {
    return HasFilters() || dates.has_value() || withoutTransfers || !emptied.empty();
  }
  // The same report of all transactions.
  [[nodiscard]] ReportState OfEverything() const;
  // That report, with what belongs to the former one alone left behind.
  [[nodiscard]] ReportState Other(int number) const;
};

// What the command's report is run with.
[[nodiscard]] ReportRequest RequestOf(const ViewCommand& command, bool withClosedAccounts);

}  // namespace corvanta::inline app
