// The sums that a data file keeps of its entries, through its life.
#include "platform/Files.h"
#include "store/datafile/OpenDataFile.h"
#include "store/datafile/backup/SalvageDataFile.h"
#include "store/datafile/schema/KeptSums.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"
#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"
#include "support/LedgerProblems.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvanta {
namespace {

constexpr const char* kTotal = "SELECT Sum(Total) FROM own_KeptSums";

// Of what is kept; the rows are handled roughly here.
std::vector<std::string> Problems(Connection& connection) {
  std::vector<std::string> problems = LedgerProblems(connection);
  std::erase_if(problems, [](const std::string& text) { return !text.starts_with("own_Kept"); });
  return problems;
}

class KeptSumsFile : public testing::Test {
 protected:
  KeptSumsFile() {
    opener_.SetDataPath(machine_.folder.Path("data"));
    file_ = opener_.CreateNew(false);
    source_ = {file_.connection->Path(), file_.password, {}};
    expected_ = file_.connection->QueryValue(kTotal).Int();
  }

  Connection& Db() { return *file_.connection; }
  void Close() { file_ = {}; }
  void Reopen() {
    Close();
    file_ = opener_.OpenExisting(true);
  }
  // By a program that knows nothing of the sums.
  void RunElsewhere(const std::string& sql) {
    Close();
    corvanta::Run(OpenFile(source_, machine_.clock).get(), sql, source_.path);
  }

  TestPlatform machine_;
  DataFileOpener opener_{machine_.Get(), "a test"};
  DataFile file_;
  DataSource source_;
  std::int64_t expected_ = 0;
};

TEST_F(KeptSumsFile, AreThereFromTheBeginningAndNotInTheCatalog) {
  EXPECT_NE(expected_, 0);
  EXPECT_EQ(Problems(Db()), std::vector<std::string>{});
  for (const std::string& table : Db().TableNames()) EXPECT_FALSE(IsKeptSums(table)) << table;
}

// They are of the rows alone that the condition holds for.
TEST_F(KeptSumsFile, AFileWithoutThePathsOfFewRowsGetsThem) {
  const std::string paths =
      "SELECT count(*) FROM sqlite_master WHERE name IN ('fast_Trades', 'fast_Lines') AND sql LIKE "
      "'%WHERE%<> 0'";
  EXPECT_EQ(QueryNumber(OpenUnchecked(source_).get(), paths, source_.path), 2);
  RunElsewhere("DROP INDEX fast_Trades; DROP INDEX fast_Lines");
  Reopen();
  EXPECT_EQ(QueryNumber(OpenUnchecked(source_).get(), paths, source_.path), 2);
}

TEST_F(KeptSumsFile, AFileThatHasNoneGetsThem) {
  for (const char* lost :
       {"DROP TRIGGER \"own_KeptSums.added\"; UPDATE tblTransactions SET Amount = Amount + 1; "
        "DELETE FROM tblTransactions WHERE TransactionID = 3; INSERT INTO tblTransactions "
        "(AccountID, CategoryID, PaymentID, PayeeID, Amount, Date) VALUES (1, 3, 1, 1, 5, "
        "'2026-01-05')",
        "DROP TRIGGER \"own_KeptSums.added\"; DROP TRIGGER \"own_KeptSums.removed\"; DROP "
        "TRIGGER \"own_KeptSums.left\"; DROP TRIGGER \"own_KeptSums.joined\"; DROP TABLE "
        "own_KeptSums",
        "DROP TRIGGER \"own_KeptCategories.joined\"; CREATE TRIGGER \"own_KeptCategories.joined\" "
        "AFTER "
        "UPDATE ON tblTransactions BEGIN SELECT 1; END",
        // Of a later version, which has more of them.
        "CREATE TRIGGER \"own_KeptSums.emptied\" AFTER DELETE ON tblTransactions BEGIN UPDATE "
        "own_KeptSums SET Total = Total - 1; END; CREATE TRIGGER \"own_KeptCategories.again\" "
        "AFTER UPDATE ON tblTransactions BEGIN UPDATE own_KeptSums SET Entries = Entries + 1; "
        "END"}) {
    RunElsewhere(lost);
    if (std::string_view(lost).find(".added") != std::string_view::npos) {
      file_ = opener_.OpenExisting(false);
      EXPECT_EQ(Db().Table(kEntrySums), nullptr) << "a reader goes by the rows: " << lost;
    }
    Reopen();
    EXPECT_NE(Db().Table(kEntrySums), nullptr) << lost;
    EXPECT_EQ(Problems(Db()), std::vector<std::string>{}) << lost;
    Db().Execute("UPDATE tblTransactions SET [Amount] = [Amount] * 2");
    EXPECT_EQ(Problems(Db()), std::vector<std::string>{}) << lost;
  }
}

TEST_F(KeptSumsFile, AnotherProgramsChangesAreInThem) {
  RunElsewhere("UPDATE tblTransactions SET Amount = Amount - 0.5, BankChk = 1 - BankChk");
  Reopen();
  EXPECT_NE(Db().QueryValue(kTotal).Int(), expected_);
  EXPECT_EQ(Problems(Db()), std::vector<std::string>{});
}

TEST_F(KeptSumsFile, AChangedLayoutTakesThemAwayUntilTheNextOpening) {
  Db().Execute("ALTER TABLE tblTransactions ADD Colour INT");
  EXPECT_EQ(Db().Table(kEntrySums), nullptr);
  Db().Execute("UPDATE tblTransactions SET [Amount] = [Amount] + 1");
  Reopen();
  EXPECT_NE(Db().Table(kEntrySums), nullptr);
  EXPECT_EQ(Problems(Db()), std::vector<std::string>{});
  Db().Execute("DROP TABLE own_KeptSums");
  Db().Execute("UPDATE tblTransactions SET [Amount] = [Amount] + 1");
  Reopen();
  EXPECT_EQ(Problems(Db()), std::vector<std::string>{});
}

TEST_F(KeptSumsFile, ValidatingCountsThemAnew) {
  EXPECT_FALSE(RecountKeptSums(source_, machine_.clock)) << "they are right";
  for (const char* wrong :
       {"UPDATE own_KeptSums SET Total = Total + 1", "DELETE FROM own_KeptCategories",
        "INSERT INTO own_KeptSums VALUES (1, '2020-01', 0, 0, 1, 0, 100, 100)"}) {
    RunElsewhere(wrong);
    file_ = opener_.Validate();
    EXPECT_EQ(Db().QueryValue(kTotal).Int(), expected_) << wrong;
    EXPECT_EQ(Problems(Db()), std::vector<std::string>{}) << wrong;
  }
}

TEST_F(KeptSumsFile, ACategoryThatIsGoneAndUnusedIsForgottenAtTheNextOpening) {
  const auto uses = [this] {
    return Db().QueryValue("SELECT Count(*) FROM own_KeptCategories WHERE CategoryID > 7000").Int();
  };
  Db().Execute("UPDATE tblTransactions SET CategoryID = 7000 + TransactionID MOD 2 + 1");
  Db().Execute("UPDATE tblTransactions SET CategoryID = 3 WHERE CategoryID = 7001");
  EXPECT_GE(uses(), 2);
  Reopen();
  EXPECT_GE(uses(), 1) << "one is still in use";
  EXPECT_EQ(
      Db().QueryValue("SELECT Count(*) FROM own_KeptCategories WHERE CategoryID = 7001").Int(), 0);
  EXPECT_EQ(Problems(Db()), std::vector<std::string>{});
}

// Rows before a damaged page are read more than once on the way around it.
TEST_F(KeptSumsFile, ASalvagedFileHasThoseOfItsRows) {
  constexpr int kRows = 500;
  constexpr std::size_t kPage = 4096;
  {
    Transaction all = Db().Begin();
    for (int row = 0; row < kRows; ++row) {
      Db().Execute(
          "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
          "[Amount],[Date],Description) VALUES (1,1,1,1,0,1,#01/02/2026#,'Filling the pages')");
    }
    all.Commit();
  }
  RunElsewhere("UPDATE own_KeptSums SET Total = 77");
  const std::string whole = ReadFile(source_.path);
  const std::string path = machine_.folder.Path("Salvaged.dat");
  int found = 0;
  for (std::size_t page = whole.size() / kPage; page-- > 1 && found < 2;) {
    std::string damaged = whole;
    damaged.replace(page * kPage, kPage, std::string(kPage, '?'));
    machine_.folder.Write("data/Corvanta.dat", damaged);
    std::int64_t lost = 0;
    try {
      for (const SalvagedTable& table :
           SalvageDataFile(source_, path, Writer{"a test", {}}, machine_.Get())) {
        if (table.table == "tblTransactions") lost = std::ssize(table.lost);
      }
    } catch (const StoreError&) {
      continue;  // the list of the tables stood there
    }
    const auto salvaged = Connection::Open({path, source_.password, {}}, machine_.clock);
    ASSERT_NE(salvaged->Table(kEntrySums), nullptr);
    EXPECT_EQ(Problems(*salvaged), std::vector<std::string>{}) << page;
    std::filesystem::remove(path);
    if (lost > 0) ++found;
  }
  EXPECT_EQ(found, 2) << "some of the damage was in these rows";
}

}  // namespace
}  // namespace corvanta
