#include "reports/query/BudgetMonth.h"

#include "ledger/Money.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "reports/query/BudgetPlans.h"
#include "reports/query/ReportSql.h"
#include "reports/query/SpendingReport.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <optional>

namespace corvanta::inline reports {
namespace {

Period MonthFrom(corvanta::Date first) {
  return {first, first.AddMonths(1).AddDays(-1)};
}

Period MonthOf(const ReportRun& run) {
  const corvanta::Date today = run.platform.clock.Today();
  const auto& range = run.request.range;
  const corvanta::Date day = range ? std::clamp(today, range->from, range->to) : today;
  return MonthFrom(day.AddDays(1 - day.Day()));
}

// The months of the year before that one, from the first that anything was recorded in.
std::vector<Period> MonthsBefore(const ReportRun& run, const Period& month) {
  std::vector<Period> months;
  if (!run.request.carriesOver) return months;
  const std::optional<corvanta::Date> first = FirstDayOf(run);
  for (int back = month.from.Month() - 1; back > 0; --back) {
    const Period before = MonthFrom(month.from.AddMonths(-back));
    if (first && *first <= before.to) months.push_back(before);
  }
  return months;
}

std::string ConditionsOf(const ReportRun& run, const Period& days) {
  ReportRequest request = run.request;
  request.range = days;
  return ReportClause(request).Where(ReportClause::Payments::Joined) +
         SpendingRows(SpendingBy::Category);
}

}  // namespace

void BudgetMonth::Fill(const ReportRun& run, ReportTable& table) const {
  table.periods = {MonthOf(run)};
  const std::string home = run.rates.PlansShownIn();
  const double rate = run.rates.PlanRate();
  const Period month = table.periods.front();
  const BudgetPlans plans(run, month, MonthsBefore(run, month));
  for (const Plan& plan : plans.All()) {
    const double left = plan.hasBudget ? plan.pastBudget * rate - plan.PastActualIn(home) : 0;
    const auto add = [&](const std::string& currency, double planned, double carried) {
      const double actual = plan.ActualIn(currency);
      ReportRow row =
          GroupRow(SqlNumber(plan.key), currency,
                   {plan.category, plan.subCategory, RoundMoney(planned), RoundMoney(carried),
                    RoundMoney(actual), RoundMoney(actual - planned - carried), currency});
      if (plan.hasBudget) row.part = "planned";
      table.rows.push_back(std::move(row));
    };
    // Where every category can be planned, it has the row to do so.
    if (plan.hasBudget || run.request.withAllCategories || plan.actual.contains(home)) {
      add(home, plan.budget * rate, left);
    }
    for (const auto& [currency, actual] : plan.actual) {
      if (currency != home) add(currency, 0, 0);
    }
  }
  AppendTotals(table, {"Plan", "Carried Over", "Actual", "Left"});
}

std::vector<ExplainedRow> BudgetMonth::Explain(const ReportRun& run, const ReportTable& table,
                                               const ReportRow& row, std::size_t column) const {
  const std::string& header = table.columns.at(column).header;
  const bool isTotal = row.kind == ReportRowKind::Total;
  const bool isLeft = header == "Left";
  const Period month = MonthOf(run);
  const std::string home = run.rates.PlansShownIn();
  std::vector<ExplainedRow> explained;
  const auto addRows = [&](const Period& days, int sign, bool isPlanned) {
    Sources sources{run.clause.WithKeywords(kFiveTables), ConditionsOf(run, days)};
    if (!isTotal) sources.conditions += OnlyCategory(row, run);
    for (const EvidenceRow& evidence : ReadEvidence(run, sources)) {
      if (run.rates.ShownIn(evidence.currency) != row.currency) continue;
      for (const ReportRow& each : table.rows) {
        if (each.kind == ReportRowKind::Total || each.currency != row.currency) continue;
        if (!isTotal && &each != &row) continue;
        if ((isPlanned && each.part.empty()) || !IsOfCategory(evidence, each, run)) continue;
        explained.push_back(
            Explained(evidence, evidence.amount, run.rates.RateOf(evidence.currency), sign));
      }
    }
  };
  const auto addPlans = [&](const Period& days, int sign) {
    if (row.currency != home) return;
    const BudgetPlans plans(run, days);
    for (const Plan& plan : plans.All()) {
      if (!plan.hasBudget || (!isTotal && SqlNumber(plan.key) != row.groupKey)) continue;
      explained.push_back(Beside("Plan for " + days.from.ToIso().substr(0, 7), plan.category,
                                 run.rates.PlansKeptIn(), plan.budget, run.rates.PlanRate(), sign));
    }
  };
  if (header == "Plan" || isLeft) addPlans(month, isLeft ? -1 : 1);
  if (header == "Carried Over" || isLeft) {
    for (const Period& before : MonthsBefore(run, month)) {
      addPlans(before, isLeft ? -1 : 1);
      if (row.currency == home) addRows(before, isLeft ? 1 : -1, true);
    }
  }
  if (header == "Actual" || isLeft) addRows(month, 1, false);
  return explained;
}

}  // namespace corvanta::inline reports
