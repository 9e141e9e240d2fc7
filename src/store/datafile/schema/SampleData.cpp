#include "store/datafile/schema/SampleData.h"

#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

#include <string_view>

namespace corvanta::inline datafile {
namespace {

using Statements = std::vector<std::string>;

// Of the account, which is known by it.
constexpr std::string_view kDescription = "This is a sample account, and can be deleted";

constexpr std::string_view kPayments[] = {
    "(2,'Cash','Cash Transaction')",      "(3,'Direct Debit','Direct Debit Transaction')",
    "(4,'Visa','Visa Card Transaction')", "(5,'Cheque','Cheque Transaction')",
    "(6,'Online','Online Transaction')",
};

constexpr std::string_view kPayees[] = {
    "Gas R US",     "Electric Inc",       "Acme Software", "The Good Grocer",     "Go Green Fuel",
    "Better Buys",  "High Street Styles", "Bank of UK",    "Restaurant Cest Bon", "American Eatery",
    "Acme Company",
};

struct SampleTransaction {
  int id;
  int daysAgo;  // counted from today, or from the month before when `lastMonth`
  bool lastMonth;
  int category;
  int payment;
  int payee;
  int allocatedItem;
  std::string_view amount;
  std::string_view description;
  int bankChk;
  int schedule;                                           // the schedule that posted it, 0 for none
  std::string_view investment = "0,Null,Null,Null,Null";  // action, dividend, shares, price, costs
};

constexpr SampleTransaction kTransactions[] = {
    {1, 10, false, 9, 3, 1, 0, "-200.00", "", 1, 0},
    {2, 9, false, 17, 6, 3, 0, "-30.00", "", 1, 0},
    {3, 8, false, 105, 2, 4, 0, "-45.46", "", 1, 0},
    {4, 7, false, 8, 5, 5, 0, "-40.95", "", 1, 0},
    {5, 6, false, 90, 2, 6, 0, "-11.50", "", 1, 0},
    {6, 5, false, 98, 2, 7, 0, "-99.60", "", 1, 0},
    {8, 4, false, 74, 4, 9, 0, "-26.90", "", 1, 0},
    {9, 3, false, 8, 4, 5, 0, "-15.10", "", 1, 0},
    {11, 0, true, 124, 3, 11, 0, "900.00", "", 1, 1},
    {12, 0, false, 124, 3, 11, 0, "900.00", "", 0, 1},
    {23, 0, true, 14, 3, 8, 0, "-600.00", "", 0, 2},
    {24, 0, false, 14, 3, 8, 0, "-600.00", "", 0, 2},
    {35, 3, false, 105, 2, 4, 3, "-30.46", "Sample Entry", 1, 0},
    {36, 3, false, 16, 2, 4, 3, "-15.00", "Best News", 1, 0},
    {37, 3, false, 16, 2, 6, 5, "-11.50", "Best News", 1, 0},
    {38, 0, false, 2, 1, 13, 0, "-316.00", "", 0, 0, "1,0.00,100.00,3.16,0.00"},
};

std::string Day(Date today, int daysAgo, bool lastMonth) {
  const Date from = lastMonth ? DateAdd("m", -1, today) : today;
  return SqlDate(DateAdd("d", -daysAgo, from));
}

void AddPayments(Statements& statements) {
  for (const std::string_view row : kPayments) {
    statements.push_back("INSERT INTO tblPayments (PaymentID,Payment,Description) VALUES " +
                         std::string(row) + ";");
  }
}

void AddAccount(Statements& statements, const std::string& currency) {
  statements.push_back(
      "INSERT INTO tblAccounts (AccountID,[Account],AccountNo,AccountTypeID,BankID,OpeningBalance,"
      "CurrencyId,Description,CloseAccount) VALUES (1,'Sample Bank "
      "Account','12345678',1,1,500.00," +
      currency + "," + SqlText(kDescription) + ",0);");
}

void AddPayees(Statements& statements, const std::string& currency) {
  const std::string insert =
      "INSERT INTO tblPayees "
      "(PayeeID,Payee,Description,[Symbol],CurrencyID,InvestCurrencyID,DataID,"
      "[Conversion],Investment) VALUES (";
  int key = 1;
  for (const std::string_view payee : kPayees) {
    statements.push_back(insert + std::to_string(key) + "," + SqlText(payee) +
                         ",'Sample Payee',Null,0,0,0,1,0);");
    ++key;
  }
  const std::string note = "'Sample Investment can be deleted',";
  statements.push_back(insert + "12,'Microsoft'," + note + "'MSF'," + currency + ",140,2,1,1);");
  statements.push_back(insert + "13,'British Telecom'," + note + "'BT-A.L'," + currency + "," +
                       currency + ",3,0.01,1);");
}

std::string TransactionSql(const SampleTransaction& row, Date today) {
  const std::string day = Day(today, row.daysAgo, row.lastMonth);
  std::string sql =
      "INSERT INTO tblTransactions "
      "(TransactionID,AccountID,TransferID,CategoryID,PaymentID,PayeeID,"
      "AllocatedItem,[Amount],Description,[Date],BankChk,BankRec,BankSch,[ScheduleDate],[Action],"
      "Dividend,Shares,Price,Commission) VALUES (";
  sql += std::to_string(row.id) + ",1,0";
  for (const int key : {row.category, row.payment, row.payee, row.allocatedItem}) {
    sql += "," + std::to_string(key);
  }
  sql += "," + std::string(row.amount) + "," + SqlText(row.description) + "," + day;
  sql += "," + std::to_string(row.bankChk) + ",0," + std::to_string(row.schedule);
  sql += "," + (row.schedule == 0 ? "Null" : day);
  return sql + "," + std::string(row.investment) + ");";
}

void AddSchedules(Statements& statements, Date today) {
  const std::string insert =
      "INSERT INTO tblSchedule (ScheduleID,AccountID,CategoryID,PaymentID,PayeeID,PeriodID,"
      "TfrAccountID,[Amount],Description,DateFrom,NoTimes,AddToAccount) VALUES ";
  const std::string end = ",''," + Day(today, 0, true) + ",0,1);";
  statements.push_back(insert + "(1,1,124,3,11,6,Null,900.00" + end);
  statements.push_back(insert + "(2,1,14,3,8,6,Null,-600.00" + end);
}

}  // namespace

std::vector<std::string> SampleDataStatements(Date today, std::int64_t currencyId) {
  const std::string currency = SqlNumber(currencyId);
  Statements statements;
  AddPayments(statements);
  AddAccount(statements, currency);
  AddPayees(statements, currency);
  statements.push_back("INSERT INTO tblHistory (HistoryID,PayeeID,[Date],Price) VALUES (1, 13," +
                       Day(today, 3, false) + ",3.18);");
  for (const SampleTransaction& row : kTransactions) {
    statements.push_back(TransactionSql(row, today));
  }
  AddSchedules(statements, today);
  return statements;
}

bool HoldsSampleAlone(Connection& store) {
  const std::string count = "Select Count(*) from tblAccounts";
  return store.QueryValue(count + " Where [Description] = " + SqlText(kDescription)).Int() == 1 &&
         store.QueryValue(count).Int() == 1;
}

}  // namespace corvanta::inline datafile
