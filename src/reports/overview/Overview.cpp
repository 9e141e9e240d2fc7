#include "reports/overview/Overview.h"

#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/PeriodPreset.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "reports/overview/KnownRates.h"
#include "reports/query/PlanCurrency.h"
#include "reports/query/Report.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRunner.h"
#include "store/sql/Connection.h"

#include <algorithm>
#include <set>

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

// How the reports write a month.
std::string MonthKey(Date day) {
  return std::to_string(day.Year() * 100 + day.Month());
}

}  // namespace

OverviewReader::OverviewReader(clsCorvanta& ledger, Date today, bool withClosedAccounts,
                               Platform& platform)
    : ledger_(ledger), today_(today), withClosedAccounts_(withClosedAccounts), platform_(platform) {
  read_.thisMonth = *DaysOf(PeriodPreset::ThisMonth, today);
  read_.lastMonth = *DaysOf(PeriodPreset::LastMonth, today);
}

void OverviewReader::ReadStanding() {
  TreeOptions options;
  options.includeClosed = false;
  options.end = today_;
  // As the tree beside them shows them; what all is worth counts what is held in any case.
  options.valuation = Settings(platform_.registry).IsOn(Setting::Investment);
  read_.accounts = ledger_.Accounts().Accounts(options);
  read_.due = Reminders(ledger_, today_, today_.AddDays(kDaysAhead));
  options.valuation = true;
  for (const AccountRow& account : ledger_.Accounts().Accounts(options)) {
    Overview::Worth& worth = Of(read_.worths, account.currency);
    (account.balance < 0 ? worth.debts : worth.assets) += account.balance;
  }
}

bool OverviewReader::ReadNext() {
  if (HasPlans()) return false;
  HasFlows() ? ReadPlans() : ReadFlows();
  ++pieces_;
  return !HasPlans();
}

ReportRequest OverviewReader::RequestOf(int report, const Period& range) const {
  ReportRequest request;
  request.report = report;
  request.range = range;
  request.isOfFewDays = true;
  request.withClosedAccounts = withClosedAccounts_;
  request.withoutTransfers = true;
  request.currency = platform_.locale.CurrencyCode();
  return request;
}

ReportTable OverviewReader::Run(const ReportRequest& request) const {
  KnownRates rates(ledger_, today_);
  return RunReport(ledger_, request, rates, platform_);
}

// Both months in one run, which has a row for each.
void OverviewReader::ReadFlows() {
  ReportRequest request = RequestOf(kCashFlow, {read_.lastMonth.from, read_.thisMonth.to});
  // It leaves nothing out.
  request.filter.SetKeys(FilterKind::Account, AccountKeys(ledger_.Store()));
  const ReportTable table = Run(request);
  const std::string now = MonthKey(read_.thisMonth.from);
  for (const ReportRow& row : table.rows) {
    if (row.kind == ReportRowKind::Total) continue;
    Overview::Flow& flow = Of(read_.flows, row.currency);
    const bool isNow = row.groupKey == now;
    (isNow ? flow.income : flow.lastIncome) += FigureOf(table, row, "Income");
    (isNow ? flow.expense : flow.lastExpense) += FigureOf(table, row, "Expense");
  }
}

void OverviewReader::ReadPlans() {
  // Most people plan nothing, and need not wait for what nothing is compared with.
  const Value budgets =
      ledger_.Store().QueryValue("Select Count(*) from tblCategory WHERE Budget <> 0");
  if (budgets.Int() == 0) return;
  ReportRequest request = RequestOf(kBudgets, read_.thisMonth);
  request.currency = PlanCurrency(ledger_.Store(), request.currency);
  request.converts = true;
  const ReportTable table = Run(request);
  std::set<std::string> spending;  // the keys of what is planned
  for (const ReportRow& row : table.rows) {
    if (row.kind == ReportRowKind::Total) continue;
    const double budget = FigureOf(table, row, "Budget");
    if (budget < 0) spending.insert(row.groupKey);
    if (!spending.contains(row.groupKey)) continue;
    Overview::Plan& plan = Of(read_.plans, row.currency);
    plan.budget += budget;
    plan.actual += FigureOf(table, row, "Actual");
  }
  read_.arePlansConverted =
      !read_.plans.empty() && std::ranges::any_of(table.rates, &ReportRate::isConverted);
}

}  // namespace corvanta::inline reports
