// What is particular to the reports behind the eleven.
#include "ledger/investments/RateBook.h"
#include "reports/query/Explain.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportsTest.h"

#include <set>

namespace corvanta {
namespace {

TEST_F(Reports, OfNetWorthUseTheRateOfTheDay) {
  rates_.Answer(0.5);
  Ledger().Rates().Keep({0, "USD", "EUR", *Date::FromIso("2026-02-20"), 0.25, "x"});
  ReportRequest request = Converted(12);
  request.range = Days("2026-01-01", "2026-12-31");
  const ReportTable table = Show(request);
  ASSERT_EQ(table.rows.size(), 12U);
  EXPECT_EQ(Text(table.rows[0]), "202601|85|0|85|EUR|") << "today's, as none was known";
  EXPECT_EQ(Text(table.rows[1]), "202602|177.5|0|177.5|EUR|");
  EXPECT_EQ(Text(table.rows[11]), "202612|305|0|305|EUR|");
}

TEST_F(Reports, OfTheMonthsBudgetCarryOnWhatIsLeft) {
  Run("UPDATE tblCategory SET Budget = 31, PeriodID = 6, [Type] = -1 WHERE CategoryID = 9");
  ReportRequest request = Converted(14);
  request.converts = false;
  request.filter.SetKeys(FilterKind::Category, {9});
  request.filter.SetKeys(FilterKind::Account, {1});
  request.range = Days("2026-02-01", "2026-02-28");
  const ReportTable table = Show(request);
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(table.rows[0].cells[2].Double(), -31);
  EXPECT_EQ(table.rows[0].cells[3].Double(), -11) << "of January's 31 20 were spent";
  EXPECT_EQ(table.rows[0].cells[4].Double(), -30);
  EXPECT_EQ(table.rows[0].cells[5].Double(), 12) << "may still be spent";
  machine_.clock.SetToday(*Date::FromIso("2026-02-10"));
  request.range = Days("2026-01-01", "2026-12-31");
  EXPECT_EQ(Show(request).periods.front(), Days("2026-02-01", "2026-02-28"));
  EXPECT_EQ(Show(request).rows[0].cells[5].Double(), 12) << "a year is of today's month";
  Run("DELETE FROM tblTransactions WHERE TransactionID = 1");
  EXPECT_EQ(Show(request).rows[0].cells[3].Double(), 0) << "nothing was recorded in January";
}

// Plan, actual and currency of the rows of each category.
std::string PlansOf(const ReportTable& table) {
  std::string text;
  for (const ReportRow& row : table.rows) {
    if (row.kind == ReportRowKind::Total) continue;
    text += row.cells[kPlanColumn].Text() + " " + row.cells[*table.Column("Actual")].Text() + " " +
            row.currency + "|";
  }
  return text;
}

TEST_F(Reports, ConvertPlansAsWhatTheyAreComparedWith) {
  Run("UPDATE tblCategory SET Budget = 31, PeriodID = 6, [Type] = -1 WHERE CategoryID = 9");
  for (const int report : {4, 14}) {
    ReportRequest request = Converted(report);
    request.currency = "USD";
    request.filter.SetKeys(FilterKind::Category, {9});
    request.range = Days("2026-02-01", "2026-02-28");
    rates_.Answer(2);
    const ReportTable table = Show(request);
    EXPECT_EQ(PlansOf(table), "-62 440 USD|") << report;
    EXPECT_EQ(table.plansKeptIn, "EUR");
    if (report == 14) {
      EXPECT_EQ(table.rows[0].cells[3].Double(), -22);
    }
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
      const auto rows = Explain(Ledger(), request, table, row, kPlanColumn, machine_.Get());
      if (table.rows[row].cells[kPlanColumn].IsNull()) continue;
      ASSERT_EQ(rows.size(), 1U) << report;
      EXPECT_EQ(rows[0].currency, "EUR");
      EXPECT_EQ(rows[0].rate, 2);
      EXPECT_EQ(rows[0].contribution, -62);
    }
    rates_.Answer(std::nullopt);
    machine_.prompts.ExpectTell("Download Currency for Report", "Could not connect to website");
    EXPECT_EQ(PlansOf(Show(request)), "-31 -30 EUR|0 500 USD|") << "none is relabelled";
  }
}

TEST_F(Reports, KeepPlansInTheirCurrencyWhateverIsShown) {
  Run("UPDATE tblCategory SET Budget = 31, PeriodID = 6, [Type] = -1 WHERE CategoryID = 9");
  rates_.Answer(2);
  for (const int report : {4, 14}) {
    ReportRequest request = Converted(report);
    request.converts = false;
    request.currency = "USD";
    request.filter.SetKeys(FilterKind::Category, {9});
    request.range = Days("2026-02-01", "2026-02-28");
    EXPECT_EQ(PlansOf(Show(request)), "-31 -30 EUR|0 500 USD|") << report;
    request.filter.SetKeys(FilterKind::Account, {2});
    EXPECT_EQ(PlansOf(Show(request)), "-31 0 EUR|0 500 USD|") << report;
    request.converts = true;
    EXPECT_EQ(PlansOf(Show(request)), "-62 500 USD|") << "at a rate that no account asks for";
  }
  AddAccount(3, "Pounds", 1, 0, Currency("GBP"));
  ReportRequest request;
  request.report = 4;
  EXPECT_EQ(Show(request).plansKeptIn, "GBP") << "the person's own comes first";
  EXPECT_EQ(Show(5).plansKeptIn, "");
}

TEST_F(Reports, ConvertAtAKnownRateOfOne) {
  const auto currencies = [this](int report) {
    ReportRequest request = Converted(report);
    request.range = Days("2026-01-01", "2026-03-31");
    std::set<std::string> all;
    for (const ReportRow& row : Show(request).rows) all.insert(row.currency);
    return all;
  };
  rates_.Answer(1);
  for (const int report : {12, 13, 14, 15}) {
    EXPECT_EQ(currencies(report), std::set<std::string>{"EUR"}) << report;
  }
  EXPECT_EQ(currencies(2).size(), 2U);
  rates_.Answer(0.5);
  Ledger().Rates().Keep({0, "USD", "EUR", *Date::FromIso("2026-02-20"), 1, "x"});
  ReportRequest request = Converted(12);
  request.range = Days("2026-01-01", "2026-03-31");
  const ReportTable table = Show(request);
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_EQ(Text(table.rows[1]), "202602|560|0|560|EUR|");
  double sum = 0;
  for (const ExplainedRow& each : Explain(Ledger(), request, table, 1, 1, machine_.Get())) {
    sum += each.contribution;
  }
  EXPECT_EQ(sum, 560);
  rates_.Answer(std::nullopt);
  machine_.prompts.ExpectTell("Download Currency for Report", "Could not connect to website");
  EXPECT_EQ(currencies(13).size(), 2U) << "a rate that is not known is none";
}

TEST_F(Reports, AreReadAgainWithTheRatesTheyHad) {
  rates_.Answer(2);
  const ReportRequest request = Converted(2);
  const ReportTable former = Show(request);
  AddTransaction(4, 2, "02/03/2026", "-100");
  const ReportTable again = RunReportAgain(Ledger(), request, former, machine_.Get());
  EXPECT_EQ(rates_.Asked().size(), 1U);
  EXPECT_EQ(Text(again.rows[1]), "202602|1000|-230|770|EUR|");
}

TEST_F(Reports, ForecastWhatIsEnteredScheduledAndUsual) {
  machine_.clock.SetToday(*Date::FromIso("2026-03-01"));
  AddTransaction(4, 1, "03/03/2026", "-7");
  Run("INSERT INTO tblSchedule (ScheduleID,AccountID,CategoryID,PaymentID,PayeeID,PeriodID,"
      "TfrAccountID,[Amount],DateFrom,NoTimes,AllocatedItem) VALUES (1,1,9,1,1,3,0,-5,#03/02/2026#,"
      "2,0)");
  ReportRequest request;
  request.report = 15;
  request.filter.SetKeys(FilterKind::Account, {1});
  request.range = Days("2026-01-01", "2026-03-10");
  request.whatIf = {{*Date::FromIso("2026-03-04"), 1, -11}};
  const ReportTable table = Show(request);
  ASSERT_EQ(table.rows.size(), 9U) << "from tomorrow on";
  const double average = -50.0 / 30;  // the account has been in use since January's last day
  const double expected[] = {-5, -7, -11, 0, 0, 0, 0, -5, 0};
  double balance = 50;
  for (std::size_t day = 0; day < table.rows.size(); ++day) {
    balance += expected[day] + average;
    EXPECT_NEAR(table.rows[day].cells[2].Double(), expected[day], 1e-6) << day;
    EXPECT_NEAR(table.rows[day].cells[4].Double(), balance, 1e-4) << day;
    double sum = 0;
    for (const ExplainedRow& each : Explain(Ledger(), request, table, day, 4, machine_.Get())) {
      sum += each.contribution;
    }
    EXPECT_NEAR(sum, balance, 1e-4) << day;
  }
  request.range = Days("2026-01-01", "2026-02-28");
  EXPECT_EQ(Show(request).rows.size(), 92U) << "of days that are past nothing is to come";
  EXPECT_EQ(Show(request).periods.front(), Days("2026-03-02", "2026-06-01"));
}

TEST_F(Reports, ForecastTheLastPaymentsOfAScheduleWithoutEnd) {
  machine_.clock.SetToday(*Date::FromIso("2026-03-01"));
  Run("DELETE FROM tblTransactions");
  Run("INSERT INTO tblSchedule (ScheduleID,AccountID,CategoryID,PaymentID,PayeeID,PeriodID,"
      "TfrAccountID,[Amount],DateFrom,NoTimes,AllocatedItem) VALUES (1,1,9,1,1,6,0,-5,#03/15/2026#,"
      "0,0)");
  ReportRequest request;
  request.report = 15;
  request.filter.SetKeys(FilterKind::Account, {1});
  request.range = Days("2026-03-01", "2027-09-15");
  EXPECT_EQ(Show(request).rows.back().cells[4].Double(), 100 - 19 * 5);
}

TEST_F(Reports, ForecastNoTransferThatNoRateIsKnownFor) {
  machine_.clock.SetToday(*Date::FromIso("2026-03-01"));
  Run("DELETE FROM tblTransactions");
  Run("INSERT INTO tblSchedule (ScheduleID,AccountID,CategoryID,PaymentID,PayeeID,PeriodID,"
      "TfrAccountID,[Amount],DateFrom,NoTimes,AllocatedItem) VALUES (1,1,9,1,1,6,2,-40,"
      "#03/15/2026#,0,0)");
  ReportRequest request;
  request.report = 15;
  request.range = Days("2026-03-20", "2026-03-21");
  ReportTable table = Show(request);
  ASSERT_EQ(table.rows.size(), 4U) << "the days of the range";
  EXPECT_EQ(Text(table.rows[1]), "Bank|2026-03-21|0|0|100|EUR|");
  EXPECT_EQ(Text(table.rows[3]), "Dollars|2026-03-21|0|0|10|USD|");
  EXPECT_EQ(table.notice,
            "Scheduled transfers that wait for an exchange rate are not counted: Bank to Dollars "
            "(EUR to USD).");
  request.range = Days("2026-03-02", "2026-03-14");
  EXPECT_EQ(Show(request).notice, "") << "nothing is due by then";
  request.range = Days("2026-03-20", "2026-03-21");
  Ledger().Rates().Keep({0, "EUR", "USD", *Date::FromIso("2026-02-20"), 2, "x"});
  table = Show(request);
  EXPECT_EQ(Text(table.rows[1]), "Bank|2026-03-21|0|0|60|EUR|");
  EXPECT_EQ(Text(table.rows[3]), "Dollars|2026-03-21|0|0|90|USD|");
  EXPECT_EQ(table.notice, "");
  request.filter.SetKeys(FilterKind::Category, {9});
  EXPECT_EQ(Show(request).notice, "Of the filters only accounts count in a forecast.");
}

// Each account counts what it holds in its own currency, whatever the investment is quoted in.
TEST_F(Reports, OfGainsAreInTheCurrencyOfTheAccount) {
  Run("INSERT INTO tblPayees (PayeeID,Payee,[Symbol],Investment,CurrencyID) VALUES "
      "(9,'Fund','F',1," +
      std::to_string(Currency("USD")) + ")");
  Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (9,#02/01/2026#,6)");
  AddTransaction(4, 1, "02/03/2026", "-10", "PayeeID = 9, [Action] = 1, Shares = 2");
  ReportTable table = Show(10);
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(Text(table.rows[0]), "Fund|F|EUR||6|2|12|2|");
  rates_.Answer(0.5);
  EXPECT_EQ(Text(Show(Converted(10)).rows[0]), "Fund|F|EUR||6|2|12|2|") << "it is paid in euros";
  AddTransaction(5, 2, "02/04/2026", "-5", "PayeeID = 9, [Action] = 1, Shares = 1");
  rates_.Answer(0.5);
  table = Show(Converted(10));
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_EQ(Text(table.rows[0]), "Fund|F|EUR||3|1|3|0.5|") << "its own currency first";
  EXPECT_EQ(Text(table.rows[1]), "Fund|F|EUR||6|2|12|2|");
  EXPECT_EQ(Text(table.rows[2]), "Total (EUR)||EUR||||15|2.5|");
  EXPECT_EQ(Show(10).rows.size(), 4U);
  // A rate is asked for the account's currency, too.
  Run("UPDATE tblPayees SET CurrencyID = " + std::to_string(Currency("EUR")) +
      " WHERE PayeeID = 9");
  rates_.Answer(0.5);
  EXPECT_EQ(Text(Show(Converted(10)).rows[1]), "Fund|F|EUR||3|1|3|0.5|");
}

TEST_F(Reports, OfTwoPeriodsTakeTheOtherOneAsItIsSaid) {
  ReportRequest request;
  request.report = 13;
  request.filter.SetKeys(FilterKind::Account, {1});
  request.range = Days("2026-02-01", "2026-02-28");
  request.otherRange = Days("2026-01-31", "2026-02-01");
  const ReportTable table = Show(request);
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(table.rows[0].cells[2].Double(), -30);
  EXPECT_EQ(table.rows[0].cells[3].Double(), -50) << "also where both have a day in common";
  EXPECT_EQ(table.periods.back(), *request.otherRange);
}

}  // namespace
}  // namespace corvanta
