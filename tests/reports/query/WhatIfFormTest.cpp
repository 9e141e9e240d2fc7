#include "ledger/accounts/AccountRow.h"
#include "reports/query/BalanceForecast.h"
#include "reports/query/WhatIfForm.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(WhatIfForms, AreAcceptedWhenTheyLieAheadAndComeToSomething) {
  const Date today = *Date::FromIso("2026-11-22");
  WhatIfForm form;
  form.day = today.AddDays(1);
  form.accountId = 3;
  form.amount = 12.5;
  form.text = " Lamp ";
  EXPECT_FALSE(CheckWhatIf(form, today));
  EXPECT_EQ(WhatIfOf(form), (WhatIf{today.AddDays(1), 3, -12.5, "Lamp"}));
  EXPECT_EQ(WhatIfOf(FormOf(WhatIfOf(form))), WhatIfOf(form));
  form.day = today;
  EXPECT_EQ(CheckWhatIf(form, today)->field, "dtWhatIf");
  form.day = today.AddDays(1);
  for (const double amount : {0.0, -5.0, 1e14}) {
    form.amount = amount;
    EXPECT_EQ(CheckWhatIf(form, today)->field, "txtWhatIfAmount") << amount;
  }
  form.accountId = 0;
  EXPECT_EQ(CheckWhatIf(form, today)->field, "cmbWhatIfAccount");
}

TEST(WhatIfForms, CountInTheAccountsAndDaysOfTheForecast) {
  const Date today = *Date::FromIso("2026-11-22");
  AccountRow account;
  account.accountId = 3;
  account.account = "Bank";
  ReportRequest request;
  const auto field = [&](const WhatIf& payment) {
    const auto warning = CheckCounts(payment, account, request, today);
    return warning ? warning->field : std::string();
  };
  const WhatIf payment{*Date::FromIso("2027-02-22"), 3, -5};
  EXPECT_EQ(field(payment), "");
  EXPECT_EQ(field({*Date::FromIso("2027-02-23"), 3, -5}), "dtWhatIf");
  request.filter.SetKeys(FilterKind::Account, {1});
  EXPECT_EQ(field(payment), "cmbWhatIfAccount");
  request.filter.SetKeys(FilterKind::Account, {1, 3});
  EXPECT_EQ(field(payment), "");
  account.closed = true;
  EXPECT_EQ(field(payment), "cmbWhatIfAccount");
  request.withClosedAccounts = true;
  EXPECT_EQ(field(payment), "");
}

TEST(BalanceForecasts, ReachTenYearsAheadAtMost) {
  const Date today = *Date::FromIso("2026-11-22");
  ReportRequest request;
  const auto end = [&](const char* to) {
    request.range = Period{today, *Date::FromIso(to)};
    return BalanceForecast::EndOf(request, today).ToIso();
  };
  EXPECT_EQ(end("2036-11-22"), "2036-11-22");
  EXPECT_EQ(end("9999-12-31"), "2036-11-22");
  EXPECT_EQ(end("2026-11-22"), "2027-02-22") << "nothing is to come on a day that is past";
}

}  // namespace
}  // namespace corvanta
