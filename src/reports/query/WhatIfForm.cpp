#include "reports/query/WhatIfForm.h"

#include "ledger/Money.h"
#include "ledger/accounts/AccountRow.h"
#include "platform/ArithmeticText.h"
#include "platform/TextCase.h"
#include "reports/query/BalanceForecast.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace corvanta::inline reports {
namespace {
constexpr const char* kTitle = "What If";
}

std::optional<Warning> CheckWhatIf(const WhatIfForm& form, Date today) {
  const auto warn = [](const char* text, const char* field) {
    return Warning{kTitle, text, field};
  };
  if (!form.day) return warn("You need to enter a valid Date", "dtWhatIf");
  if (*form.day <= today) {
    return warn("A forecast begins tomorrow: choose a day after today", "dtWhatIf");
  }
  if (form.accountId == 0) return warn("You need to select an Account", "cmbWhatIfAccount");
  const double amount = form.amount.value_or(0);
  if (!(RoundMoney(amount) > 0) || amount > kLargestAmount) {
    return warn("You need to enter a valid Amount", "txtWhatIfAmount");
  }
  return std::nullopt;
}

WhatIf WhatIfOf(const WhatIfForm& form) {
  const double amount = RoundMoney(form.amount.value_or(0));
  return {form.day.value_or(Date()), form.accountId, form.isIncome ? amount : -amount,
          std::string(Trim(form.text))};
}

WhatIfForm FormOf(const WhatIf& payment) {
  return {payment.day, payment.accountId, payment.amount > 0, std::abs(payment.amount),
          payment.text};
}

std::optional<Warning> CheckCounts(const WhatIf& payment, const AccountRow& account,
                                   const ReportRequest& request, Date today) {
  const auto warn = [](const std::string& text, const char* field) {
    return Warning{kTitle, text, field};
  };
  if (account.closed && !request.withClosedAccounts) {
    return warn("The account \"" + account.account + "\" is closed", "cmbWhatIfAccount");
  }
  const std::vector<std::int64_t>& kept = request.filter.Keys(FilterKind::Account);
  if (!kept.empty() && std::ranges::count(kept, account.accountId) == 0) {
    return warn("The forecast leaves the account \"" + account.account + "\" out",
                "cmbWhatIfAccount");
  }
  const Date end = BalanceForecast::EndOf(request, today);
  if (payment.day <= end) return std::nullopt;
  return warn("The forecast ends before it, on " + end.ToIso(), "dtWhatIf");
}

}  // namespace corvanta::inline reports
