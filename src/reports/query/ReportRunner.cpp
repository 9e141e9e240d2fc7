#include "reports/query/ReportRunner.h"

#include "platform/Platform.h"
#include "reports/query/AccountSummary.h"
#include "reports/query/AccountTransactions.h"
#include "reports/query/BalanceForecast.h"
#include "reports/query/BudgetMonth.h"
#include "reports/query/BudgetReport.h"
#include "reports/query/InvestmentGains.h"
#include "reports/query/InvestmentTransactions.h"
#include "reports/query/MonthlyCashFlow.h"
#include "reports/query/MonthlyReport.h"
#include "reports/query/NetWorth.h"
#include "reports/query/PeriodComparison.h"
#include "reports/query/Report.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/SpendingReport.h"

#include <stdexcept>

namespace corvanta::inline reports {
namespace {

const ReportInfo& InfoOf(int number) {
  const ReportInfo* info = FindReport(number);
  if (info == nullptr) throw std::invalid_argument("no report of that number");
  return *info;
}

}  // namespace

std::unique_ptr<Report> MakeReport(int number) {
  switch (number) {
    case kAccountSummary:
      return std::make_unique<AccountSummary>();
    case kCashFlow:
      return std::make_unique<MonthlyCashFlow>();
    case kAccountTransactions:
      return std::make_unique<AccountTransactions>();
    case kBudgets:
      return std::make_unique<BudgetReport>();
    case kSpendingByCategory:
      return std::make_unique<SpendingReport>(SpendingBy::Category);
    case kMonthlySpendingByCategory:
      return std::make_unique<MonthlyReport>(SpendingBy::Category);
    case kSpendingByPayee:
      return std::make_unique<SpendingReport>(SpendingBy::Payee);
    case kMonthlySpendingByPayee:
      return std::make_unique<MonthlyReport>(SpendingBy::Payee);
    case kSpendingByPaymentType:
      return std::make_unique<SpendingReport>(SpendingBy::PaymentType);
    case kInvestmentGains:
      return std::make_unique<InvestmentGains>();
    case kInvestmentTransactions:
      return std::make_unique<InvestmentTransactions>();
    case kNetWorth:
      return std::make_unique<NetWorth>();
    case kTwoPeriods:
      return std::make_unique<PeriodComparison>();
    case kBudgetOfMonth:
      return std::make_unique<BudgetMonth>();
    case kBalanceForecast:
      return std::make_unique<BalanceForecast>();
    default:
      throw std::invalid_argument("no report of that number");
  }
}

ReportTable RunReport(clsCorvanta& ledger, const ReportRequest& request, RateSource& source,
                      Platform& platform) {
  const ReportInfo& info = InfoOf(request.report);
  ReportTable table{info.number, info.name, ColumnsOf(info), {}, {}};
  if (request.range) {
    table.periods = {*request.range};
    if (request.range->to < request.range->from) return table;
  }
  const std::unique_ptr<Report> report = MakeReport(request.report);
  const ReportClause clause(request);
  AskedRates asked(request, source, platform.prompts);
  const auto ask = [&asked](const std::string& code) { return asked.Rate(code); };
  ReportRates rates(ledger.Store(), report->Currencies(clause), request.currency, ask);
  if (request.converts) rates.Add(ledger.Store(), report->MoreCurrencies(), ask);
  asked.TellTroubles();
  for (const CurrencyUse& use : rates.Uses()) table.rates.push_back({use.currency, use.rate});
  if (request.converts) table.convertedInto = request.currency;
  report->Fill({ledger, platform, request, clause, rates, rates.Expression()}, table);
  return table;
}

std::vector<ExplainedRow> Explain(clsCorvanta& ledger, const ReportRequest& request,
                                  const ReportTable& table, std::size_t row, std::size_t column,
                                  Platform& platform) {
  if (row >= table.rows.size() || column >= table.columns.size()) return {};
  if (!table.columns[column].HoldsNumbers() || table.rows[row].cells[column].IsNull()) return {};
  const std::unique_ptr<Report> report = MakeReport(request.report);
  const ReportClause clause(request);
  const auto used = [&table](const std::string& code) {
    for (const ReportRate& each : table.rates) {
      if (each.currency == code) return each.rate;
    }
    return 1.0;
  };
  ReportRates rates(ledger.Store(), report->Currencies(clause), request.currency, used);
  if (request.converts) rates.Add(ledger.Store(), report->MoreCurrencies(), used);
  const ReportRun run{ledger, platform, request, clause, rates, rates.Expression()};
  return report->Explain(run, table, table.rows[row], column);
}

}  // namespace corvanta::inline reports
