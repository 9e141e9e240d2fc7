#include "reports/query/BudgetReport.h"

#include "ledger/Money.h"
#include "platform/TextCase.h"
#include "reports/query/ReportSql.h"
#include "reports/query/SpendingReport.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>

namespace corvanta::inline reports {
namespace {

struct Days {
  corvanta::Date start;
  int count = 0;
};

// The range, or where all days are shown those that the accounts have rows of.
Days DaysOf(const ReportRun& run) {
  if (run.request.range) {
    const Period& range = *run.request.range;
    return {range.from, DateDiff("d", range.from, range.to.AddDays(1))};
  }
  const bool some = run.request.filter.IsSet(FilterKind::Account);
  const std::string accounts =
      some ? "WHERE A.AccountID IN (" + run.request.filter.List(FilterKind::Account) + ") "
           : run.clause.AccountCondition();
  const Recordset row = run.Store().OpenRecordset(
      "SELECT DateDiff('d',Min(T.Date), Max(T.Date)) As TotalDays, Min(T.Date) As FirstDay FROM "
      "tblTransactions AS T INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID " +
      accounts);
  return {row.Day("FirstDay").value_or(corvanta::Date()), static_cast<int>(row.Int("TotalDays"))};
}

// A category, or a whole one with all that is below it.
struct Plan {
  std::int64_t key = 0;
  std::string category;
  std::string subCategory;
  double budget = 0;  // for the days of the report
  bool hasBudget = false;
  std::map<std::string, double> actual = {};  // by the currency it is shown in
};

class Plans {
 public:
  explicit Plans(const ReportRun& run) : run_(run), days_(DaysOf(run)) {
    ReadBudgets();
    ReadActual();
  }

  [[nodiscard]] const std::vector<Plan>& All() const { return plans_; }

 private:
  // Sub-categories may be planned for other periods than their category, so each is taken for
  // itself before they are folded.
  void ReadBudgets() {
    const std::string some =
        run_.request.filter.IsSet(FilterKind::Category)
            ? "WHERE CategoryID IN (" + run_.request.filter.List(FilterKind::Category) + ")"
            : std::string();
    Recordset rows = run_.Store().OpenRecordset(
        "Select CategoryID, Category, SubCategory, SUM(Type*Budget) as Budget, Period FROM "
        "tblCategory C LEFT JOIN tblPeriods Per  ON C.PeriodId = Per.PeriodID " +
        some +
        " Group by CategoryID, Category, SubCategory, Period Order by Category, SubCategory");
    for (; !rows.Eof(); rows.MoveNext()) {
      Plan& plan = PlanOf(rows);
      placeOf_[rows.Int("CategoryID")] = static_cast<std::size_t>(&plan - plans_.data());
      const double budget = rows.Double("Budget");
      if (budget == 0) continue;
      plan.hasBudget = true;
      const auto period = PeriodDays(rows.Text("Period"), days_.start);
      // A budget without a period is meant for as long as the report is.
      plan.budget += period ? budget * days_.count / *period : budget;
    }
  }

  Plan& PlanOf(Recordset& rows) {
    const bool folds = run_.request.foldsSubCategories;
    const std::string category = rows.Text("Category");
    if (folds && !plans_.empty() && EqualFolded(plans_.back().category, category)) {
      plans_.back().key = std::max(plans_.back().key, rows.Int("CategoryID"));
      return plans_.back();
    }
    return plans_.emplace_back(
        Plan{rows.Int("CategoryID"), category, folds ? std::string() : rows.Text("SubCategory")});
  }

  void ReadActual() {
    Recordset rows = run_.Store().OpenRecordset(
        "SELECT SUM(AMOUNT) as sAmount, CU.Currency, " + run_.exchange +
        " AS Exchange, C.CategoryID FROM " + run_.clause.WithKeywords(kFiveTables) +
        run_.clause.Where(ReportClause::Payments::Joined) + ReportClause::WithoutSplitParents() +
        " GROUP BY Currency, " + run_.exchange + ", C.CategoryID");
    for (; !rows.Eof(); rows.MoveNext()) {
      const auto place = placeOf_.find(rows.Int("CategoryID"));
      if (place == placeOf_.end()) continue;
      const double rate = rows.Double("Exchange");
      plans_[place->second].actual[run_.rates.ShownIn(rows.Text("Currency"), rate)] +=
          rows.Double("sAmount") * rate;
    }
  }

  const ReportRun& run_;
  Days days_;
  std::vector<Plan> plans_;
  std::unordered_map<std::int64_t, std::size_t> placeOf_;
};

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

std::optional<int> PeriodDays(const std::string& period, corvanta::Date start) {
  int count = 0;
  const char* end = period.data() + period.size();
  const auto [letters, error] = std::from_chars(period.data(), end, count);
  if (error == std::errc::result_out_of_range) return std::nullopt;
  if (error != std::errc()) count = 1;
  constexpr std::array kIntervals = {"d", "ww", "m", "q", "yyyy"};
  const std::string interval = ToLower(Trim(std::string_view(letters, end)));
  if (std::ranges::find(kIntervals, interval) == kIntervals.end()) return std::nullopt;
  constexpr int kMost = 1000;
  if (count < 0 || count > kMost) return std::nullopt;
  return std::max(1, DateDiff("d", start, DateAdd(interval, count, start)));
}

void BudgetReport::Fill(const ReportRun& run, ReportTable& table) const {
  const Plans plans(run);
  const std::string home = run.rates.Home();
  std::map<std::string, double> unallocated = {{home, 0.0}};
  for (const Plan& plan : plans.All()) {
    // The plan stands beside what is in its currency, other currencies below it.
    const auto atHome = plan.actual.find(home);
    if (plan.hasBudget || atHome != plan.actual.end()) {
      table.rows.push_back(
          PlanRow(plan, home, plan.budget, atHome == plan.actual.end() ? 0 : atHome->second));
    }
    for (const auto& [currency, actual] : plan.actual) {
      if (currency != home) table.rows.push_back(PlanRow(plan, currency, 0, actual));
      if (!plan.hasBudget) unallocated[currency] += actual;
    }
  }
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

std::vector<ExplainedRow> BudgetReport::Explain(const ReportRun& run, const ReportTable& table,
                                                const ReportRow& row, std::size_t column) const {
  const std::string& header = table.columns.at(column).header;
  std::vector<ExplainedRow> explained;
  const std::size_t budgetColumn = table.Column("Budget").value();
  const bool isPlanned = header == "Budget" || header == "Difference";
  const int sign = header == "Difference" ? -1 : 1;
  const bool isTotal = row.kind == ReportRowKind::Total;
  const bool isUnallocated = isTotal && row.cells.front().Text() == kUnallocated;
  for (const ReportRow& each : table.rows) {
    const double budget = each.cells[budgetColumn].Double();
    if (each.kind == ReportRowKind::Total || budget == 0) continue;
    const bool isWanted = each.currency == row.currency && (isTotal || &each == &row);
    if (!isPlanned || isUnallocated || !isWanted) continue;
    explained.push_back(Beside("Budget for " + each.cells.front().Text(), each.cells[1].Text(),
                               each.currency, budget, 1, sign));
  }
  if (header == "Budget") return explained;
  if (!isUnallocated) {
    for (ExplainedRow& each : Report::Explain(run, table, row, column)) explained.push_back(each);
    return explained;
  }
  if (header != "Actual") return {};
  for (const ReportRow& each : table.rows) {
    if (each.kind == ReportRowKind::Total || each.currency != row.currency) continue;
    if (each.part == kPlanned) continue;
    for (ExplainedRow& part : Report::Explain(run, table, each, column)) explained.push_back(part);
  }
  return explained;
}

}  // namespace corvanta::inline reports
