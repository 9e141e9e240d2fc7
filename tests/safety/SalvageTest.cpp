#include "platform/Files.h"
#include "safety/SafetyTest.h"
#include "safety/SalvageEditor.h"
#include "store/datafile/FilePasswords.h"
#include "store/datafile/backup/SalvageDataFile.h"
#include "store/sql/StoreError.h"
#include "support/LedgerProblems.h"

#include <algorithm>
#include <set>

namespace corvanta {
namespace {

class Salvages : public SafetyTest {
 protected:
  std::vector<SalvagedTable> Salvage() {
    return SalvageDataFile({store_.Path(), store_.Password(), {}}, path_, writer_,
                           store_.platform.Get());
  }
  // Whether all that entries name is there, and what is kept of them is theirs.
  bool AreEntriesWhole() {
    const auto isOfEntry = [](const std::string& problem) {
      return problem.starts_with("tblTransactions") || problem.starts_with("own_Kept");
    };
    return std::ranges::none_of(LedgerProblems(*Connect(path_)), isOfEntry);
  }
  // The numbers of pages, counted from 0, are overwritten.
  void Damage(std::size_t first, std::size_t count) {
    constexpr std::size_t kPage = 4096;
    std::string bytes = ReadFile(store_.Path());
    for (std::size_t at = first * kPage; at < (first + count) * kPage && at < bytes.size(); ++at) {
      bytes[at] = static_cast<char>(at * 7);
    }
    store_.platform.folder.Write("data/Corvanta.dat", bytes);
  }
  [[nodiscard]] std::size_t Pages() { return ReadFile(store_.Path()).size() / 4096; }

  std::string path_ = store_.platform.folder.Path("data/Salvaged.dat");
};

TEST_F(Salvages, ASoundFileComesOutWhole) {
  const std::int64_t payees = store_.Number("Select Count(*) from tblPayees");
  store_.Close();
  for (const SalvagedTable& table : Salvage()) EXPECT_TRUE(table.lost.empty()) << table.table;
  EXPECT_EQ(NumberIn(path_, "Select Count(*) from tblTransactions"), 16);
  EXPECT_EQ(NumberIn(path_, "Select Count(*) from tblPayees"), payees);
  EXPECT_TRUE(Connect(path_)->Check().empty());
}

TEST_F(Salvages, AttachedFilesComeAlong) {
  const std::string stored = store_.platform.folder.Path("data/FileStore");
  store_.platform.files.CreateFolder(stored);
  store_.platform.folder.Write("data/FileStore/bill.txt", "paid");
  store_.Close();
  FilePasswords passwords(store_.platform.Get());
  SalvageEditor editor(
      passwords, [](Connection&) { return true; }, store_.platform.Get(), writer_);
  const auto salvaged = editor.Salvage({store_.Path(), store_.platform.folder.Path("New.dat")});
  ASSERT_TRUE(salvaged.has_value());
  EXPECT_EQ(salvaged->missing, "");
  EXPECT_EQ(ReadFile(store_.platform.folder.Path("FileStore/bill.txt")), "paid");
}

TEST_F(Salvages, WhatTheDamageHoldsIsListedAndTheRestIsRead) {
  constexpr std::int64_t kRows = 1200;
  {
    Transaction all = store_.Db().Begin();
    for (std::int64_t row = 0; row < kRows; ++row) {
      store_.Db().Execute(
          "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
          "[Amount],[Date],Description) VALUES (1,1,1,1,0,1,#01/02/2026#,'Filling the pages')");
    }
    all.Commit();
  }
  store_.Close();
  const std::size_t pages = Pages();
  std::set<std::int64_t> readings;
  for (std::size_t page = 2; page < pages; page += pages / 5) {
    SCOPED_TRACE(page);
    const std::string before = ReadFile(store_.Path());
    Damage(page, 2);
    std::vector<SalvagedTable> tables;
    try {
      tables = Salvage();
    } catch (const StoreError&) {
      // The list of the tables stood there, without which nobody knows where they are.
      EXPECT_FALSE(FileExists(path_));
      store_.platform.folder.Write("data/Corvanta.dat", before);
      continue;
    }
    EXPECT_TRUE(Connect(path_)->Check().empty());
    EXPECT_TRUE(AreEntriesWhole());
    for (const SalvagedTable& table : tables) {
      if (table.table != "tblTransactions") continue;
      std::int64_t lost = 0;
      for (const LostKeys& keys : table.lost) lost += keys.last - keys.first + 1;
      EXPECT_LE(table.rows, kRows + 16);
      EXPECT_GE(table.rows + lost, kRows + 16) << "every row is read or listed";
      readings.insert(table.rows);
    }
    std::filesystem::remove(path_);
    store_.platform.folder.Write("data/Corvanta.dat", before);
  }
  EXPECT_GT(readings.size(), 1U) << "some of the damage was in these rows";
  // Of two neighbouring pages one alone can be where the table begins, without which nobody knows
  // where its rows are.
  EXPECT_LE(std::ranges::count_if(readings, [](auto rows) { return rows < kRows / 2; }), 1);
}

TEST_F(Salvages, WithoutItsBeginningThereIsNoNewFile) {
  store_.Close();
  Damage(0, 1);
  EXPECT_THROW(Salvage(), StoreError);
  EXPECT_FALSE(FileExists(path_));
  const std::string letter = store_.platform.folder.Write("data/Salvaged.dat", "Dear bank");
  EXPECT_THROW(Salvage(), StoreError);
  EXPECT_EQ(ReadFile(letter), "Dear bank");
}

}  // namespace
}  // namespace corvanta
