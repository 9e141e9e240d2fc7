#include "reports/query/BudgetPlans.h"

#include "ledger/schedules/ScheduleDates.h"
#include "platform/TextCase.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline reports {
namespace {

// The budgets of categories, each with its period, and those of whole categories, which take the
// period that comes last in the alphabet.
constexpr const char* kEachBudget =
    "Select CategoryID, Category, SubCategory, SUM(Type*Budget) as Budget, Period FROM tblCategory "
    "C LEFT JOIN tblPeriods Per  ON C.PeriodId = Per.PeriodID ";
constexpr const char* kEachOrder =
    " Group by CategoryID, Category, SubCategory, Period Order by Category, SubCategory";
constexpr const char* kWholeBudget =
    "Select Max(CategoryID) as CategoryID, Category, '' as SubCategory, SUM(Type*Budget) as "
    "Budget, Max(Period) as Period FROM tblCategory C LEFT JOIN tblPeriods Per  ON C.PeriodId = "
    "Per.PeriodID ";
constexpr const char* kWholeOrder = " Group by Category Order by Category";

// All rows in parts that are found by their days: whole entries, lines, and what nobody has said of
// which it is. Key 0 is no account's; a list must not be empty.
std::vector<std::string> PartsByDay(Connection& store) {
  std::vector<std::int64_t> accounts = AccountKeys(store);
  accounts.push_back(0);
  return {"AND T.AllocatedItem = 0 AND T.AccountID IN (" + JoinKeys(accounts) + ") ",
          "AND T.AllocatedItem <> 0 ", "AND IsNull(T.AllocatedItem) "};
}

// As WithoutSplitParents says; few rows are looked up faster than all parents are gathered.
constexpr const char* kNoParent =
    "AND (Select Count(*) from tblTransactions L WHERE L.AllocatedItem = T.TransactionID) = 0";

// Whether of each whole category that period is the one of all that is planned in it, and the sum
// shows that something is. Otherwise 80 a month and 600 a year would be 680 a year.
bool HaveOnePeriodEach(Connection& store, const std::string& some) {
  struct Periods {
    std::optional<std::string> planned;
    std::string last;
    double total = 0;
  };
  std::unordered_map<std::string, Periods> periods;
  Recordset rows = store.OpenRecordset(
      "Select Category, Type*Budget as Planned, Period FROM tblCategory C LEFT JOIN tblPeriods Per "
      " ON C.PeriodId = Per.PeriodID " +
      some);
  for (; !rows.Eof(); rows.MoveNext()) {
    Periods& own = periods[FoldCase(rows.Text("Category"))];
    const std::string period = rows.Text("Period");
    own.last = std::max(own.last, period);
    const double planned = rows.Double("Planned");
    if (planned == 0) continue;
    if (own.planned.value_or(period) != period) return false;
    own.planned = period;
    own.total += planned;
  }
  return std::ranges::all_of(periods, [](const auto& each) {
    const Periods& own = each.second;
    // What cancels out is planned all the same, which its sum does not tell.
    return !own.planned || (*own.planned == own.last && own.total != 0);
  });
}

}  // namespace

namespace {

double AmountIn(const std::map<std::string, double>& amounts, const std::string& currency) {
  const auto amount = amounts.find(currency);
  return amount == amounts.end() ? 0 : amount->second;
}

}  // namespace

double Plan::ActualIn(const std::string& currency) const {
  return AmountIn(actual, currency);
}

double Plan::PastActualIn(const std::string& currency) const {
  return AmountIn(pastActual, currency);
}

BudgetPlans::BudgetPlans(const ReportRun& run) : run_(run), days_(DaysOf(run)) {
  ReadBudgets();
  ReadActual(run.request.range, std::nullopt);
}

BudgetPlans::BudgetPlans(const ReportRun& run, const Period& period,
                         const std::vector<Period>& past)
    : run_(run), days_(DaysOf(period)) {
  for (const Period& each : past) past_.push_back(DaysOf(each));
  ReadBudgets();
  const Period whole{past.empty() ? period.from : past.front().from, period.to};
  ReadActual(whole, past.empty() ? std::nullopt : std::optional(period.from));
}

BudgetPlans::Days BudgetPlans::DaysOf(const ReportRun& run) {
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

BudgetPlans::Days BudgetPlans::DaysOf(const Period& period) {
  return {period.from, DateDiff("d", period.from, period.to.AddDays(1))};
}

// Where sub-categories are planned for other periods than their category, each is taken for itself
// before they are folded.
void BudgetPlans::ReadBudgets() {
  const std::string some =
      run_.request.filter.IsSet(FilterKind::Category)
          ? "WHERE CategoryID IN (" + run_.request.filter.List(FilterKind::Category) + ")"
          : std::string();
  const bool isWhole = run_.request.foldsSubCategories && HaveOnePeriodEach(run_.Store(), some);
  Recordset rows = run_.Store().OpenRecordset(isWhole ? kWholeBudget + some + kWholeOrder
                                                      : kEachBudget + some + kEachOrder);
  for (; !rows.Eof(); rows.MoveNext()) {
    Plan& plan = PlanOf(rows);
    placeOf_[rows.Int("CategoryID")] = static_cast<std::size_t>(&plan - plans_.data());
    const double budget = rows.Double("Budget");
    if (budget == 0) continue;
    plan.hasBudget = true;
    const std::string code = rows.Text("Period");
    const auto planned = [&](const Days& days) {
      const auto period = PeriodDays(code, days.start);
      // A budget without a period is meant for as long as the report is.
      return period ? budget * days.count / *period : budget;
    };
    plan.budget += planned(days_);
    for (const Days& days : past_) plan.pastBudget += planned(days);
  }
  if (isWhole) PlaceSubCategories(some);
}

void BudgetPlans::PlaceSubCategories(const std::string& some) {
  std::unordered_map<std::string, std::size_t> places;
  for (std::size_t place = 0; place < plans_.size(); ++place) {
    places[FoldCase(plans_[place].category)] = place;
  }
  Recordset rows =
      run_.Store().OpenRecordset("Select CategoryID, Category FROM tblCategory C " + some);
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto place = places.find(FoldCase(rows.Text("Category")));
    if (place != places.end()) placeOf_[rows.Int("CategoryID")] = place->second;
  }
}

Plan& BudgetPlans::PlanOf(Recordset& rows) {
  const bool folds = run_.request.foldsSubCategories;
  const std::string category = rows.Text("Category");
  if (folds && !plans_.empty() && EqualFolded(plans_.back().category, category)) {
    plans_.back().key = std::max(plans_.back().key, rows.Int("CategoryID"));
    return plans_.back();
  }
  Plan& plan = plans_.emplace_back();
  plan.key = rows.Int("CategoryID");
  plan.category = category;
  if (!folds) plan.subCategory = rows.Text("SubCategory");
  return plan;
}

void BudgetPlans::ReadActual(const std::optional<Period>& period,
                             const std::optional<corvanta::Date>& since) {
  ReportRequest request = run_.request;
  request.range = period;
  const std::string where = ReportClause(request).Where(ReportClause::Payments::Joined);
  if (!request.isOfFewDays) return AddActual(where + ReportClause::WithoutSplitParents(), since);
  for (const std::string& part : PartsByDay(run_.Store())) {
    AddActual(where + part + kNoParent, since);
  }
}

void BudgetPlans::AddActual(const std::string& conditions,
                            const std::optional<corvanta::Date>& since) {
  const std::string isPast = since ? ", IIF([Date] < " + SqlDate(*since) + ",1,0)" : std::string();
  Recordset rows = run_.Store().OpenRecordset(
      "SELECT SUM(AMOUNT) as sAmount, CU.Currency, " + run_.exchange +
      " AS Exchange, C.CategoryID" + isPast + " FROM " + run_.clause.WithKeywords(kFiveTables) +
      conditions + " GROUP BY Currency, " + run_.exchange + ", C.CategoryID" + isPast);
  constexpr int kIsPast = 4;
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto place = placeOf_.find(rows.Int("CategoryID"));
    if (place == placeOf_.end()) continue;
    Plan& plan = plans_[place->second];
    const double rate = rows.Double("Exchange");
    const bool isOfPast = since && rows.Int(kIsPast) == 1;
    (isOfPast ? plan.pastActual : plan.actual)[run_.rates.ShownIn(rows.Text("Currency"), rate)] +=
        rows.Double("sAmount") * rate;
  }
}

std::optional<int> PeriodDays(const std::string& period, corvanta::Date start) {
  const std::optional<PeriodStep> step = PeriodStep::FromCode(period);
  if (!step) return std::nullopt;
  return std::max(1, DateDiff("d", start, DateAdd(step->interval, step->multiplier, start)));
}

}  // namespace corvanta::inline reports
