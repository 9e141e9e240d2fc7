#include "reports/query/BudgetReport.h"

#include "ledger/Money.h"
#include "reports/query/BudgetPlans.h"
#include "reports/query/ReportSql.h"
#include "reports/query/SpendingReport.h"
#include "store/sql/SqlText.h"

#include <map>

namespace corvanta::inline reports {
namespace {

// The mark of rows whose category has a budget.
constexpr const char* kPlanned = "planned";

ReportRow PlanRow(const Plan& plan, const std::string& currency, double budget, double actual) {
  ReportRow row = GroupRow(SqlNumber(plan.key), currency,
                           {plan.category, plan.subCategory, RoundMoney(budget), RoundMoney(actual),
                            RoundMoney(actual - budget), currency});
  if (plan.hasBudget) row.part = kPlanned;
  return row;
}

// What categories without a budget came to, one row for each currency of the report.
void AppendUnallocated(const std::map<std::string, double>& amounts, ReportTable& table) {
  for (const auto& [currency, amount] : amounts) {
    ReportRow row = TotalRow(table, kUnallocated, currency);
    row.cells[*table.Column("Actual")] = RoundMoney(amount);
    table.rows.push_back(std::move(row));
  }
}

}  // namespace

void BudgetReport::Fill(const ReportRun& run, ReportTable& table) const {
  const BudgetPlans plans(run);
  const std::string home = run.rates.PlansShownIn();
  std::map<std::string, double> unallocated;
  for (const Plan& plan : plans.All()) {
    // The plan stands beside what is in its currency, other currencies below it.
    if (plan.hasBudget || plan.actual.contains(home)) {
      unallocated.try_emplace(home, 0);
      table.rows.push_back(
          PlanRow(plan, home, plan.budget * run.rates.PlanRate(), plan.ActualIn(home)));
    }
    for (const auto& [currency, actual] : plan.actual) {
      if (currency != home) table.rows.push_back(PlanRow(plan, currency, 0, actual));
      if (!plan.hasBudget) unallocated[currency] += actual;
    }
  }
  if (unallocated.empty()) unallocated[home] = 0;
  AppendUnallocated(unallocated, table);
  AppendTotals(table, {"Budget", "Actual", "Difference"});
}

Report::Sources BudgetReport::EvidenceOf(const ReportRun& run) const {
  return {run.clause.WithKeywords(kFiveTables),
          run.clause.Where(ReportClause::Payments::Joined) + ReportClause::WithoutSplitParents()};
}

bool BudgetReport::IsOf(const EvidenceRow& evidence, const ReportRow& row,
                        const ReportRun& run) const {
  return IsOfCategory(evidence, row, run);
}

std::string BudgetReport::Narrowed(const ReportRow& row, const ReportRun& run) const {
  return OnlyCategory(row, run);
}

std::vector<ExplainedRow> BudgetReport::ExplainPlans(const ReportRun& run, const ReportRow& row,
                                                     int sign) {
  std::vector<ExplainedRow> explained;
  if (row.currency != run.rates.PlansShownIn()) return explained;
  const bool isTotal = row.kind == ReportRowKind::Total;
  const BudgetPlans plans(run);
  for (const Plan& plan : plans.All()) {
    if (!plan.hasBudget || (!isTotal && SqlNumber(plan.key) != row.groupKey)) continue;
    explained.push_back(Beside("Budget for " + plan.category, plan.subCategory,
                               run.rates.PlansKeptIn(), plan.budget, run.rates.PlanRate(), sign));
  }
  return explained;
}

std::vector<ExplainedRow> BudgetReport::Explain(const ReportRun& run, const ReportTable& table,
                                                const ReportRow& row, std::size_t column) const {
  const std::string& header = table.columns.at(column).header;
  const bool isTotal = row.kind == ReportRowKind::Total;
  const bool isUnallocated = isTotal && row.cells.front().Text() == kUnallocated;
  std::vector<ExplainedRow> explained;
  if (!isUnallocated && (header == "Budget" || header == "Difference")) {
    explained = ExplainPlans(run, row, header == "Difference" ? -1 : 1);
  }
  if (header == "Budget") return explained;
  if (!isUnallocated) {
    for (ExplainedRow& each : Report::Explain(run, table, row, column)) explained.push_back(each);
    return explained;
  }
  if (header != "Actual") return {};
  const std::vector<EvidenceRow> all = ReadEvidence(run, EvidenceOf(run));
  for (const ReportRow& each : table.rows) {
    if (each.kind == ReportRowKind::Total || each.currency != row.currency) continue;
    if (each.part == kPlanned) continue;
    for (const EvidenceRow& part : all) {
      if (run.rates.ShownIn(part.currency) != row.currency || !IsOf(part, each, run)) continue;
      explained.push_back(Explained(part, part.amount, run.rates.RateOf(part.currency)));
    }
  }
  return explained;
}

}  // namespace corvanta::inline reports
