#pragma once

#include "app/reports/ReportState.h"
#include "ledger/register/Period.h"
#include "ledger/register/RowFilter.h"
#include "ledger/register/StatusFilter.h"
#include "platform/Settings.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvanta::inline app {

inline constexpr std::string_view kAccountShow = "AccountShow";
inline constexpr std::string_view kTransactionShow = "TransactionShow";
inline constexpr std::string_view kCategoryShow = "CategoryShow";
inline constexpr std::string_view kPayeeShow = "PayeeShow";
inline constexpr std::string_view kScheduleShow = "LoadSchedule";
inline constexpr std::string_view kInvestmentShow = "InvestmentShow";
inline constexpr std::string_view kInvestmentTransShow = "InvestmentTransShow";
inline constexpr std::string_view kHoldingShow = "HoldingShow";
inline constexpr std::string_view kReportShow = "LoadReport";
inline constexpr std::string_view kReportSelected = "LoadReportSelected";
inline constexpr std::string_view kReportChart = "LoadReportChart";
inline constexpr std::string_view kOverviewShow = "OverviewShow";

// What the main window shows: the view's command and its parameters. Issuing it again shows the
// view as it was.
struct ViewCommand {
  std::string_view name = kAccountShow;  // one of the commands above
  std::int64_t accountId = 0;            // of the register
  bool uncleared = true;                 // the three ticks of the View menu
  bool cleared = true;
  bool reconciled = true;
  std::optional<DateRange> dates = std::nullopt;     // of a register that keeps to a period
  RowFilter rows = {};                               // the filter lists and the search text
  std::optional<DateRange> holdings = std::nullopt;  // the days of the holdings' returns
  ReportState report = {};                           // what the reports view shows

  [[nodiscard]] StatusFilter Filter() const { return {uncleared, cleared, reconciled}; }
  // Whether rows of the account may be hidden.
  [[nodiscard]] bool IsFiltered() const {
    return dates.has_value() || uncleared != cleared || cleared != reconciled || !rows.IsEmpty() ||
           report.IsFiltered();
  }
  [[nodiscard]] std::optional<Period> RegisterPeriod() const {
    if (!dates) return std::nullopt;
    return Period{dates->start, dates->end};
  }
  // Whether the balances of the accounts are those of the other command.
  [[nodiscard]] bool CountsAs(const ViewCommand& other) const {
    return uncleared == other.uncleared && cleared == other.cleared &&
           reconciled == other.reconciled && dates == other.dates;
  }
  bool operator==(const ViewCommand&) const = default;
};

}  // namespace corvanta::inline app
