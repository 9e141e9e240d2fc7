// The rules of a payment that a forecast counts as if it were expected.
#pragma once

#include "ledger/Warning.h"
#include "platform/Date.h"
#include "reports/query/ReportRequest.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline ledger {
struct AccountRow;
}

namespace corvanta::inline reports {

inline constexpr int kLongestWhatIf = 100;  // characters of its text

// As it is typed.
struct WhatIfForm {
  std::optional<Date> day;  // nullopt for a text that is no day
  std::int64_t accountId = 0;
  bool isIncome = false;
  std::optional<double> amount;  // without a sign; nullopt for a text that is no number
  std::string text;              // what it is
};

// The first rule that is broken. A forecast begins on the day after `today`.
[[nodiscard]] std::optional<Warning> CheckWhatIf(const WhatIfForm& form, Date today);
// What CheckWhatIf accepts.
[[nodiscard]] WhatIf WhatIfOf(const WhatIfForm& form);
[[nodiscard]] WhatIfForm FormOf(const WhatIf& payment);
// Why what CheckWhatIf accepts, a payment of that account, would count nowhere in the forecast of
// the request.
[[nodiscard]] std::optional<Warning> CheckCounts(const WhatIf& payment, const AccountRow& account,
                                                 const ReportRequest& request, Date today);

}  // namespace corvanta::inline reports
