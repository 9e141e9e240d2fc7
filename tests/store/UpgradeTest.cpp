#include "platform/SettingsTable.h"
#include "store/datafile/OpenDataFile.h"
#include "store/datafile/schema/QuoteSources.h"
#include "store/datafile/schema/SchemaCheck.h"
#include "store/datafile/upgrade/Balances.h"
#include "store/datafile/upgrade/OrphanCleanup.h"
#include "store/datafile/upgrade/Upgrade.h"
#include "store/sql/Recordset.h"
#include "store/sql/StoreError.h"
#include "support/DeafOpening.h"
#include "support/LedgerProblems.h"
#include "support/OldLayout.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <map>

namespace corvanta {
namespace {

class Upgrade : public ::testing::Test {
 protected:
  Connection& Db() { return store.Db(); }
  // The file, validated by the opening sequence and open again.
  void Validate() {
    store.Close();
    (void)DataFileOpener(store.platform.Get(), "a test").Validate();
  }
  std::string Row(const std::string& sql) {
    Recordset rows = Db().OpenRecordset(sql);
    std::string text;
    for (std::size_t i = 0; i < rows.Fields().size(); ++i) {
      text += (i == 0 ? "" : "|") + std::string(rows.Text(static_cast<int>(i)));
    }
    return text;
  }
  const ColumnDef& Column(const std::string& table, const std::string& column) {
    return *Db().Table(table)->Column(column);
  }
  TemporaryStore store;
};

TEST_F(Upgrade, ListedLinesBecomeLinesThatNameTheirParent) {
  MakeOldLayout(Db());
  const std::map<std::int64_t, double> before = AccountBalances(Db());
  Validate();
  const std::pair<int, const char*> expected[] = {{35, "3|1|1"}, {36, "3|1|1"}, {37, "5|1|0"},
                                                  {3, "0|1|1"},  {5, "0|1|0"},  {6, "0|1|0"}};
  for (const auto& [key, row] : expected) {
    EXPECT_EQ(Row("SELECT AllocatedItem, BankChk, BankRec FROM tblTransactions WHERE "
                  "TransactionID = " +
                  std::to_string(key)),
              row);
  }
  EXPECT_EQ(Row("SELECT AllocatedItem, BankChk FROM tblSchedule WHERE ScheduleID = 4"), "1|1");
  EXPECT_EQ(Row("SELECT AllocatedItem, BankChk FROM tblSchedule WHERE ScheduleID = 1"), "0|1");
  for (const char* const table : {"tblTransactions", "tblSchedule"}) {
    EXPECT_EQ(Column(table, "AllocatedItem").kind, ColumnKind::Integer);
    EXPECT_EQ(Column(table, "AllocatedItem").defaultValue, "0");
    EXPECT_NE(Db().Table(table)->Index("AllocatedItem"), nullptr);
    EXPECT_EQ(Db().Table(table)->Column("TEMPINT"), nullptr);
  }
  EXPECT_TRUE(SameBalances(before, AccountBalances(Db())));
  EXPECT_EQ(LedgerProblems(Db()), std::vector<std::string>{});
}

TEST_F(Upgrade, OddListsAreReadAsFarAsTheyMakeSense) {
  MakeOldLayout(Db());
  Db().Execute(
      "UPDATE tblTransactions SET AllocatedItem = ' 35 , x, 36,,9999,3,' "
      "WHERE TransactionID = 3");
  Db().Execute(
      "UPDATE tblTransactions SET AllocatedItem = '); DELETE FROM tblAccounts' "
      "WHERE TransactionID = 1");
  Validate();
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblTransactions WHERE AllocatedItem = 3"), 2);
  EXPECT_EQ(store.Number("SELECT AllocatedItem FROM tblTransactions WHERE TransactionID = 3"), 0);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblAccounts"), 1);
}

TEST_F(Upgrade, MoneyBecomesDoubleWithDefaultZero) {
  MakeOldLayout(Db());
  Validate();
  const std::pair<const char*, const char*> columns[] = {
      {"tblAccounts", "OpeningBalance"}, {"tblTransactions", "Amount"},
      {"tblTransactions", "Dividend"},   {"tblTransactions", "Price"},
      {"tblTransactions", "Commission"}, {"tblSchedule", "Amount"},
      {"tblHistory", "Price"},           {"tblPayees", "Conversion"},
      {"tblCategory", "Budget"}};
  for (const auto& [table, column] : columns) {
    EXPECT_EQ(Column(table, column).kind, ColumnKind::Double) << table << column;
    EXPECT_EQ(Column(table, column).defaultValue, "0") << table << column;
  }
  EXPECT_EQ(Row("SELECT [Amount] FROM tblTransactions WHERE TransactionID = 3"), "-45.46");
}

TEST_F(Upgrade, QuoteSourcesAreRenewedAndCompleted) {
  MakeOldLayout(Db());
  Db().Execute("UPDATE tblStockData SET LookUpURL = 'kept' WHERE DataID = 6");
  Validate();
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblStockData"), 9);
  EXPECT_EQ(Row("SELECT [Name], URL FROM tblStockData WHERE DataID = 2"),
            "Yahoo Stock|http://old.example/");
  EXPECT_EQ(Row("SELECT [Name], URL FROM tblStockData WHERE DataID = 3"),
            "Yahoo UK Stock|" + std::string(DefaultQuoteSource(3).url));
  EXPECT_EQ(Row("SELECT [Name], Occur, [Start] FROM tblStockData WHERE DataID = 4"),
            "Google Finance Stock|1|class=\"pr\"");
  EXPECT_EQ(Row("SELECT [Name], Occur, [Start] FROM tblStockData WHERE DataID = 5"),
            "Old|1|class=\"lp\"");
  EXPECT_EQ(Row("SELECT LookUpURL, [Start] FROM tblStockData WHERE DataID = 6"),
            "kept|class=\" price\"");
}

TEST_F(Upgrade, RepeatedItChangesNothing) {
  Validate();
  const std::string first = Row("SELECT SUM([Amount]), COUNT(*) FROM tblTransactions");
  Validate();
  EXPECT_EQ(Row("SELECT SUM([Amount]), COUNT(*) FROM tblTransactions"), first);
  EXPECT_TRUE(Db().Check().empty());
}

TEST_F(Upgrade, MissingTableIsAddedAndTheUpgradeMade) {
  MakeOldLayout(Db());
  Db().Execute("DROP TABLE tblHistory");
  Db().Execute("DROP TABLE tblStockData");
  Validate();
  EXPECT_EQ(Column("tblTransactions", "AllocatedItem").kind, ColumnKind::Integer);
  EXPECT_EQ(Column("tblHistory", "Price").defaultValue, "0");
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblStockData"), 9);
}

TEST_F(Upgrade, FailedOneLeavesTheFileAsItWasAndSaysSo) {
  MakeOldLayout(Db());
  // A column that an upgrade of another program has left behind.
  Db().Execute("ALTER TABLE tblTransactions ADD TEMPINT INT");
  store.Close();
  const std::string before = ReadFile(store.Path());
  DataFileOpener opener(store.platform.Get(), "a test");
  EXPECT_THROW((void)opener.Validate(), StoreError);
  EXPECT_EQ(ReadFile(store.Path()), before);
  EXPECT_FALSE(FileExists(store.platform.folder.Path("data/Corvanta.000")));

  store.platform.registry.Write(Hive::CurrentUser, kSettingsKey, "Reindex", "1");
  store.platform.prompts.ExpectTell("Open Data File", ScriptedPrompts::kAnyText);
  DeafOpening questions;
  ASSERT_TRUE(opener.Open(false, questions).has_value());
  EXPECT_EQ(Column("tblTransactions", "AllocatedItem").TypeCode(), kTypeText);
  EXPECT_EQ(Row("SELECT AllocatedItem FROM tblTransactions WHERE TransactionID = 3"), "35,36");
  EXPECT_EQ(Row("SELECT [Name] FROM tblStockData WHERE DataID = 1"), "Old");
}

TEST_F(Upgrade, CleanUpRemovesWhatBelongsToNothing) {
  Db().Execute("DELETE FROM tblTransactions WHERE TransactionID = 3");
  Db().Execute("UPDATE tblTransactions SET TransferID = 1 WHERE TransactionID = 5");
  Db().Execute("UPDATE tblTransactions SET AccountID = 0 WHERE TransactionID = 8");
  Db().Execute("UPDATE tblSchedule SET TfrAccountID = 1 WHERE ScheduleID = 1");
  Db().Execute("UPDATE tblSchedule SET AllocatedItem = 1 WHERE ScheduleID = 2");
  CleanUpOrphans(Db());
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblTransactions WHERE AllocatedItem <> 0"), 0);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblTransactions"), 11);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblSchedule"), 1);
}

TEST_F(Upgrade, CleanUpKeepsWhatIsWhole) {
  Db().Execute("UPDATE tblTransactions SET TransferID = Null");
  Db().Execute("UPDATE tblSchedule SET AllocatedItem = 1 WHERE ScheduleID = 2");
  CleanUpOrphans(Db());
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblTransactions"), 16);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblSchedule"), 2);
}

class Check : public Upgrade {};

TEST_F(Check, WholeFileIsNotWrittenTo) {
  EXPECT_FALSE(CheckSchema(Db()));
  store.Close();
  const std::string before = ReadFile(store.Path());
  EXPECT_NE(DataFileOpener(store.platform.Get(), "a test").OpenExisting(true).connection, nullptr);
  EXPECT_TRUE(ReadFile(store.Path()) == before);
}

TEST_F(Check, MissingTablesComeBackWhole) {
  Db().Execute("DROP TABLE tblAttachments");
  Db().Execute("DROP TABLE tblVerification");
  Db().Execute("DROP TABLE tblSchedule");
  EXPECT_TRUE(CheckSchema(Db()));
  EXPECT_NE(Db().Table("tblAttachments")->Column("TransactionID"), nullptr);
  EXPECT_NE(Db().Table("tblSchedule")->Index("AllocatedItem"), nullptr);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblVerification"), 1);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblTransactions"), 16);
  EXPECT_FALSE(CheckSchema(Db()));
}

TEST_F(Check, MissingColumnsAreAddedBesideTheRows) {
  Db().Execute("ALTER TABLE tblAccounts DROP COLUMN CloseAccount");
  Db().Execute("ALTER TABLE tblPayees DROP COLUMN InvestCurrencyID");
  Db().Execute("ALTER TABLE tblStockData DROP COLUMN [Occur]");
  EXPECT_TRUE(CheckSchema(Db()));
  EXPECT_EQ(Row("SELECT Account, CloseAccount FROM tblAccounts"), "Sample Bank Account|0");
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblPayees"), 13);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblStockData WHERE [Occur] = 0"), 9);
  EXPECT_FALSE(CheckSchema(Db()));
}

TEST_F(Check, FileOfAnEarlierVersionKeepsItsScheduleFlag) {
  MakeOldLayout(Db());
  Db().Execute("ALTER TABLE tblSchedule DROP COLUMN AddToAccount");
  EXPECT_TRUE(CheckSchema(Db()));
  EXPECT_EQ(Row("SELECT BankChk FROM tblSchedule WHERE ScheduleID = 1"), "1");
  EXPECT_EQ(Row("SELECT BankChk FROM tblSchedule WHERE ScheduleID = 2"), "0");
}

}  // namespace
}  // namespace corvanta
