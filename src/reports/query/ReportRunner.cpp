#include "reports/query/ReportRunner.h"

#include "platform/Locale.h"
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
#include "reports/query/PlanCurrency.h"
#include "reports/query/Report.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/SpendingReport.h"
#include "store/sql/Connection.h"

#include <functional>
#include <optional>
#include <stdexcept>

namespace corvanta::inline reports {
namespace {

const ReportInfo& InfoOf(int number) {
  const ReportInfo* info = FindReport(number);
  if (info == nullptr) throw std::invalid_argument("no report of that number");
  return *info;
}

// The rates of a report: those of its accounts' currencies and, where it has plans, of theirs.
ReportRates RatesOf(const Report& report, const ReportClause& clause, const ReportRequest& request,
                    clsCorvanta& ledger, const Platform& platform, const ReportRates::Ask& ask) {
  const auto atOne =
      request.report > kStandardReports ? ReportRates::AtOne::Converts : ReportRates::AtOne::Stays;
  ReportRates rates(ledger.Store(), report.Currencies(clause), request.currency, atOne, ask);
  if (request.converts) rates.Add(ledger.Store(), report.MoreCurrencies(), ask);
  if (!report.HasPlans()) return rates;
  // Without accounts or plans there is nothing that a rate would be needed for.
  const auto isAny = [&ledger](const char* count) {
    return ledger.Store().QueryValue(count).Int() > 0;
  };
  const bool isNeeded = isAny("Select Count(*) from tblAccounts") &&
                        isAny("Select Count(*) from tblCategory WHERE Budget <> 0");
  const auto none = [](const std::string&) { return std::optional<double>(); };
  rates.KeepPlansIn(PlanCurrency(ledger.Store(), platform.locale.CurrencyCode()),
                    isNeeded ? ask : none);
  return rates;
}

// Those that a table was made with.
ReportRates::Ask UsedIn(const ReportTable& table) {
  return [&table](const std::string& code) -> std::optional<double> {
    for (const ReportRate& each : table.rates) {
      if (each.currency == code && each.isConverted) return each.rate;
    }
    return std::nullopt;
  };
}

// `told` is called once all rates are asked for.
ReportTable WorkOut(clsCorvanta& ledger, const ReportRequest& request, Platform& platform,
                    const ReportRates::Ask& ask, const std::function<void()>& told) {
  const ReportInfo& info = InfoOf(request.report);
  ReportTable table{info.number, info.name, ColumnsOf(info), {}, {}};
  if (request.range) {
    table.periods = {*request.range};
    if (request.range->to < request.range->from) return table;
  }
  const std::unique_ptr<Report> report = MakeReport(request.report);
  const ReportClause clause(request);
  const ReportRates rates = RatesOf(*report, clause, request, ledger, platform, ask);
  told();
  for (const CurrencyUse& use : rates.All()) {
    table.rates.push_back({use.currency, use.rate, use.isConverted});
  }
  table.plansKeptIn = rates.PlansKeptIn();
  if (request.converts) table.convertedInto = request.currency;
  report->Fill({ledger, platform, request, clause, rates, rates.Expression()}, table);
  return table;
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
  AskedRates asked(request, source, platform.prompts);
  return WorkOut(
      ledger, request, platform, [&asked](const std::string& code) { return asked.Rate(code); },
      [&asked] { asked.TellTroubles(); });
}

ReportTable RunReportAgain(clsCorvanta& ledger, const ReportRequest& request,
                           const ReportTable& former, Platform& platform) {
  return WorkOut(ledger, request, platform, UsedIn(former), [] {});
}

std::vector<ExplainedRow> Explain(clsCorvanta& ledger, const ReportRequest& request,
                                  const ReportTable& table, std::size_t row, std::size_t column,
                                  Platform& platform) {
  if (row >= table.rows.size() || column >= table.columns.size()) return {};
  if (!table.columns[column].HoldsNumbers() || table.rows[row].cells[column].IsNull()) return {};
  const std::unique_ptr<Report> report = MakeReport(request.report);
  const ReportClause clause(request);
  const ReportRates rates = RatesOf(*report, clause, request, ledger, platform, UsedIn(table));
  const ReportRun run{ledger, platform, request, clause, rates, rates.Expression()};
  return report->Explain(run, table, table.rows[row], column);
}

}  // namespace corvanta::inline reports
