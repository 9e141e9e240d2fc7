// What lies in the folder of a data file under the names that the store uses there.
#include "platform/SettingsTable.h"
#include "store/datafile/Compact.h"
#include "store/datafile/CreateDataFile.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/OpenDataFile.h"
#include "store/datafile/backup/BackupMark.h"
#include "store/datafile/opening/DraftFile.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/sql/StoreError.h"
#include "support/DeafOpening.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

namespace corvanta {
namespace {

class Leftovers : public ::testing::Test {
 protected:
  std::string In(const std::string& name) const { return platform.folder.Path("data/" + name); }
  std::string Put(const std::string& name, const std::string& bytes) const {
    return platform.folder.Write("data/" + name, bytes);
  }
  DataFileOpener At(const std::string& path) {
    DataFileOpener opener(platform.Get(), "a test");
    opener.SetDataPath(path);
    return opener;
  }
  std::string Password() { return InstallationPassword(platform.Get()); }
  // The copy that compacting a data file of that name had left when it was killed.
  std::string PutCopyOf(const std::string& name) {
    CompactDatabase({data, Password(), {}}, {In("Corvanta.000"), Password(), {}}, platform.clock,
                    platform.files, MarkOf(name));
    return ReadFile(In("Corvanta.000"));
  }
  using Names = std::vector<std::string>;
  Names NamesIn(const std::string& folder) const {
    Names names;
    for (const auto& each : std::filesystem::directory_iterator(platform.folder.Path(folder))) {
      names.push_back(each.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  std::int64_t Transactions(const std::string& path) {
    return Connection::Open({path, Password(), {}}, platform.clock)
        ->QueryValue("SELECT COUNT(*) FROM tblTransactions")
        .Int();
  }
  static StoreErrorCode RefusalOf(const std::function<void()>& command,
                                  std::string* text = nullptr) {
    try {
      command();
    } catch (const StoreError& error) {
      if (text != nullptr) *text = error.what();
      return error.Code();
    }
    ADD_FAILURE() << "nothing was refused";
    return StoreErrorCode::Io;
  }

  TestPlatform platform;
  const std::string data = PutDataFile(platform);
  const std::string before = ReadFile(data);
};

TEST_F(Leftovers, OneFileOfAFolderIsMadeOrCompactedAtATime) {
  const auto lock = WriterLock::Acquire(In("Corvanta.000"), Writer{"corvanta-cli validate", {}});
  std::string text;
  EXPECT_EQ(RefusalOf([&] { (void)At(data).Validate(); }, &text), StoreErrorCode::Locked);
  EXPECT_NE(text.find("Another data file of this folder"), std::string::npos);
  EXPECT_NE(text.find("corvanta-cli validate"), std::string::npos);
  EXPECT_EQ(RefusalOf([&] { (void)At(In("second.dat")).CreateNew(true); }), StoreErrorCode::Locked);
  EXPECT_FALSE(FileExists(In("second.dat")));
  EXPECT_EQ(ReadFile(data), before);
  EXPECT_NE(At(data).OpenExisting(true).connection, nullptr) << "writing goes on beside it";
}

TEST_F(Leftovers, ADataFileThatHasTheCopysNameIsRefused) {
  const std::string named = In("Corvanta.000");
  std::filesystem::rename(data, named);
  TestPlatform other;
  PutDataFile(other, StoreContent::Default);
  const std::string key = RecoveryKeyFromPassword(Password());
  EXPECT_EQ(RefusalOf([&] { (void)At(named).Validate(); }), StoreErrorCode::Sql);
  {
    // On another machine, which has a key of its own.
    DataFileOpener opener(other.Get(), "a test");
    other.files.Remove(InstallationKeyPath(other.Get()));
    opener.SetDataPath(named);
    EXPECT_EQ(RefusalOf([&] { (void)opener.UseKey(key); }), StoreErrorCode::Sql);
  }
  EXPECT_EQ(ReadFile(named), before);
  EXPECT_NE(At(named).OpenExisting(true).connection, nullptr) << "it can be used all the same";

  std::filesystem::create_hard_link(named, data);
  EXPECT_EQ(RefusalOf([&] { (void)At(data).Validate(); }), StoreErrorCode::Sql);
  EXPECT_TRUE(FileExists(named));
}

TEST_F(Leftovers, WhatSomebodyElseHasPutThereIsKept) {
  Put("second.dat.new", "my own notes");
  Put("Corvanta.000", "my old accounts");
  platform.prompts.ExpectTell("Open Data File", ScriptedPrompts::kAnyText);
  EXPECT_NE(At(In("second.dat")).CreateNew(false).connection, nullptr);
  EXPECT_EQ(ReadFile(In("second.dat.new")), "my own notes");
  EXPECT_EQ(ReadFile(In("Corvanta.000.old")), "my old accounts");
  EXPECT_EQ(Transactions(In("second.dat")), 16);

  // A copy that a person has made of the data file is nobody's leftover either.
  Put("Corvanta.000", before);
  Put("third.dat.new", before);
  platform.prompts.ExpectTell("Open Data File", ScriptedPrompts::kAnyText);
  EXPECT_NE(At(In("third.dat")).CreateNew(true).connection, nullptr);
  EXPECT_EQ(ReadFile(In("third.dat.new")), before);
  EXPECT_EQ(ReadFile(In("Corvanta.000.old2")), before);

  ASSERT_EQ(mkfifo(In("Corvanta.000").c_str(), 0600), 0);
  platform.prompts.ExpectTell("Open Data File", ScriptedPrompts::kAnyText);
  EXPECT_NE(At(data).Validate().connection, nullptr);
  EXPECT_TRUE(std::filesystem::is_fifo(In("Corvanta.000.old3")));

  std::filesystem::create_directory(In("Corvanta.000"));
  EXPECT_EQ(RefusalOf([&] { (void)At(data).Validate(); }), StoreErrorCode::Sql);
}

TEST_F(Leftovers, OwnOnesAreRemoved) {
  PutCopyOf("Corvanta.dat");
  Put("second.dat.new", "");
  EXPECT_NE(At(data).Validate().connection, nullptr);
  EXPECT_FALSE(FileExists(In("Corvanta.000")));
  EXPECT_NE(At(In("second.dat")).CreateNew(true).connection, nullptr);
  EXPECT_FALSE(FileExists(In("second.dat.new")));
}

TEST_F(Leftovers, ACopyTakesThePlaceOfItsOwnDataFileOnly) {
  const std::string copy = PutCopyOf("Corvanta.dat");
  EXPECT_EQ(RefusalOf([&] { (void)At(In("Corvnata.dat")).Validate(); }), StoreErrorCode::Missing);
  EXPECT_EQ(RefusalOf([&] { (void)At(In("Corvnata.dat")).OpenExisting(true); }),
            StoreErrorCode::Missing);
  EXPECT_FALSE(FileExists(In("Corvnata.dat")));
  EXPECT_EQ(ReadFile(In("Corvanta.000")), copy);

  std::filesystem::remove(data);
  platform.prompts.ExpectTell("Open Data File",
                              "The data file was missing. It was recovered from the copy that "
                              "compacting it had left.");
  EXPECT_NE(At(data).OpenExisting(true).connection, nullptr);
  EXPECT_EQ(Transactions(data), 16);
  EXPECT_FALSE(FileExists(In("Corvanta.000")));

  // What was recovered is a data file like any other: a copy that a person makes of it is his own.
  std::filesystem::copy(data, In("Corvanta.000"));
  platform.prompts.ExpectTell("Open Data File", ScriptedPrompts::kAnyText);
  EXPECT_NE(At(data).Validate().connection, nullptr);
  EXPECT_TRUE(FileExists(In("Corvanta.000.old")));
}

TEST_F(Leftovers, ACopyWithoutItsDataFileIsNeverRemoved) {
  const std::string copy = PutCopyOf("Corvanta.dat");
  std::filesystem::remove(data);
  platform.prompts.ExpectTell("Open Data File", ScriptedPrompts::kAnyText);
  EXPECT_NE(At(In("second.dat")).CreateNew(true).connection, nullptr);
  EXPECT_EQ(ReadFile(In("Corvanta.000.old")), copy);
}

// What is left of compacting a neighbour that is there all the same is no more than a rest.
TEST_F(Leftovers, ACopyOfANeighbourGoesWithoutAWord) {
  EXPECT_NE(At(In("second.dat")).CreateNew(true).connection, nullptr);
  const std::string second = ReadFile(In("second.dat"));
  PutCopyOf("second.dat");
  EXPECT_NE(At(data).Validate().connection, nullptr);
  EXPECT_EQ(NamesIn("data"), (Names{"Corvanta.dat", "second.dat"}));
  EXPECT_EQ(ReadFile(In("second.dat")), second);
  // A folder of that name is no data file.
  std::filesystem::create_directory(In("third.dat"));
  const std::string copy = PutCopyOf("third.dat");
  platform.prompts.ExpectTell("Open Data File", ScriptedPrompts::kAnyText);
  EXPECT_NE(At(data).Validate().connection, nullptr);
  EXPECT_EQ(ReadFile(In("Corvanta.000.old")), copy);
}

TEST_F(Leftovers, DraftsOfNamesThatAreNotUsedAgainGo) {
  const auto put = [&](const std::string& name, const CopyMark& mark) {
    CompactDatabase({data, Password(), {}}, {In(name), Password(), {}}, platform.clock,
                    platform.files, mark);
  };
  put("gone.dat.new", DraftMark("gone.dat"));
  put("gone.dat.new2", DraftMark("gone.dat"));
  put("backup.dat.new", Unfinished(BackupMark(data, platform.clock.Now())));
  put("begun.dat.new", DraftMark("begun.dat"));
  put("made.dat.new", BackupMark(data, platform.clock.Now()));
  put("a copy.dat.new", {});
  put("other.dat.new", DraftMark("another.dat"));
  Put("void.dat.new", "");
  Put("void.dat.new-journal", std::string(512, '\0'));
  Put("empty.new", "");
  Put("notes.new", "my own notes");
  {
    const auto isMaking = WriterLock::Acquire(In("begun.dat"), "a test");
    EXPECT_NE(At(In("second.dat")).CreateNew(true).connection, nullptr);
    EXPECT_EQ(NamesIn("data"),
              (Names{".begun.dat.lock", "Corvanta.dat", "a copy.dat.new", "begun.dat.new",
                     "empty.new", "made.dat.new", "notes.new", "other.dat.new", "second.dat"}));
  }
  EXPECT_NE(At(In("third.dat")).CreateNew(true).connection, nullptr);
  EXPECT_FALSE(FileExists(In("begun.dat.new")));
}

TEST_F(Leftovers, AJournalWithNothingInItBarsNothing) {
  const std::string journal = data + "-journal";
  const auto put = [&] { Put("Corvanta.dat-journal", std::string(8192, '\0')); };
  put();
  EXPECT_NE(At(data).Validate().connection, nullptr);
  EXPECT_FALSE(FileExists(journal));
  put();
  platform.registry.Write(Hive::CurrentUser, kSettingsKey, "Reindex", "1");
  DeafOpening questions;
  EXPECT_TRUE(DataFileOpener(platform.Get(), "a test").Open(true, questions).has_value());
  EXPECT_FALSE(FileExists(journal));
  EXPECT_EQ(Transactions(data), 16);
}

TEST_F(Leftovers, AnotherFileUnderTheSameNameIsNoticed) {
  const auto identity = IdentityOf(data);
  EXPECT_NO_THROW(RequireStillThere(data, identity));
  std::filesystem::rename(data, In("moved.dat"));
  EXPECT_THROW(RequireStillThere(data, identity), StoreError);
  Put("Corvanta.dat", "another");
  EXPECT_THROW(RequireStillThere(data, identity), StoreError);
}

TEST_F(Leftovers, CompactingMakesTheFileSmallerFromTheFirstTimeOn) {
  {
    const auto connection = Connection::Open({data, Password(), {}}, platform.clock);
    Transaction change = connection->Begin();
    for (int row = 0; row < 4000; ++row) {
      connection->Execute(
          "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
          "[Amount],[Date]) VALUES (" +
          std::to_string(row * 7 % 13) + ",1,1,1,0," + std::to_string(row) + ",#" +
          std::to_string(row % 12 + 1) + "/1/" + std::to_string(2000 + row * 31 % 26) + "#)");
    }
    connection->Execute("DELETE FROM tblTransactions WHERE AccountID = 0");
    change.Commit();
  }
  const auto size = std::filesystem::file_size(data);
  EXPECT_NE(At(data).Validate().connection, nullptr);
  const auto first = std::filesystem::file_size(data);
  EXPECT_LT(first, size);
  EXPECT_NE(At(data).Validate().connection, nullptr);
  EXPECT_GE(std::filesystem::file_size(data) * 20, first * 19) << "the first was the whole of it";
}

TEST_F(Leftovers, DamageIsToldInASentence) {
  std::string bytes = before;
  // Pages that the opening does not come across.
  for (std::size_t page = bytes.size() / 4096 / 2; page < bytes.size() / 4096; ++page) {
    bytes.replace(page * 4096 + 2000, 8, "DAMAGED!");
  }
  Put("Corvanta.dat", bytes);
  std::string text;
  EXPECT_EQ(RefusalOf([&] { (void)At(data).Validate(); }, &text), StoreErrorCode::Damaged);
  EXPECT_EQ(text,
            "The data file is damaged. Nothing was changed. Restore it from your latest backup.");
  EXPECT_EQ(ReadFile(data), bytes);
}

}  // namespace
}  // namespace corvanta
