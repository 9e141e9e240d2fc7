// What is particular to reports beside their figures: lists, rates, ranges and the way into a row.
#include "reports/query/BudgetPlans.h"
#include "reports/query/DrillDown.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportClause.h"
#include "reports/query/ReportRunner.h"
#include "reports/query/ReportsTest.h"
#include "store/sql/Recordset.h"

#include <algorithm>
#include <stdexcept>

namespace corvanta {
namespace {

// The lists go as they stand to saved reports, paper and spreadsheets.
TEST(ReportCatalogue, HasElevenStandardReports) {
  struct Standard {
    const char* name;
    const char* headers;
    const char* types;
  };
  const Standard standards[] = {
      {"Account Summary", "Account,Income,Expense,Balance,Currency,", ",N,N,N,,"},
      {"Monthly Cash Flow", "Year/Month,Income,Expense,Total,Currency,", ",N,N,N,,"},
      {"Account Transactions",
       "Account,Date,Payee,Category,Ref,Description,Status,Income,Expense,Balance,Currency",
       ",D,,,,,,N,N,N,"},
      {"Budget Report", "Category,Sub Category,Budget,Actual,Difference,Currency,", ",,N,N,N,,"},
      {"Spending by Category", "Category,Sub Category,Records,Income,Expense,Total,Currency,",
       ",,N,N,N,N,,"},
      {"Monthly Spending by Category",
       "Category,Sub Category,January,February,March,April,May,June,July,August,September,October,"
       "November,December,Total,Currency,",
       ",,N,N,N,N,N,N,N,N,N,N,N,N,N,,"},
      {"Spending by Payee", "Payee,Records,Income,Expense,Total,Currency,", ",N,N,N,N,,"},
      {"Monthly Spending by Payee",
       "Payee,January,February,March,April,May,June,July,August,September,October,November,"
       "December,Total,Currency,",
       ",,N,N,N,N,N,N,N,N,N,N,N,N,N,,"},
      {"Spending by Payment Type", "Payment Type,Records,Income,Expense,Total,Currency,",
       ",N,N,N,N,,"},
      {"Investment Gains and Losses",
       "Name,Symbol,Currency,Description,Last Price,Quantity,Total,Gain,", ",,,,N,N,N,N,"},
      {"Investment Transactions",
       "Account,Date,Action,Symbol,Description,Dividend,Price,Quantity,Commission,Total,Currency,",
       ",D,,,,N,N,N,N,N,,"}};
  EXPECT_STREQ(kReportRoot, "Corvanta Reports");
  int number = 0;
  for (const Standard& standard : standards) {
    const ReportInfo* info = FindReport(++number);
    ASSERT_NE(info, nullptr);
    EXPECT_STREQ(info->name, standard.name);
    EXPECT_STREQ(info->headers, standard.headers);
    EXPECT_STREQ(info->types, standard.types);
    EXPECT_EQ(info->hasChart, number != 11) << standard.name;
  }
  EXPECT_EQ(number, kStandardReports);
}

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
  all.filter.SetSearch({"O'Neil 5%"});
  EXPECT_EQ(ReportClause(all).Where(Payments::Joined),
            " WHERE 1 > 0 AND (T.Amount like '%O''Neil 5[%]%' OR T.Description like '%O''Neil "
            "5[%]%' OR t.Reference like '%O''Neil 5[%]%' OR PP.PAYEE like '%O''Neil 5[%]%' OR "
            "C.CATEGORY like '%O''Neil 5[%]%' OR C.SUBCATEGORY like '%O''Neil 5[%]%')  ");
  all.filter.SetSearch({});
  struct Ticks {
    StatusFilter status;
    const char* clause;
  };
  const Ticks ticks[] = {{{true, false, false}, " WHERE BankChk = 0 AND BankRec = 0  "},
                         {{false, true, false}, " WHERE BankChk = 1 AND BankRec = 0  "},
                         {{false, false, true}, " WHERE BankRec = 1  "},
                         {{true, true, false}, " WHERE BankRec = 0  "},
                         {{true, false, true}, " WHERE NOT(BankChk = 1 AND BankRec = 0)  "},
                         {{false, true, true}, " WHERE NOT(BankChk = 0 AND BankRec = 0)  "},
                         {{false, false, false}, " WHERE 1 > 0  "}};
  for (const Ticks& each : ticks) {
    all.status = each.status;
    EXPECT_EQ(ReportClause(all).Where(Payments::Joined), each.clause);
  }
  all.status = {};
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
  EXPECT_EQ(step->label, "Fund");
  EXPECT_EQ(step->filter, FilterKind::Investment) << "it is no payee that could be chosen";
  step = into(7, 1);
  ASSERT_TRUE(step);
  EXPECT_EQ(step->label, "Grocer");
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
  EXPECT_FALSE(into(11, 1)) << "the total of an investment";
  Run("INSERT INTO tblCategory (CategoryID,Category,SubCategory,[Type],Budget,PeriodID) VALUES "
      "(900,'Zoo','Feed',-1,80,6)");
  AddTransaction(5, 1, "05/05/2026", "-7", "CategoryID = 900");
  for (const int report : {4, 5, 6}) {
    const auto rows = Show(report).rows;
    const auto zoo = std::ranges::find(rows, "900", &ReportRow::groupKey);
    ASSERT_NE(zoo, rows.end()) << report;
    step = into(report, static_cast<std::size_t>(zoo - rows.begin()));
    ASSERT_TRUE(step) << report;
    EXPECT_EQ(step->request.report, 3);
    EXPECT_EQ(step->filter, FilterKind::Category);
    EXPECT_EQ(step->label, "Zoo:Feed");
    const ReportTable inside = Show(step->request);
    ASSERT_EQ(inside.rows.size(), 2U) << report;
    EXPECT_EQ(inside.rows[0].transactionId, 5);
    EXPECT_EQ(inside.rows[0].cells[3].Text(), "Zoo:Feed");
  }
  const auto rows = Show(4).rows;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    EXPECT_EQ(into(4, row).has_value(), rows[row].kind == ReportRowKind::Group) << Text(rows[row]);
  }
  step = into(8, 1);
  ASSERT_TRUE(step);
  EXPECT_EQ(step->filter, FilterKind::Payee);
  // What has gone since the report was made leads nowhere.
  const ReportRow gone = Show(5).rows.front();
  Run("DELETE FROM tblCategory WHERE CategoryID = " + gone.groupKey);
  ReportRequest request;
  request.report = 5;
  EXPECT_FALSE(DrillDown(Ledger(), request, gone));
}

// A category of two sub-categories, spent on in two days.
class FoldedReports : public Reports {
 protected:
  // `second`: the values of the second one, with its plan and the period of that.
  void AddZoo(const std::string& second) {
    const std::string insert =
        "INSERT INTO tblCategory (CategoryID,Category,SubCategory,[Type],Budget,PeriodID) VALUES ";
    Run(insert + "(900,'Zoo','Feed',-1,80,6)");
    Run(insert + "(901," + second + ")");
    AddTransaction(4, 1, "05/05/2026", "-7", "CategoryID = 900");
    AddTransaction(5, 1, "05/06/2026", "-2", "CategoryID = 901");
  }
};

TEST_F(FoldedReports, KeepTheirCategoriesOnTheWayIntoARow) {
  machine_.clock.SetToday(*Date::FromIso("2026-05-20"));
  AddZoo("'Zoo','Visit',-1,60,6");
  ReportRequest request;
  request.foldsSubCategories = true;
  request.range = Days("2026-05-01", "2026-05-31");
  const auto into = [&](int report, const std::vector<std::int64_t>& categories) {
    request.report = report;
    request.filter.SetKeys(FilterKind::Category, categories);
    return DrillDown(Ledger(), request, Show(request).rows.at(0));
  };
  for (const int report : {4, 5, 6, 13, 14}) {
    auto step = into(report, {900});
    ASSERT_TRUE(step) << report;
    EXPECT_EQ(step->request.filter.List(FilterKind::Category), "900") << report;
    EXPECT_EQ(step->label, "Zoo:Feed") << report;
    EXPECT_EQ(Show(step->request).rows.size(), 2U) << report;
    step = into(report, {900, 901});
    ASSERT_TRUE(step) << report;
    EXPECT_EQ(step->label, "Zoo") << report;
    EXPECT_EQ(Show(step->request).rows.size(), 3U) << report;
  }
}

// The statement is read in any order.
TEST_F(Reports, ShowTransactionsByDayAndKey) {
  AddTransaction(40, 1, "05/05/2026 18:30:00", "-1", "CategoryID = 1");
  AddTransaction(41, 2, "05/05/2026 09:00:00", "-2", "CategoryID = 1");
  AddTransaction(42, 1, "05/05/2026", "-3", "CategoryID = 1");
  AddTransaction(43, 2, "01/02/1999", "-4", "CategoryID = 1");
  AddTransaction(44, 1, "05/05/2026 09:00:00", "-5", "CategoryID = 1");
  std::vector<std::int64_t> wanted;
  Recordset rows = Store().OpenRecordset(
      "SELECT T.TransactionID FROM tblTransactions T WHERE T.TransactionID NOT IN (SELECT "
      "AllocatedItem FROM tblTransactions WHERE AllocatedItem <> 0) Order by [DATE], "
      "T.TransactionID");
  for (; !rows.Eof(); rows.MoveNext()) wanted.push_back(rows.Int(0));
  std::vector<std::int64_t> shown;
  for (const ReportRow& row : Show(3).rows) {
    if (row.kind == ReportRowKind::Plain) shown.push_back(row.transactionId);
  }
  ASSERT_EQ(std::ranges::count(wanted, 41), 1);
  EXPECT_EQ(shown, wanted);
}

TEST_F(FoldedReports, CountBudgetsByThePeriodOfEach) {
  AddZoo("'zoo','Visit',-1,600,11");
  ReportRequest request;
  request.report = 4;
  request.currency = "EUR";
  request.foldsSubCategories = true;
  request.range = Days("2026-01-01", "2026-12-31");
  request.filter.SetKeys(FilterKind::Category, {900, 901});
  const auto planned = [&] {
    const ReportTable table = Show(request);
    EXPECT_EQ(table.rows.size(), 3U);
    EXPECT_EQ(table.rows[0].groupKey, "901");
    EXPECT_EQ(table.rows[0].cells[1].Text(), "");
    EXPECT_EQ(table.rows[0].cells[3].Double(), -9);
    EXPECT_EQ(table.rows[1].cells[3].Double(), 0) << "nothing is without a plan";
    return table.rows[0].cells[2].Double();
  };
  EXPECT_NEAR(planned(), -80.0 * 365 / 31 - 600, 1e-4);
  Run("UPDATE tblCategory SET PeriodID = 6 WHERE CategoryID = 901");
  EXPECT_NEAR(planned(), -680.0 * 365 / 31, 1e-4) << "all by the month";
  Run("UPDATE tblCategory SET Budget = 0, PeriodID = 11 WHERE CategoryID = 901");
  EXPECT_NEAR(planned(), -80.0 * 365 / 31, 1e-4) << "whatever the period of what is not planned";
  Run("UPDATE tblCategory SET [Type] = 1, Budget = 80, PeriodID = 6 WHERE CategoryID = 901");
  EXPECT_NEAR(planned(), 0, 1e-4) << "what comes and goes in equal parts is planned, too";
}

}  // namespace
}  // namespace corvanta
