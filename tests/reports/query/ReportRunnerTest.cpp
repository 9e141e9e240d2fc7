// What is particular to reports beside their figures: lists, rates, ranges and the way into a row.
#include "reports/query/BudgetPlans.h"
#include "reports/query/DrillDown.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportClause.h"
#include "reports/query/ReportRunner.h"
#include "reports/query/ReportsTest.h"

#include <algorithm>
#include <stdexcept>

namespace corvanta {
namespace {

TEST(ReportCatalogue, SplitsItsListsIntoColumns) {
  const auto columns = ColumnsOf(*FindReport(5));
  ASSERT_EQ(columns.size(), 7U) << "what stands behind the last comma is no column";
  EXPECT_EQ(columns[1].header, "Sub Category");
  EXPECT_EQ(columns[1].kind, ReportColumn::Text);
  EXPECT_EQ(columns[2].kind, ReportColumn::Number);
  EXPECT_EQ(columns[2].content, ReportColumn::Content::Count);
  EXPECT_EQ(ColumnsOf(*FindReport(3))[1].kind, ReportColumn::Date);
  // The list of types is one off there; what the cells hold is not.
  const auto months = ColumnsOf(*FindReport(8));
  EXPECT_EQ(months[1].header, "January");
  EXPECT_EQ(months[1].kind, ReportColumn::Text);
  EXPECT_TRUE(months[1].HoldsNumbers());
  EXPECT_EQ(months.back().kind, ReportColumn::Number);
  EXPECT_FALSE(months.back().HoldsNumbers());
  EXPECT_EQ(FindReport("monthly cash flow")->number, 2);
  EXPECT_EQ(FindReport(" 11 ")->number, 11);
  EXPECT_FALSE(FindReport(11)->hasChart);
  EXPECT_EQ(FindReport(0), nullptr);
  EXPECT_EQ(FindReport("12x"), nullptr);
}

TEST(ReportClauses, StandInTheirOrder) {
  ReportRequest request;
  request.filter.SetKeys(FilterKind::Account, {1, 2});
  request.filter.SetKeys(FilterKind::Category, {3});
  request.filter.SetKeys(FilterKind::Payee, {4});
  request.filter.SetKeys(FilterKind::Investment, {5});
  request.filter.SetKeys(FilterKind::Keyword, {6});
  request.filter.SetSearch({"x", true});
  request.actions = {"Sell", "buy"};
  request.paymentTypes = {7};
  request.range = Period{*Date::FromIso("2026-03-01"), *Date::FromIso("2026-03-31")};
  request.status = {true, false, false};
  request.withoutTransfers = true;
  using Payments = ReportClause::Payments;
  EXPECT_EQ(ReportClause(request).Where(Payments::Joined),
            " WHERE BankChk = 0 AND BankRec = 0 AND CloseAccount <> 1 AND  (T.TransferID = 0 or "
            "isNull(T.TransferID)) AND [Date] Between #03/01/2026# AND #03/31/2026 23:59:59# AND "
            "(T.AccountID IN (1,2)) AND (T.CategoryID IN (3)) AND (T.PayeeID IN (4)) AND "
            "(T.PayeeID IN (5)) AND (T.Action IN (1,2)) AND (K.KeywordID IN (6)) AND "
            "(P.PaymentID IN (7)) AND (T.Amount like '%x%' OR T.Description like '%x%' OR "
            "t.Reference like '%x%')  ");
  ReportRequest all;
  all.withClosedAccounts = true;
  EXPECT_EQ(ReportClause(all).Where(Payments::Joined), " WHERE 1 > 0  ");
  EXPECT_EQ(ReportClause(all).AccountCondition(), "");
  EXPECT_EQ(ReportClause(all).WithKeywords("x"), "x") << "no join without a keyword";
  all.actions = {"Lend"};
  all.range = request.range;
  EXPECT_EQ(ReportClause(all).WhereUntil(ReportClause(all).DayBefore(), Payments::NotJoined),
            " WHERE 1 > 0 AND (T.Action IN (-1))  AND T.[DATE] <= #02/28/2026 23:59:59# ");
}

TEST(ReportBudgets, CountTheDaysOfAPeriod) {
  const Date january = *Date::FromIso("2026-01-31");
  EXPECT_EQ(PeriodDays("d", january), 1);
  EXPECT_EQ(PeriodDays("2ww", january), 14);
  EXPECT_EQ(PeriodDays("m", january), 28);
  EXPECT_EQ(PeriodDays("yyyy", january), 365);
  EXPECT_EQ(PeriodDays("0d", january), 1) << "never divides by nothing";
  EXPECT_EQ(PeriodDays("", january), std::nullopt);
  EXPECT_EQ(PeriodDays("3x", january), std::nullopt);
}

TEST_F(Reports, WithoutARateStayInTheirCurrencyAndSayWhy) {
  machine_.prompts.ExpectTell("Download Currency for Report", "Could not connect to website");
  const ReportTable table = Show(Converted(1));
  ASSERT_EQ(table.rows.size(), 4U);
  EXPECT_EQ(Text(table.rows[1]), "Dollars|500|0|510|USD|");
  EXPECT_EQ(Text(table.rows[3]), "Total (USD)|500|0|510|USD|");
  EXPECT_EQ(rates_.Asked(), std::vector<std::string>{"USDEUR"}) << "none for its own currency";
}

TEST_F(Reports, SayOfWhichDayARateIs) {
  rates_.Answer(RateAnswer{0.5, Date::FromIso("2026-11-01"), "The rate of 01/11/2026 was used."});
  machine_.prompts.ExpectTell("Download Currency for Report", "The rate of 01/11/2026 was used.");
  const ReportTable table = Show(Converted(1));
  EXPECT_EQ(Text(table.rows[1]), "Dollars|250|0|255|EUR|");
  EXPECT_EQ(Text(table.rows.back()), "Total (EUR)|250|-50|305|EUR|");
  // A 1 that stands in for a rate is none.
  rates_.Answer(RateAnswer{1, std::nullopt, "One USD was taken for one EUR."});
  machine_.prompts.ExpectTell("Download Currency for Report", "One USD was taken for one EUR.");
  EXPECT_EQ(Show(Converted(1)).rows.back().currency, "USD");
  rates_.Stop();
  EXPECT_EQ(Show(Converted(1)).rows.size(), 4U) << "and nothing is told of what was stopped";
}

TEST_F(Reports, TakeARangeAsWholeDays) {
  ReportRequest request;
  request.report = 2;
  request.range = Days("2026-01-01", "2026-01-31");
  ASSERT_EQ(Show(request).rows.size(), 2U) << "the last day's evening is of it";
  EXPECT_EQ(Text(Show(request).rows[0]), "202601|0|-20|-20|EUR|");
  request.report = 3;
  request.range = Days("2026-02-01", "2026-02-01");
  EXPECT_EQ(Show(request).rows[0].cells[9].Double(), 50) << "begins with what was before";
  for (const ReportInfo& info : ReportCatalogue()) {
    request.report = info.number;
    request.range = Days("2026-02-02", "2026-02-01");
    EXPECT_TRUE(Show(request).rows.empty()) << info.name;
    request.range = Days("0001-01-01", "2026-12-31");
    // By month there would be rows for two thousand years.
    if (info.number != 12) {
      EXPECT_NO_THROW(static_cast<void>(Show(request))) << info.name;
    }
  }
  request.report = 0;
  EXPECT_THROW(static_cast<void>(Show(request)), std::invalid_argument);
}

TEST_F(Reports, OfAnEmptyLedgerHaveNoRows) {
  Run("DELETE FROM tblTransactions");
  Run("DELETE FROM tblAccounts");
  for (const ReportInfo& info : ReportCatalogue()) {
    const ReportTable table = Show(Converted(info.number));
    for (const ReportRow& row : table.rows) {
      // What is planned stands there all the same.
      EXPECT_TRUE(row.kind == ReportRowKind::Total || row.part == "planned") << info.name;
      EXPECT_EQ(row.cells.size(), table.columns.size());
    }
  }
}

TEST_F(Reports, CountARowWithTwoKeywordsOnce) {
  Run("INSERT INTO tblKeywordLink (KeywordID,TransactionID) VALUES (1,2)");
  Run("INSERT INTO tblKeywordLink (KeywordID,TransactionID) VALUES (2,2)");
  ReportRequest request;
  request.filter.SetKeys(FilterKind::Keyword, {1, 2});
  for (const int report : {2, 3, 5, 9}) {
    request.report = report;
    const ReportTable table = Show(request);
    ASSERT_EQ(table.rows.size(), 2U) << report;
    EXPECT_EQ(table.rows[1].cells[*table.Column("Expense")].Double(), -30) << report;
  }
}

TEST_F(Reports, LookIntoTheirRows) {
  Run("INSERT INTO tblPayees (PayeeID,Payee,[Symbol],Investment,CurrencyID) VALUES "
      "(9,'Fund','F',1," +
      std::to_string(Currency("EUR")) + ")");
  AddTransaction(4, 1, "03/01/2026", "-10", "PayeeID = 9, [Action] = 1, Shares = 2");
  Run("UPDATE tblAccounts SET [Account] = '0123456789012345678901234567890123456789X' WHERE "
      "AccountID = 1");
  const auto into = [&](int report, std::size_t row) {
    ReportRequest request;
    request.report = report;
    return DrillDown(Ledger(), request, Show(request).rows.at(row));
  };
  auto step = into(1, 0);
  ASSERT_TRUE(step);
  EXPECT_EQ(step->request.report, 3);
  EXPECT_EQ(step->request.filter.List(FilterKind::Account), "1");
  EXPECT_EQ(step->label, "0123456789012345678901234567890123456789");
  step = into(2, 0);
  ASSERT_TRUE(step && step->setsRange);
  EXPECT_EQ(step->request.range, Days("2026-01-01", "2026-01-31"));
  step = into(7, 0);
  ASSERT_TRUE(step);
  EXPECT_EQ(step->filter, FilterKind::Payee);
  step = into(9, 0);
  ASSERT_TRUE(step && step->setsPaymentTypes);
  EXPECT_EQ(step->request.paymentTypes, std::vector<std::int64_t>{1});
  step = into(10, 0);
  ASSERT_TRUE(step);
  EXPECT_EQ(step->request.report, 3);
  EXPECT_EQ(step->request.filter.List(FilterKind::Investment), "9");
  step = into(11, 0);
  ASSERT_TRUE(step);
  EXPECT_EQ(step->request.report, 11);
  EXPECT_EQ(step->label, "Fund");
  EXPECT_FALSE(into(1, 2)) << "a total";
  EXPECT_FALSE(into(3, 0)) << "has no group";
}

}  // namespace
}  // namespace corvanta
