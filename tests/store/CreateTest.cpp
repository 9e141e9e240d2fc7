#include "platform/SettingsTable.h"
#include "store/datafile/CreateDataFile.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/OpenDataFile.h"
#include "store/datafile/schema/DefaultData.h"
#include "store/datafile/schema/Schema.h"
#include "store/sql/Recordset.h"
#include "store/sql/StoreError.h"
#include "support/LedgerProblems.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

std::int64_t Count(TemporaryStore& store, const std::string& table) {
  return store.Number("SELECT COUNT(*) FROM " + table);
}

std::string Text(TemporaryStore& store, const std::string& sql) {
  return store.Db().QueryValue(sql).Text();
}

TEST(Create, EmptyFileHasTheReferenceRowsAndNothingElse) {
  TemporaryStore store(StoreContent::Default);
  const std::pair<const char*, int> expected[] = {
      {"tblPeriods", 11}, {"tblCurrency", 164}, {"tblStockData", 9},   {"tblAccountType", 5},
      {"tblBank", 22},    {"tblCategory", 126}, {"tblPayments", 1},    {"tblVerification", 1},
      {"tblAccounts", 0}, {"tblPayees", 0},     {"tblHistory", 0},     {"tblTransactions", 0},
      {"tblSchedule", 0}, {"tblKeywords", 0},   {"tblKeywordLink", 0}, {"tblAttachments", 0},
  };
  for (const auto& [table, rows] : expected) EXPECT_EQ(Count(store, table), rows) << table;
  EXPECT_TRUE(store.Db().Check().empty());
}

TEST(Create, SampleFileHasConsistentSampleData) {
  TemporaryStore store;
  EXPECT_EQ(Count(store, "tblPayments"), 6);
  EXPECT_EQ(Count(store, "tblPayees"), 13);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblPayees WHERE Investment = 1"), 2);
  EXPECT_EQ(Count(store, "tblHistory"), 1);
  EXPECT_EQ(Count(store, "tblTransactions"), 16);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblTransactions WHERE AllocatedItem <> 0"), 3);
  EXPECT_EQ(Count(store, "tblSchedule"), 2);
  EXPECT_EQ(store.Number("SELECT CurrencyId FROM tblAccounts WHERE AccountID = 1"), 17);
  EXPECT_EQ(LedgerProblems(store.Db()), std::vector<std::string>{});
}

TEST(Create, OrderOfInsertionFixesTheKeys) {
  TemporaryStore store(StoreContent::Default);
  EXPECT_EQ(store.Number("SELECT CurrencyID FROM tblCurrency WHERE [Currency] = 'EUR'"), 43);
  EXPECT_EQ(store.Number("SELECT CurrencyID FROM tblCurrency WHERE [Currency] = 'USD'"), 140);
  EXPECT_EQ(Text(store, "SELECT [Period] FROM tblPeriods WHERE PeriodID = 6"), "m");
  EXPECT_EQ(Text(store, "SELECT Bank FROM tblBank WHERE BankID = 22"),
            "Yorkshire Building Society");
  const std::pair<int, const char*> categories[] = {
      {1, "Credit:"},         {2, "Debit:"},
      {9, "Bills:Gas"},       {14, "Bills:Mortgage Repayment"},
      {105, "Shopping:Food"}, {124, "Wages and Salary:Net Pay"}};
  for (const auto& [key, name] : categories) {
    EXPECT_EQ(
        Text(store, "SELECT Category + ':' + SubCategory FROM tblCategory WHERE CategoryID = " +
                        std::to_string(key)),
        name);
  }
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblCategory WHERE Budget = 100 AND PeriodID = 3 "
                         "AND Category = 'Shopping' AND SubCategory = ''"),
            1);
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblCategory WHERE Budget <> 0"), 1);
}

TEST(Create, TextsKeepTheirApostrophesQuotesAndBlanks) {
  TemporaryStore store(StoreContent::Default);
  EXPECT_EQ(Text(store, "SELECT Description FROM tblCurrency WHERE [Currency] = 'TOP'"),
            "Tonga Pa'anga (TOP)");
  EXPECT_EQ(Text(store, "SELECT Description FROM tblCurrency WHERE [Currency] = 'MRO'"),
            "Mauritania Ougulya (MRO)");
  EXPECT_EQ(Text(store, "SELECT [Start] FROM tblStockData WHERE DataID = 6"), "class=\" price\"");
  EXPECT_EQ(Text(store, "SELECT URL FROM tblStockData WHERE DataID = 7"), "");
  EXPECT_EQ(store.Number("SELECT COUNT(*) FROM tblStockData WHERE DataID <> 7 AND "
                         "URL LIKE 'http%' AND LookUpURL LIKE 'http%'"),
            8);
}

TEST(Create, SampleDatesCountFromTheClocksDay) {
  TestPlatform platform;
  platform.clock.Set(*DateTime::FromIso("2024-03-31T08:00:00"));
  platform.files.CreateFolder(platform.folder.Path("data"));
  const DataFileLocation location = DataFileLocation::FromPath(platform.folder.Path("data"));
  const std::string password = InstallationPassword(platform.Get());
  CreateDataFile(location, password, false, platform.Get());
  const auto connection = Connection::Open({location.Path(), password, {}}, platform.clock);
  const auto date = [&](const std::string& sql) { return connection->QueryValue(sql).Text(); };
  EXPECT_EQ(date("SELECT [Date] FROM tblTransactions WHERE TransactionID = 1"), "2024-03-21");
  EXPECT_EQ(date("SELECT [ScheduleDate] FROM tblTransactions WHERE TransactionID = 11"),
            "2024-02-29");
  EXPECT_EQ(date("SELECT DateFrom FROM tblSchedule WHERE ScheduleID = 2"), "2024-02-29");
  EXPECT_EQ(date("SELECT UpdateRun FROM tblVerification"), "2024-03-31T08:00:00");
  EXPECT_FALSE(FileExists(location.CompactionPath()));
  EXPECT_FALSE(FileExists(location.DraftPath()));
}

TEST(Create, SchemaIsWhatTheCheckExpects) {
  TemporaryStore store(StoreContent::Default);
  EXPECT_EQ(store.Db().TableNames().size(), SchemaTables().size());
  for (const TableText& table : SchemaTables()) {
    const TableDef* const made = store.Db().Table(table.name);
    ASSERT_NE(made, nullptr) << table.name;
    EXPECT_EQ(made->columns.size(), table.columns.size()) << table.name;
    EXPECT_EQ(made->Index("AllocatedItem") != nullptr, !table.index.empty()) << table.name;
    EXPECT_EQ(made->primaryKey.empty(), table.primaryKey.empty()) << table.name;
  }
  EXPECT_EQ(SchemaTable("tblKeywords").CreateSql(),
            "CREATE TABLE tblKeywords (\n   KeywordID Counter,\n   [Keyword] TEXT(255),\n"
            "   CONSTRAINT PK_Keywords PRIMARY KEY(KeywordID));");
  EXPECT_EQ(SchemaTable("tblAccounts").RepairSql().at(1),
            "ALTER TABLE tblAccounts ADD Account  TEXT(255)");
  EXPECT_EQ(SchemaTable("tblAccounts").RepairSql().back(),
            "ALTER TABLE tblAccounts ADD CONSTRAINT PK_Accounts PRIMARY KEY(AccountID)");
}

TEST(Create, NewRefusesWhereADataFileStands) {
  TestPlatform platform;
  const std::string path = PutDataFile(platform, StoreContent::Default);
  const std::string before = ReadFile(path);
  DataFileOpener opener(platform.Get(), "a test");
  EXPECT_THROW((void)opener.CreateNew(false), StoreError);
  EXPECT_EQ(ReadFile(path), before);
}

}  // namespace
}  // namespace corvanta
