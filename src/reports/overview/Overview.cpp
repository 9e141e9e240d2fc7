#include "reports/overview/Overview.h"

#include "ledger/AccountBook.h"
#include "ledger/PeriodPreset.h"
#include "ledger/clsCorvanta.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRunner.h"

#include <algorithm>

namespace corvanta::inline reports {
namespace {

constexpr int kDaysAhead = 14;

// The entry of that currency, made where there is none.
template <typename Entry>
Entry& Of(std::vector<Entry>& entries, const std::string& currency) {
  const auto found = std::ranges::find(entries, currency, &Entry::currency);
  if (found != entries.end()) return *found;
  Entry made;
  made.currency = currency;
  return entries.emplace_back(made);
}

double FigureOf(const ReportTable& table, const ReportRow& row, const char* header) {
  const auto column = table.Column(header);
  return column && *column < row.cells.size() ? row.cells[*column].Double() : 0;
}

class OverviewReader {
 public:
  OverviewReader(clsCorvanta& ledger, Date today, bool withClosedAccounts, RateSource& rates,
                 Platform& platform)
      : ledger_(ledger),
        today_(today),
        withClosedAccounts_(withClosedAccounts),
        rates_(rates),
        platform_(platform) {
    read_.thisMonth = *DaysOf(PeriodPreset::ThisMonth, today);
    read_.lastMonth = *DaysOf(PeriodPreset::LastMonth, today);
  }

  Overview Read() {
    TreeOptions options;
    options.includeClosed = false;
    options.valuation = true;
    options.end = today_;
    read_.accounts = ledger_.Accounts().Accounts(options);
    read_.due = Reminders(ledger_, today_, today_.AddDays(kDaysAhead));
    for (const AccountRow& account : read_.accounts) {
      Overview::Worth& worth = Of(read_.worths, account.currency);
      (account.balance < 0 ? worth.debts : worth.assets) += account.balance;
    }
    ReadFlows();
    ReadPlans();
    return std::move(read_);
  }

 private:
  ReportTable Run(int report, const Period& range) {
    ReportRequest request;
    request.report = report;
    request.range = range;
    request.withClosedAccounts = withClosedAccounts_;
    request.withoutTransfers = true;
    // What budgets are in where several currencies are in use.
    request.currency = platform_.locale.CurrencyCode();
    return RunReport(ledger_, request, rates_, platform_);
  }

  void ReadFlows() {
    const ReportTable now = Run(kCashFlow, read_.thisMonth);
    for (const ReportRow& row : now.rows) {
      if (row.kind == ReportRowKind::Total) continue;
      Overview::Flow& flow = Of(read_.flows, row.currency);
      flow.income += FigureOf(now, row, "Income");
      flow.expense += FigureOf(now, row, "Expense");
    }
    const ReportTable before = Run(kCashFlow, read_.lastMonth);
    for (const ReportRow& row : before.rows) {
      if (row.kind == ReportRowKind::Total) continue;
      Overview::Flow& flow = Of(read_.flows, row.currency);
      flow.lastIncome += FigureOf(before, row, "Income");
      flow.lastExpense += FigureOf(before, row, "Expense");
    }
  }

  void ReadPlans() {
    const ReportTable table = Run(kBudgets, read_.thisMonth);
    for (const ReportRow& row : table.rows) {
      const double budget = FigureOf(table, row, "Budget");
      if (row.kind == ReportRowKind::Total || budget >= 0) continue;
      Overview::Plan& plan = Of(read_.plans, row.currency);
      plan.budget += budget;
      plan.actual += FigureOf(table, row, "Actual");
    }
  }

  clsCorvanta& ledger_;
  Date today_;
  bool withClosedAccounts_;
  RateSource& rates_;
  Platform& platform_;
  Overview read_;
};

}  // namespace

Overview ReadOverview(clsCorvanta& ledger, Date today, bool withClosedAccounts, RateSource& rates,
                      Platform& platform) {
  return OverviewReader(ledger, today, withClosedAccounts, rates, platform).Read();
}

}  // namespace corvanta::inline reports
