// What the reports ask of the data file, statement by statement.
#include "ledger/LedgerTest.h"
#include "reports/query/ReportRunner.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "support/ScriptedRates.h"
#include "support/StatementLog.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta {
namespace {

// It stands before the data file is opened.
struct Logged {
  StatementLog log_;
};

// A run of blanks is one.
std::string Squeezed(const std::string& text) {
  std::string squeezed;
  for (const char sign : text) {
    if (sign != ' ' || (!squeezed.empty() && squeezed.back() != ' ')) squeezed += sign;
  }
  return squeezed.substr(0, squeezed.find_last_not_of(' ') + 1);
}

std::string Replaced(std::string text, const std::string& mark, const std::string& with) {
  for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark)) {
    text.replace(at, mark.size(), with);
  }
  return text;
}

constexpr std::string_view kFold = "corvanta_fold(";

std::string WithoutNumber(std::string text) {
  for (const std::string_view call : {kFold, std::string_view("corvanta_groups(")}) {
    const std::size_t at = text.find(call);
    if (at == std::string::npos) continue;
    const std::size_t number = at + call.size();
    text.erase(number, text.find_first_not_of("0123456789", number) - number);
  }
  return text;
}

constexpr const char* kFiveJoined =
    "FROM (tblCurrency AS CU INNER JOIN ((tblPayees AS PP INNER JOIN (tblPayments AS P INNER JOIN "
    "(tblCategory AS C INNER JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) ON "
    "P.PaymentID = T.PaymentID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A ON "
    "T.AccountID = A.AccountID) ON CU.CurrencyID = A.CurrencyId) ";
constexpr const char* kMonthJoined =
    "From ((((tblTransactions AS T INNER JOIN tblCategory AS C ON T.CategoryID = C.CategoryID) "
    "INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) INNER JOIN tblCurrency AS CC ON "
    "A.CurrencyId = CC.CurrencyID) INNER JOIN tblPayees AS PP ON T.PayeeId = PP.PayeeID) ";
constexpr const char* kSpendingColumns =
    "SELECT Count(T.TransactionId) as NRecords, Sum(iif(Amount < 0,Amount,0)) as [Expense], "
    "Sum(iif(Amount > 0,Amount,0)) as [Income],";
constexpr const char* kLines =
    "AND T.TransactionId NOT IN (select distinct AllocatedItem from tblTransactions WHERE "
    "AllocatedItem <> 0)";

std::string MonthColumns() {
  std::string columns = "Select ";
  const char* names[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                         "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
  for (int month = 1; month <= 12; ++month) {
    columns += "iif(Month(DATE)=" + std::to_string(month) + ",SUM(Amount),0) as [" +
               names[month - 1] + "], ";
  }
  return columns;
}

// {F} stands for the conditions, {B} for those up to the day before the range, {X} for the rates.
class ReportStatements : protected Logged, public LedgerTest {
 protected:
  ReportStatements() {
    AddAccount(1, "Bank", 1, 100, 17);
    AddTransaction(1, 1, "01/31/2026", "-20");
    request_.filter.SetKeys(FilterKind::Account, {1});
    request_.status = {true, true, false};
    request_.range = Period{*Date::FromIso("2026-01-01"), *Date::FromIso("2026-01-31")};
    code_ = Store().QueryValue("Select Currency from tblCurrency WHERE CurrencyID = 17").Text();
  }
  // As the library gets it, row by row or to be visited.
  std::string Translated(std::string statement, bool isVisited) {
    const std::string head = " WHERE BankRec = 0 AND CloseAccount <> 1 AND ";
    statement = Replaced(statement, "{F}",
                         head +
                             "[Date] Between #01/01/2026# AND #01/31/2026 23:59:59# AND "
                             "(T.AccountID IN (1)) ");
    statement = Replaced(statement, "{B}",
                         head + "(T.AccountID IN (1)) AND T.[DATE] <= #12/31/2025 23:59:59# ");
    statement = Replaced(statement, "{X}", "IIF(Currency=" + SqlText(code_) + ",1,1 )");
    log_.Clear();
    if (isVisited) {
      Recordset::Visit(Store(), statement, [](const VisitedRow&) {});
    } else {
      const Recordset rows = Store().OpenRecordset(statement);
    }
    const std::vector<std::string> sent = Sent();
    return sent.empty() ? std::string() : sent.back();
  }
  // What was sent, without the numbers that tell folds apart; the two parts of a folded statement
  // are one.
  [[nodiscard]] std::vector<std::string> Sent() const {
    std::vector<std::string> sent;
    bool isFolding = false;
    for (const std::string& each : log_.With({"SELECT"})) {
      const std::string text = WithoutNumber(Squeezed(each));
      if (isFolding) {
        sent.back() += "; " + text;
      } else {
        sent.push_back(text);
      }
      isFolding = text.find(kFold) != std::string::npos;
    }
    return sent;
  }
  // Whether the report sends each of the statements.
  void Expect(int report, const std::vector<std::string>& statements, bool isVisited = false) {
    request_.report = report;
    for (const std::string& statement : statements) {
      const std::string wanted = Translated(statement, isVisited);
      log_.Clear();
      static_cast<void>(RunReport(Ledger(), request_, rates_, machine_.Get()));
      const std::vector<std::string> sent = Sent();
      const bool isSent = std::ranges::find(sent, wanted) != sent.end();
      EXPECT_TRUE(isSent) << report << ": " << wanted << "\nis none of\n"
                          << [&] {
                               std::string text;
                               for (const std::string& each : sent) text += each + "\n";
                               return text;
                             }();
    }
  }

  ReportRequest request_;
  ScriptedRates rates_;
  std::string code_;
};

TEST_F(ReportStatements, OfAccounts) {
  const std::string balance =
      "SELECT SUM(Amount) as RunBal, Currency, {X} AS Exchange FROM ((((tblTransactions AS T INNER "
      "JOIN tblCategory AS C ON T.CategoryID = C.CategoryID) INNER JOIN tblAccounts AS A ON "
      "T.AccountID = A.AccountID) INNER JOIN tblPayees AS PP ON T.PayeeId = PP.PayeeID) INNER JOIN "
      "tblCurrency AS CU ON A.CurrencyId = CU.CurrencyID) ";
  Expect(1, {"SELECT Currency, CU.CurrencyID, Sum(OpeningBalance) as OpeningBalance From "
             "tblAccounts A INNER JOIN tblCurrency CU ON A.CurrencyId = CU.CurrencyID WHERE "
             "CloseAccount <> 1 AND AccountId in (1) GROUP BY CU.CurrencyID, Currency",
             "SELECT A.AccountID, A.Account, A.OpeningBalance, CU.Currency, {X} AS Exchange FROM "
             "tblCurrency AS CU INNER JOIN tblAccounts AS A ON CU.CurrencyID = A.CurrencyId WHERE "
             "CloseAccount <> 1 AND AccountId in (1) Group By A.AccountID, Account, "
             "OpeningBalance, Currency",
             balance + "{B} AND T.AllocatedItem = 0 AND A.AccountID =1 GROUP BY Currency,{X}",
             "SELECT Sum(iif(Amount < 0,Amount,0)) as [Expense], Sum(iif(Amount >= 0,Amount,0)) as "
             "[Income], CU.Currency, {X} AS Exchange FROM (tblCurrency AS CU INNER JOIN "
             "((tblPayees AS PP INNER JOIN (tblCategory AS C INNER JOIN tblTransactions AS T ON "
             "C.CategoryID = T.CategoryID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A "
             "ON T.AccountID = A.AccountID) ON CU.CurrencyID = A.CurrencyId) {F} AND "
             "T.AllocatedItem = 0 AND A.AccountID = 1 Group by CU.Currency"});
  const std::string key =
      "cstr(Year([DATE]))+(iif(len(cstr(Month([DATE])))=1,'0'+cstr(Month([Date])),"
      "cstr(Month([Date]))))";
  Expect(2, {"Select " + key +
             " as SYEAR, SUM(iif(Amount > 0,Amount,0)) as Income, SUM(iif(Amount < 0,Amount,0)) as "
             "Expense, CC.Currency, {X} AS Exchange " +
             kMonthJoined + "{F} AND T.AllocatedItem = 0 GROUP BY " + key +
             ",CURRENCY, {X}ORDER BY " + key + ",CURRENCY "});
  Expect(3, {"SELECT SUM(Amount) as RunBal, Currency, {X} AS Exchange FROM (((((tblTransactions AS "
             "T INNER JOIN tblCategory AS C ON T.CategoryID = C.CategoryID) INNER JOIN tblAccounts "
             "AS A ON T.AccountID = A.AccountID) INNER JOIN tblPayees AS PP ON T.PayeeId = "
             "PP.PayeeID) INNER JOIN tblCurrency AS CU ON A.CurrencyId = CU.CurrencyID) INNER JOIN "
             "tblPayments AS P ON T.PaymentID = P.PaymentID) {B} AND T.AllocatedItem = 0 AND "
             "A.AccountID IN (1) GROUP BY Currency,{X}"});
  Expect(
      3,
      {std::string("SELECT A.Account, T.TransactionID, iif(Amount < 0,Amount,0) as [Expense], "
                   "iif(Amount >= 0,Amount,0) as [Income], T.Date, T.Action, T.Reference, "
                   "T.Description, T.BankChk, T.BankRec, T.TransferId, C.Category, C.SubCategory, "
                   "P.Payment, PP.Payee, CU.Currency, {X} AS Exchange ") +
       kFiveJoined + "{F}" + kLines + " Order by [DATE], T.TransactionID"},
      true);
}

TEST_F(ReportStatements, OfSpending) {
  const auto spending = [](const std::string& columns, const std::string& rows,
                           const std::string& grouping) {
    return kSpendingColumns + columns + "{X} AS Exchange " + kFiveJoined + "{F}" + rows + " " +
           grouping;
  };
  Expect(5, {spending("C.CategoryID, C.Category, C.SubCategory, CU.Currency, ", kLines,
                      "GROUP BY C.CategoryID, C.Category, C.SubCategory, CU.Currency,{X} ORDER BY "
                      "C.Category, C.SubCategory")});
  Expect(7,
         {spending("PP.PayeeID, PP.Payee, CU.Currency, T.TransferID,", " AND T.AllocatedItem = 0",
                   "GROUP BY PP.PayeeID, PP.Payee, CU.Currency,{X},TransferID ORDER BY "
                   "PP.Payee")});
  Expect(9, {spending("P.PaymentID, P.Payment, CU.Currency, ", " AND T.AllocatedItem = 0",
                      "GROUP BY P.PaymentID, P.Payment, CU.Currency,{X} ORDER BY P.Payment")});
  request_.foldsSubCategories = true;
  Expect(5, {spending("max(C.CategoryID) as CategoryID, C.Category, '' as SubCategory, "
                      "CU.Currency, ",
                      kLines, "GROUP BY C.Category, CU.Currency,{X} ORDER BY C.Category")});
  request_.foldsSubCategories = false;
  Expect(6, {MonthColumns() +
             "C.CategoryID, C.Category, C.SubCategory, CC.Currency, {X} AS Exchange " +
             kMonthJoined + "{F}" + kLines +
             " GROUP BY MONTH(Date), C.CategoryID, Category, SubCategory, Currency, {X}ORDER BY "
             "Category, SubCategory, Currency "});
  Expect(8, {MonthColumns() + "PP.PayeeID, PP.Payee, T.TransferID, CC.Currency, {X} AS Exchange " +
             kMonthJoined +
             "{F} AND T.AllocatedItem = 0 GROUP BY MONTH(Date), PP.PayeeID, Payee, Currency, "
             "{X},TransferID ORDER BY Payee, Currency "});
}

TEST_F(ReportStatements, OfBudgets) {
  const std::string budgets =
      "Select CategoryID, Category, SubCategory, SUM(Type*Budget) as Budget, Period FROM "
      "tblCategory C LEFT JOIN tblPeriods Per ON C.PeriodId = Per.PeriodID ";
  const std::string order =
      "Group by CategoryID, Category, SubCategory, Period Order by Category, SubCategory";
  Expect(4, {budgets + order});
  request_.filter.SetKeys(FilterKind::Category, {9, 10});
  request_.status = {};
  request_.filter.SetKeys(FilterKind::Account, {});
  Expect(4, {budgets + "WHERE CategoryID IN (9,10) " + order});
  const std::string whole =
      "Select Max(CategoryID) as CategoryID, Category, '' as SubCategory, SUM(Type*Budget) as "
      "Budget, Max(Period) as Period FROM tblCategory C LEFT JOIN tblPeriods Per ON C.PeriodId = "
      "Per.PeriodID WHERE CategoryID IN (9,10)  Group by Category Order by Category";
  Run("UPDATE tblCategory SET Budget = 80, PeriodID = 6 WHERE CategoryID IN (9,10)");
  request_.foldsSubCategories = true;
  Expect(4, {whole});
  Run("UPDATE tblCategory SET Budget = 600, PeriodID = 11 WHERE CategoryID = 10");
  Expect(4, {budgets + "WHERE CategoryID IN (9,10) " + order});
  // A period that comes later, of what is not planned, would be taken for the others, too.
  Run("UPDATE tblCategory SET Budget = 0 WHERE CategoryID = 10");
  Expect(4, {budgets + "WHERE CategoryID IN (9,10) " + order});
  Run("UPDATE tblCategory SET PeriodID = 4 WHERE CategoryID = 10");
  Expect(4, {whole});
}

TEST_F(ReportStatements, OfInvestments) {
  Run("INSERT INTO tblPayees (PayeeID,Payee,[Symbol],Investment,CurrencyID) VALUES "
      "(9,'Fund','F',1,17)");
  const std::string investments =
      "Select P.PayeeID as InvestID, P.Payee as Investment, P.CurrencyID, CC.Currency, P.DataID, "
      "P.[Conversion], P.Symbol, P.Description,{X} As Exchange From tblPayees P INNER JOIN "
      "tblCurrency CC ON CC.CurrencyID = P.CurrencyID WHERE Investment = 1 ";
  Expect(10, {"SELECT Currency, CU.CurrencyID From tblPayees P INNER JOIN tblCurrency CU ON "
              "CU.CurrencyID = P.CurrencyID WHERE Investment = 1 GROUP BY CU.CurrencyID, Currency",
              investments + " Order By P.Payee"});
  request_.filter.SetKeys(FilterKind::Investment, {9});
  Expect(10, {investments + "AND P.PayeeID IN (9) Order By P.Payee"});
  request_.filter.SetKeys(FilterKind::Investment, {});
  const std::string joined =
      "FROM (((tblPayees AS PP INNER JOIN (tblPayments AS P INNER JOIN (tblCategory AS C INNER "
      "JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) ON P.PaymentID = T.PaymentID) ON "
      "PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) INNER "
      "JOIN tblCurrency AS CU ON A.CurrencyId = CU.CurrencyID) ";
  Expect(11, {"SELECT T.TransactionID, PP.Symbol, T.Dividend,T.Price,T.Shares,T.Commission, "
              "Amount, T.Date, T.Action, T.Description, C.Category, P.Payment, PP.Payee, "
              "A.Account, CU.Currency,{X} AS Exchange, PP.PayeeID " +
              joined +
              "{F}AND PP.Investment = 1 Order By PP.Payee, PP.PayeeID, [DATE], "
              "T.TransactionID"});
}

TEST_F(ReportStatements, OfTheDaysAndAmountsOfBudgets) {
  Expect(4, {std::string("SELECT SUM(AMOUNT) as sAmount, CU.Currency, {X} AS Exchange, "
                         "C.CategoryID ") +
             kFiveJoined + "{F}" + kLines + " GROUP BY Currency, {X}, C.CategoryID"});
  request_.range.reset();
  Expect(4, {"SELECT DateDiff('d',Min(T.Date), Max(T.Date)) As TotalDays, Min(T.Date) As FirstDay "
             "FROM tblTransactions AS T INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID "
             "WHERE A.AccountID IN (1) "});
}

// A keyword is joined by the transactions that have it, each once, and a split that has it itself
// is shown whole.
TEST_F(ReportStatements, OfKeywords) {
  request_.filter.SetKeys(FilterKind::Keyword, {5, 6});
  const std::string linked =
      "(Select TransactionID, Min(KeywordID) as KeywordID from tblKeywordLink WHERE KeywordID in "
      "(5,6) Group by TransactionID) K";
  const std::string having = "(K.KeywordID IN (5,6)) ";
  const std::string conditions =
      " WHERE BankRec = 0 AND CloseAccount <> 1 AND [Date] Between #01/01/2026# AND #01/31/2026 "
      "23:59:59# AND (T.AccountID IN (1)) AND " +
      having;
  const std::string own = "(Select TransactionID from tblKeywordLink WHERE KeywordID in (5,6))";
  Expect(
      3,
      {std::string("SELECT A.Account, T.TransactionID, iif(Amount < 0,Amount,0) as [Expense], "
                   "iif(Amount >= 0,Amount,0) as [Income], T.Date, T.Action, T.Reference, "
                   "T.Description, T.BankChk, T.BankRec, T.TransferId, C.Category, C.SubCategory, "
                   "P.Payment, PP.Payee, CU.Currency, {X} AS Exchange ") +
       kFiveJoined + "LEFT JOIN " + linked + " ON K.TransactionId = T.TransactionID " + conditions +
       "AND T.TransactionId NOT IN (select distinct AllocatedItem from tblTransactions "
       "WHERE AllocatedItem <> 0 AND AllocatedItem NOT IN " +
       own + ") AND (isNull(T.AllocatedItem) or T.AllocatedItem NOT IN " + own +
       ") Order by [DATE], T.TransactionID"},
      true);
  std::string joined = kMonthJoined;
  joined.replace(0, std::string("From ").size(), "From " + linked + " RIGHT JOIN (");
  Expect(8, {MonthColumns() + "PP.PayeeID, PP.Payee, T.TransferID, CC.Currency, {X} AS Exchange " +
             joined + ") ON T.TransactionId = K.TransactionID " + conditions +
             "AND T.AllocatedItem = 0 GROUP BY MONTH(Date), PP.PayeeID, Payee, Currency, "
             "{X},TransferID ORDER BY Payee, Currency "});
}

}  // namespace
}  // namespace corvanta
