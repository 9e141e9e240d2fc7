#include "app/reports/WhatIfForm.h"

#include "ledger/Money.h"
#include "platform/ArithmeticText.h"
#include "platform/TextCase.h"

#include <cmath>

namespace corvanta::inline app {

std::optional<Warning> CheckWhatIf(const WhatIfForm& form, Date today) {
  const auto warn = [](const char* text, const char* field) {
    return Warning{"What If", text, field};
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

}  // namespace corvanta::inline app
