// Every statement that the program sends runs as it stands.
#include "platform/Clock.h"
#include "store/datafile/CreateDataFile.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/StoreError.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace corvanta {
namespace {

std::vector<std::string> ReadStatements() {
  std::ifstream file(CORVANTA_STATEMENTS);
  std::vector<std::string> statements;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && !line.starts_with("--")) statements.push_back(line);
  }
  return statements;
}

class Corpus : public testing::Test {
 protected:
  void SetUp() override {
    const DataFileLocation location{platform_.folder.Path(), "Corvanta.dat"};
    CreateDataFile(location, "secret", false, platform_.Get());
    connection_ = Connection::Open({location.Path(), "secret", ""}, platform_.Get().clock);
  }

  // Runs the statement to its last row; the message where it cannot.
  std::string Run(const std::string& sql) {
    const Transaction undone = connection_->Begin();
    try {
      if (!IsReadOnlyStatement(sql)) {
        connection_->Execute(sql);
        return {};
      }
      Recordset rows = connection_->OpenRecordset(sql);
      for (; !rows.Eof(); rows.MoveNext()) (void)rows.Field(0);
      return {};
    } catch (const StoreError& error) {
      return error.what();
    }
  }

  TestPlatform platform_;
  std::unique_ptr<Connection> connection_;
};

TEST_F(Corpus, EveryStatementRuns) {
  const std::vector<std::string> statements = ReadStatements();
  ASSERT_GT(statements.size(), 100U);
  for (const std::string& sql : statements) EXPECT_EQ(Run(sql), "") << sql;
}

// Whatever a slip of the keyboard makes of a statement, it runs or is refused as its own fault.
TEST_F(Corpus, SpoiltStatementsAreRefusedAndNothingElse) {
  const std::vector<std::string> statements = ReadStatements();
  const std::vector<std::string> pieces = {
      "'",         "\"",    "[", "]", "(",      ")",     "#",
      ",",         ".",     ";", "-", "NULL",   " AND ", "SELECT ",
      "\xff",      "9e999", "*", "=", " JOIN ", "iif(",  "#13/40/2026#",
      " NOT IN ()"};
  std::mt19937 random(20261121);
  const Transaction undone = connection_->Begin();
  for (int round = 0; round < 3000; ++round) {
    std::string sql = statements[random() % statements.size()];
    const std::size_t at = random() % sql.size();
    if (random() % 2 == 0) {
      sql.erase(at, random() % 12);
    } else {
      sql.insert(at, pieces[random() % pieces.size()]);
    }
    const Transaction alone = connection_->Begin();
    try {
      if (IsReadOnlyStatement(sql)) {
        (void)connection_->QueryValue(sql);
      } else {
        connection_->Execute(sql);
      }
    } catch (const StoreError& error) {
      EXPECT_TRUE(error.IsStatementFault()) << sql << ": " << error.what();
    }
  }
}

// One IIF within another for each of 164 currencies, selected, grouped and sorted by.
TEST_F(Corpus, AConversionOverAllCurrenciesRuns) {
  std::string conversion;
  int links = 0;
  Recordset codes = connection_->OpenRecordset("SELECT Currency FROM tblCurrency");
  for (; !codes.Eof(); codes.MoveNext(), ++links) {
    conversion +=
        "IIF(Currency='" + codes.Text("Currency") + "'," + std::to_string(links + 2) + ".5,";
  }
  ASSERT_EQ(links, 164);
  conversion += "1 " + std::string(static_cast<std::size_t>(links), ')');
  Recordset rows = connection_->OpenRecordset("SELECT Currency, " + conversion +
                                              " AS Exchange FROM tblCurrency GROUP BY Currency, " +
                                              conversion + " ORDER BY " + conversion);
  int row = 0;
  for (; !rows.Eof(); rows.MoveNext(), ++row) EXPECT_EQ(rows.Double("Exchange"), row + 2.5);
  EXPECT_EQ(row, 164);
}

// What the reports' statements give on the sample data.
TEST_F(Corpus, ReportStatementsGiveTheSampleFigures) {
  Recordset months = connection_->OpenRecordset(
      "Select cstr(Year([DATE]))+(iif(len(cstr(Month([DATE])))=1,'0'+cstr(Month([Date])),"
      "cstr(Month([Date])))) as SYEAR, SUM(iif(Amount > 0,Amount,0)) as Income, CC.Currency "
      "From tblKeywordLink K RIGHT JOIN ((((tblTransactions AS T INNER JOIN tblCategory AS C ON "
      "T.CategoryID = C.CategoryID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) "
      "INNER JOIN tblCurrency AS CC ON A.CurrencyId = CC.CurrencyID) INNER JOIN tblPayees AS PP ON "
      "T.PayeeId = PP.PayeeID) ON T.TransactionId = K.TransactionID  WHERE 1 > 0  AND "
      "T.AllocatedItem = 0 GROUP BY cstr(Year([DATE]))+(iif(len(cstr(Month([DATE])))=1,"
      "'0'+cstr(Month([Date])),cstr(Month([Date])))),CURRENCY ORDER BY 1");
  ASSERT_FALSE(months.Eof());
  EXPECT_EQ(months.Text("SYEAR"), "202610");
  EXPECT_DOUBLE_EQ(months.Double("Income"), 900);
  EXPECT_EQ(months.Text("Currency"), "GBP");
  months.MoveNext();
  EXPECT_EQ(months.Text("SYEAR"), "202611");

  Recordset allocated = connection_->OpenRecordset(
      "Select t.*, IIf(t1.AllocatedItem <> 0,'TRUE','') AS Allocated FROM (select distinct "
      "AllocatedItem from tblTransactions WHERE AllocatedItem <> 0) AS t1 RIGHT JOIN "
      "((tblTransactions AS t INNER JOIN tblCategory AS c ON t.CategoryID = c.CategoryID) INNER "
      "JOIN tblPayees AS p ON t.PayeeID = p.PayeeID) ON t1.AllocatedItem = t.TransactionID Where "
      "t.AllocatedItem = 0 AND 1 > 0 AND AccountID = 1 Order by t.Date ASC, t.TransactionId ");
  int rows = 0;
  std::string parents;
  for (; !allocated.Eof(); allocated.MoveNext(), ++rows) {
    if (allocated.Text("Allocated") == "TRUE") parents += allocated.Text("TransactionID") + " ";
  }
  EXPECT_EQ(rows, 13);
  EXPECT_EQ(parents, "3 5 ");
}

// A guarded delete keeps what is still in use.
TEST_F(Corpus, GuardedDeletesKeepWhatIsUsed) {
  const auto deleted = [&](const std::string& sql) { return connection_->Execute(sql); };
  EXPECT_EQ(deleted("Delete From tblCategory Where CategoryID = 1 AND CategoryID NOT IN (Select "
                    "CategoryID from tblTransactions) AND Category NOT IN ('credit','DEBIT') "),
            0);
  EXPECT_EQ(deleted("Delete From tblPayees Where PayeeID = 13 AND PayeeID NOT IN (Select PayeeID "
                    "from tblTransactions) AND PayeeID NOT IN (Select PayeeID from tblHistory)"),
            0);
  EXPECT_EQ(deleted("Delete From tblPayees Where PayeeID = 10 AND PayeeID NOT IN (Select PayeeID "
                    "from tblTransactions) AND PayeeID NOT IN (Select PayeeID from tblHistory)"),
            1);
}

}  // namespace
}  // namespace corvanta
