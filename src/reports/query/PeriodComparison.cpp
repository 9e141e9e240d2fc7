#include "reports/query/PeriodComparison.h"

#include "ledger/Money.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reports/query/ReportSql.h"
#include "reports/query/SpendingReport.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>

namespace corvanta::inline reports {
namespace {

struct TwoPeriods {
  Period now;
  Period before;
};

Period YearOf(int year) {
  const corvanta::Date first = corvanta::Date::FromYmd(year, 1, 1).value_or(corvanta::Date());
  return {first, first.AddMonths(12).AddDays(-1)};
}

TwoPeriods PeriodsOf(const ReportRun& run) {
  const int year = run.platform.clock.Today().Year();
  TwoPeriods periods{run.request.range.value_or(YearOf(year)), YearOf(year - 1)};
  if (run.request.otherRange) {
    periods.before = *run.request.otherRange;
  } else if (run.request.range) {
    const int days = periods.now.to.Serial() - periods.now.from.Serial() + 1;
    // Nothing lies before the first day that there is.
    const corvanta::Date least = corvanta::Date::FromYmd(1, 1, 1).value_or(corvanta::Date());
    periods.before = {std::max(least, periods.now.from.AddDays(-days)),
                      std::max(least, periods.now.from.AddDays(-1))};
  }
  return periods;
}

// The request with other days.
ReportRequest In(const ReportRun& run, const Period& period) {
  ReportRequest request = run.request;
  request.range = period;
  return request;
}

std::string ConditionsOf(const ReportRequest& request) {
  return ReportClause(request).Where(ReportClause::Payments::Joined) +
         SpendingRows(SpendingBy::Category);
}

// The place of a period's amount among the cells of a row.
enum Place { kNow = 2, kBefore = 3, kDifference = 4 };

void AddPeriod(const ReportRun& run, const Period& period, Place place, RowFold& fold) {
  const ReportRequest request = In(run, period);
  const bool folds = request.foldsSubCategories;
  Recordset rows = run.Store().OpenRecordset(
      "SELECT SUM(AMOUNT) as sAmount, CU.Currency, " + run.exchange +
      " AS Exchange, C.CategoryID, C.Category, C.SubCategory FROM " +
      run.clause.WithKeywords(kFiveTables) + ConditionsOf(request) + " GROUP BY Currency, " +
      run.exchange +
      ", C.CategoryID, C.Category, C.SubCategory ORDER BY C.Category, C.SubCategory");
  for (; !rows.Eof(); rows.MoveNext()) {
    const double rate = rows.Double("Exchange");
    const double amount = RoundMoney(rows.Double("sAmount") * rate);
    const std::string currency = run.rates.ShownIn(rows.Text("Currency"), rate);
    std::vector<Value> cells = {rows.Text("Category"),
                                folds ? std::string() : rows.Text("SubCategory"),
                                0.0,
                                0.0,
                                place == kNow ? amount : -amount,
                                currency};
    cells[place] = amount;
    fold.Add(GroupRow(SqlNumber(rows.Int("CategoryID")), currency, std::move(cells)),
             folds ? FoldCase(rows.Text("Category")) : std::string());
  }
}

}  // namespace

void PeriodComparison::Fill(const ReportRun& run, ReportTable& table) const {
  const TwoPeriods periods = PeriodsOf(run);
  table.periods = {periods.now, periods.before};
  RowFold fold(table);
  AddPeriod(run, periods.now, kNow, fold);
  AddPeriod(run, periods.before, kBefore, fold);
  // What stood in the other period alone has its place among the others.
  std::ranges::stable_sort(table.rows, [](const ReportRow& first, const ReportRow& second) {
    const int order = CompareFolded(first.cells[0].Text(), second.cells[0].Text());
    if (order != 0) return order < 0;
    return CompareFolded(first.cells[1].Text(), second.cells[1].Text()) < 0;
  });
  AppendTotals(table, {"This Period", "Other Period", "Difference"});
}

std::vector<ExplainedRow> PeriodComparison::Explain(const ReportRun& run,
                                                    const ReportTable& /*table*/,
                                                    const ReportRow& row,
                                                    std::size_t column) const {
  const TwoPeriods periods = PeriodsOf(run);
  std::vector<ExplainedRow> explained;
  const auto add = [&](const Period& period, int sign) {
    Sources sources{run.clause.WithKeywords(kFiveTables), ConditionsOf(In(run, period))};
    if (row.kind != ReportRowKind::Total) sources.conditions += OnlyCategory(row, run);
    for (const EvidenceRow& evidence : ReadEvidence(run, sources)) {
      if (run.rates.ShownIn(evidence.currency) != row.currency) continue;
      if (row.kind != ReportRowKind::Total && !IsOfCategory(evidence, row, run)) continue;
      explained.push_back(
          Explained(evidence, evidence.amount, run.rates.RateOf(evidence.currency), sign));
    }
  };
  if (column == kNow || column == kDifference) add(periods.now, 1);
  if (column == kBefore) add(periods.before, 1);
  if (column == kDifference) add(periods.before, -1);
  return explained;
}

}  // namespace corvanta::inline reports
