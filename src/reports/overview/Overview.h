#pragma once

#include "ledger/AccountRow.h"
#include "ledger/Period.h"
#include "ledger/Reminders.h"
#include "platform/Date.h"

#include <string>
#include <vector>

namespace corvanta::inline ledger {
class RateSource;
class clsCorvanta;
}  // namespace corvanta::inline ledger

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reports {

// How things stand, each sum in its own currency: nothing is converted and nothing is fetched.
struct Overview {
  // What came in and went out of one currency in two months.
  struct Flow {
    std::string currency;
    double income = 0;   // of this month, transfers left out
    double expense = 0;  // negative
    double lastIncome = 0;
    double lastExpense = 0;
  };
  // What this month's budgets plan and what became of it.
  struct Plan {
    std::string currency;
    double budget = 0;  // of the categories that spend, negative
    double actual = 0;
  };
  struct Worth {
    std::string currency;
    double assets = 0;  // accounts that hold something, with the value of investments
    double debts = 0;   // negative
  };

  std::vector<AccountRow> accounts;  // those that are open
  ReminderList due;                  // what is overdue, and the next two weeks
  std::vector<Flow> flows;
  std::vector<Plan> plans;
  std::vector<Worth> worths;
  Period thisMonth;  // whole ones
  Period lastMonth;
};

// Of months and budgets closed accounts count where they are asked for. Throws StoreError.
[[nodiscard]] Overview ReadOverview(clsCorvanta& ledger, Date today, bool withClosedAccounts,
                                    RateSource& rates, Platform& platform);

}  // namespace corvanta::inline reports
