#pragma once

#include "ledger/Period.h"
#include "ledger/RowFilter.h"
#include "ledger/StatusFilter.h"
#include "ledger/clsCorvanta.h"
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

// What the main window shows: the view's command and its parameters. Issuing it again shows the
// view as it was.
struct ViewCommand {
  std::string_view name = kAccountShow;  // one of the commands above
  std::int64_t accountId = 0;            // of the register
  bool uncleared = true;                 // the three ticks of the View menu
  bool cleared = true;
  bool reconciled = true;
  std::optional<DateRange> dates = std::nullopt;  // of a register that keeps to a period
  RowFilter rows = {};                            // the filter lists and the search text

  [[nodiscard]] StatusFilter Filter() const { return {uncleared, cleared, reconciled}; }
  // Whether rows of the account may be hidden.
  [[nodiscard]] bool IsFiltered() const {
    return dates.has_value() || uncleared != cleared || cleared != reconciled || !rows.IsEmpty();
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
