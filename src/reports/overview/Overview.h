#pragma once

#include "ledger/accounts/AccountRow.h"
#include "ledger/register/Period.h"
#include "ledger/schedules/Reminders.h"
#include "platform/Date.h"

#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reports {

struct ReportRequest;
struct ReportTable;

// How things stand, each sum in its own currency. Only what budgets came to is converted into
// theirs, by the rates that the file has: nothing is fetched.
struct Overview {
  // What came in and went out of one currency in two months.
  struct Flow {
    std::string currency;
    double income = 0;   // of this month, transfers left out
    double expense = 0;  // negative
    double lastIncome = 0;
    double lastExpense = 0;
  };
  // What this month's budgets plan and what became of it. Behind the currency of the budgets stand
  // those that no rate is known of, which nothing is planned in.
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

  std::vector<AccountRow> accounts;  // those that are open, with balances as in the tree
  ReminderList due;                  // what is overdue, and the next two weeks
  std::vector<Flow> flows;
  std::vector<Plan> plans;
  bool arePlansConverted = false;  // amounts of other currencies are among those of the plans
  std::vector<Worth> worths;
  Period thisMonth;  // whole ones
  Period lastMonth;
};

// Reads the overview of a day, piece by piece: what the file keeps sums of is there at once, the
// figures of the two months and of the budgets go through the transactions of their days. Of these
// closed accounts count where they are asked for.
class OverviewReader {
 public:
  OverviewReader(clsCorvanta& ledger, Date today, bool withClosedAccounts, Platform& platform);

  // Accounts, what is due, what all is worth. Throws StoreError, as the next.
  void ReadStanding();
  // The next piece of the rest: the months, then the plans. False once there is none left.
  bool ReadNext();

  // As far as it is read.
  [[nodiscard]] const Overview& Read() const { return read_; }
  [[nodiscard]] bool HasFlows() const { return pieces_ > 0; }
  [[nodiscard]] bool HasPlans() const { return pieces_ > 1; }

 private:
  [[nodiscard]] ReportRequest RequestOf(int report, const Period& range) const;
  [[nodiscard]] ReportTable Run(const ReportRequest& request) const;
  void ReadFlows();
  void ReadPlans();

  clsCorvanta& ledger_;
  Date today_;
  bool withClosedAccounts_;
  Platform& platform_;
  Overview read_;
  int pieces_ = 0;
};

}  // namespace corvanta::inline reports
