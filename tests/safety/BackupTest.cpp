#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "platform/SettingsTable.h"
#include "safety/BackupEditor.h"
#include "safety/RecentFiles.h"
#include "safety/SafetyTest.h"
#include "safety/Transfer.h"
#include "store/datafile/opening/TransferFile.h"
#include "store/sql/StoreError.h"
#include "support/LedgerProblems.h"

#include <fstream>

namespace corvanta {
namespace {

using Names = std::vector<std::string>;

class Backups : public SafetyTest {
 protected:
  std::string Folder() { return store_.platform.folder.Path("data/Backup"); }
};

TEST_F(Backups, AreDataFilesOfTheirOwnMadeWhileTheFileIsOpen) {
  SetToday(2026, 11, 22, 18, 30);
  const BackupResult made = backup_.Make(File(), backup_.Chosen());
  EXPECT_EQ(made.path, Folder() + "/Corvanta.dat");
  EXPECT_EQ(NamesIn(Folder()), Names{"Corvanta.dat"});
  const auto copy = Connect(made.path);
  EXPECT_TRUE(copy->Check().empty());
  EXPECT_EQ(LedgerProblems(*copy), Names{});
  EXPECT_EQ(copy->QueryValue("Select Count(*) from tblTransactions").Int(),
            store_.Number("Select Count(*) from tblTransactions"));
  // The file goes on being used, and the lock on it was not lost.
  store_.Db().Execute("UPDATE tblPayees SET Payee = 'Later' WHERE PayeeID = 1");
  EXPECT_NE(copy->QueryValue("Select Payee from tblPayees WHERE PayeeID = 1").Text(), "Later");
}

TEST_F(Backups, TheOneBeforeKeepsItsDayInItsName) {
  SetToday(2026, 11, 20, 18, 30);
  backup_.Make(File(), {});
  SetToday(2026, 11, 21, 9, 5);
  backup_.Make(File(), {});
  store_.Db().Execute("Delete from tblTransactions");
  backup_.Make(File(), {});
  backup_.Make(File(), {});
  const Names names{"Corvanta 2026-11-20 18-30.dat", "Corvanta 2026-11-21 09-05 2.dat",
                    "Corvanta 2026-11-21 09-05.dat", "Corvanta.dat"};
  EXPECT_EQ(NamesIn(Folder()), names);
  const auto generations = backup_.Generations(File());
  ASSERT_EQ(generations.size(), 4U);
  EXPECT_EQ(generations.front().path, Folder() + "/Corvanta.dat");
  EXPECT_EQ(generations.back().made.ToIso(), "2026-11-20T18:30:00");
  EXPECT_EQ(NumberIn(Folder() + "/Corvanta.dat", "Select Count(*) from tblTransactions"), 0);
  EXPECT_EQ(NumberIn(generations.back().path, "Select Count(*) from tblTransactions"), 16);
}

TEST(Generations, AreThinnedOutByAge) {
  const Date today = *Date::FromYmd(2026, 11, 22);  // a Sunday
  const auto at = [&](int daysAgo, int hour) {
    return Generation{std::to_string(daysAgo) + "." + std::to_string(hour),
                      {today.AddDays(-daysAgo), hour * 3600}};
  };
  const auto left = [&](std::vector<Generation> all) {
    for (const Generation& gone : Superfluous(all, today)) {
      std::erase_if(all, [&](const Generation& each) { return each.path == gone.path; });
    }
    Names names;
    for (const Generation& each : all) names.push_back(each.path);
    return names;
  };
  EXPECT_EQ(left({at(0, 8), at(0, 9), at(1, 8), at(1, 9), at(7, 1), at(7, 2)}),
            (Names{"0.8", "0.9", "1.9", "7.2"}));
  // Monday 9 November is 13 days ago: of its week the latest stays.
  EXPECT_EQ(left({at(13, 1), at(12, 1), at(8, 1), at(14, 1)}), (Names{"8.1", "14.1"}));
  EXPECT_EQ(left({at(40, 1), at(41, 1), at(60, 1), at(400, 1)}), (Names{"40.1", "60.1", "400.1"}));
  EXPECT_EQ(left({at(900, 1)}), Names{"900.1"}) << "never the only one";
  EXPECT_EQ(left({at(-3, 1), at(-3, 2)}).size(), 2U) << "of a clock that was wrong";
  // Made day after day, as many stay as a year has use for.
  std::vector<Generation> shelf;
  for (int day = 400; day >= 0; --day) {
    shelf.push_back(at(day, 1));
    const Date then = today.AddDays(-day);
    for (const Generation& gone : Superfluous(shelf, then)) {
      std::erase_if(shelf, [&](const Generation& each) { return each.path == gone.path; });
    }
  }
  EXPECT_LE(shelf.size(), 28U);
  EXPECT_GE(shelf.size(), 22U);
}

TEST_F(Backups, OnlyThoseOfTheDataFileAreRemoved) {
  SetToday(2026, 11, 1);
  backup_.Make(File(), {});
  SetToday(2026, 11, 1, 13);
  backup_.Make(File(), {});
  store_.platform.folder.Write("data/Backup/Corvanta 2026-11-01 letter.dat", "Dear bank");
  for (const char* name : {"/Somebody.dat", "/Corvanta kept.dat"}) {
    std::filesystem::copy(Folder() + "/Corvanta.dat", Folder() + name);
  }
  SetToday(2026, 11, 22);
  const BackupResult made = backup_.Make(File(), {});
  EXPECT_EQ(made.removed, 1U);
  EXPECT_EQ(NamesIn(Folder()),
            (Names{"Corvanta 2026-11-01 13-00.dat", "Corvanta 2026-11-01 letter.dat",
                   "Corvanta kept.dat", "Corvanta.dat", "Somebody.dat"}));
}

TEST_F(Backups, TwoDataFilesShareAPlaceWithoutLosingAny) {
  const std::string place = store_.platform.folder.Path("usb/Mine.dat");
  store_.platform.files.CreateFolder(store_.platform.folder.Path("usb"));
  Set("Backup", place);
  const std::string other = store_.platform.folder.Path("data/Other.dat");
  std::filesystem::copy(store_.Path(), other);
  for (int month = 1; month < 4; ++month) {
    SetToday(2026, month, 5);
    backup_.Make(File(), {});
    backup_.Make({other, store_.Password()}, {});
  }
  EXPECT_EQ(backup_.Generations(File()).size(), 3U);
  EXPECT_EQ(backup_.Generations({other, store_.Password()}).size(), 3U);
  EXPECT_EQ(NamesIn(store_.platform.folder.Path("usb")).size(), 6U);
}

TEST_F(Backups, AreDueByTheChosenFrequency) {
  struct Case {
    const char* frequency;
    int daysAfter;
    bool isDue;
  };
  SetToday(2026, 11, 1);
  EXPECT_TRUE(backup_.IsDue(File())) << "there is none";
  backup_.Make(File(), {});
  for (const Case& each : {Case{"Every Time", 0, true}, Case{"Once a Day", 0, false},
                           Case{"Once a Day", 1, true}, Case{"Once a Week", 6, false},
                           Case{"Once a Week", 7, true}, Case{"Once a Week", -1, true}}) {
    SCOPED_TRACE(each.frequency + std::to_string(each.daysAfter));
    Set("BFreq", each.frequency);
    SetToday(2026, 11, 1 + std::max(each.daysAfter, 0));
    if (each.daysAfter < 0) SetToday(2026, 10, 31);
    EXPECT_EQ(backup_.IsDue(File()), each.isDue);
    Set("SkipBackup", "1");
    EXPECT_FALSE(backup_.IsDue(File()));
    EXPECT_FALSE(backup_.MakeDue(File()));
    Set("SkipBackup", "0");
  }
}

TEST_F(Backups, AFailureIsToldAtTheNextStartUntilOneSucceeds) {
  SetToday(2026, 11, 22);
  Set("Backup", store_.platform.folder.Path("not there/Mine.dat"));
  EXPECT_FALSE(backup_.MakeDue(File()));
  EXPECT_FALSE(FolderExists(store_.platform.folder.Path("not there")))
      << "a disk that is missing is not made up";
  auto& prompts = store_.platform.prompts;
  prompts.ExpectAsk("Backup", ScriptedPrompts::kAnyText, false);
  backup_.RemindOfFailure(File());
  EXPECT_NE(prompts.Shown().back().text.find("The backup of 22/11/2026 failed. The folder"),
            std::string::npos)
      << prompts.Shown().back().text;
  prompts.ExpectAsk("Backup", ScriptedPrompts::kAnyText, true);
  EXPECT_THROW(backup_.RemindOfFailure(File()), StoreError);
  Set("Backup", "");
  prompts.ExpectAsk("Backup", ScriptedPrompts::kAnyText, true);
  prompts.ExpectTell("Backup", "The data file is backed up as " + Folder() + "/Corvanta.dat.");
  backup_.RemindOfFailure(File());
  backup_.RemindOfFailure(File());
  EXPECT_EQ(backup_.Failure(File()), std::nullopt);
}

TEST_F(Backups, DamageIsNotCopiedOverAGoodBackup) {
  SetToday(2026, 11, 20);
  backup_.Make(File(), {});
  const std::string good = ReadFile(Folder() + "/Corvanta.dat");
  const BackedFile file = File();
  store_.Close();
  std::string bytes = ReadFile(store_.Path());
  for (std::size_t at = 4096 * 5; at < 4096 * 6; ++at) bytes[at] = static_cast<char>(at);
  store_.platform.folder.Write("data/Corvanta.dat", bytes);
  SetToday(2026, 11, 22);
  EXPECT_THROW(backup_.Make(file, {}), StoreError);
  EXPECT_EQ(NamesIn(Folder()), Names{"Corvanta.dat"});
  EXPECT_EQ(ReadFile(Folder() + "/Corvanta.dat"), good);
  EXPECT_TRUE(backup_.Failure(File()).has_value());
}

TEST_F(Backups, AttachedFilesGoAlongAndOlderContentIsKept) {
  store_.platform.files.CreateFolder(store_.platform.folder.Path("data/FileStore/1"));
  store_.platform.folder.Write("data/FileStore/1/bill.txt", "first");
  EXPECT_EQ(backup_.Make(File(), backup_.Chosen()).files, 1U);
  const std::string copy = Folder() + "/FileStore/1/bill.txt";
  EXPECT_EQ(ReadFile(copy), "first");
  EXPECT_EQ(backup_.Make(File(), backup_.Chosen()).files, 0U);
  store_.platform.folder.Write("data/FileStore/1/bill.txt", "second one");
  EXPECT_EQ(backup_.Make(File(), backup_.Chosen()).files, 1U);
  EXPECT_EQ(ReadFile(copy), "second one");
  EXPECT_EQ(ReadFile(copy + ".old"), "first");
  Set("BackupFS", "0");
  store_.platform.folder.Write("data/FileStore/1/bill.txt", "a third, longer one");
  EXPECT_EQ(backup_.Make(File(), backup_.Chosen()).files, 0U);
}

TEST_F(Backups, ByCommandNothingElseIsWrittenOver) {
  const std::string letter = store_.platform.folder.Write("letter.dat", "Dear bank");
  EXPECT_THROW(backup_.MakeAt(File(), letter, {}), StoreError);
  EXPECT_THROW(backup_.MakeAt(File(), store_.Path(), {}), FileRefused);
  EXPECT_EQ(ReadFile(letter), "Dear bank");
  const std::string mine = store_.platform.folder.Path("mine.dat");
  backup_.MakeAt(File(), mine, {});
  backup_.MakeAt(File(), mine, {});
  EXPECT_EQ(NumberIn(mine, "Select Count(*) from tblTransactions"), 16);

  BackupEditor editor(File(), store_.platform.Get(), writer_);
  EXPECT_EQ(editor.Check({"  ", {}})->text, "You need to enter a Backup file");
  EXPECT_EQ(editor.Check({store_.Path(), {}})->text,
            "The selected backup file is the same as your data file. Please reselect");
  auto& prompts = store_.platform.prompts;
  prompts.ExpectAsk("Backup", ScriptedPrompts::kAnyText, false);
  EXPECT_FALSE(editor.Save({letter, {}}).has_value());
  EXPECT_EQ(ReadFile(letter), "Dear bank");
  const auto lock = WriterLock::Acquire(mine, "the Corvanta window");
  EXPECT_THROW(backup_.MakeAt(File(), mine, {}), StoreError) << "somebody works on it";
}

// A command on the backup was killed before its first change was on disk.
TEST_F(Backups, AJournalBesideTheFormerOneBarsNoBackup) {
  const std::string place = backup_.Make(File(), {}).path;
  const std::string journal = place + "-journal";
  const std::string mine = store_.platform.folder.Path("mine.dat");
  backup_.MakeAt(File(), mine, {});
  for (const std::string& path : {journal, mine + "-journal"}) {
    std::ofstream(path) << std::string(8192, '\0');
  }
  SetToday(2026, 12, 1);
  EXPECT_NO_THROW(backup_.Make(File(), {}));
  EXPECT_FALSE(FileExists(journal));
  EXPECT_EQ(backup_.Generations(File()).size(), 2U) << "the former one is known still";
  EXPECT_NO_THROW(backup_.MakeAt(File(), mine, {}));
  EXPECT_FALSE(FileExists(mine + "-journal"));
}

TEST_F(Backups, ATransferFileReplacesNothingButItsLike) {
  const std::string place = store_.platform.folder.Path("usb");
  store_.platform.files.CreateFolder(place);
  const std::string transfer = place + "/Corvanta.tfr";
  std::ofstream(transfer) << "mine";
  EXPECT_THROW(backup_.MakeAt(File(), place + "/Corvanta.dat", {false, true}), FileRefused);
  EXPECT_EQ(NamesIn(place), Names{"Corvanta.tfr"}) << "and there is no half of a backup";
  EXPECT_THROW(WriteTransfer(transfer, store_.Path(), store_.Password(), FormerFile::Refuse,
                             store_.platform.Get()),
               FileRefused);
  EXPECT_EQ(ReadFile(transfer), "mine");
  WriteTransfer(transfer, store_.Path(), store_.Password(), FormerFile::Replace,
                store_.platform.Get());
  EXPECT_NO_THROW(backup_.MakeAt(File(), place + "/Corvanta.dat", {false, true}));
}

TEST_F(Backups, ATransferFileIsWrittenOnRequestAndNeverBesideTheFile) {
  Set("Height", "600");
  EXPECT_THROW(WriteTransfer(store_.platform.folder.Path("data/My.tfr"), store_.Path(),
                             store_.Password(), FormerFile::Replace, store_.platform.Get()),
               StoreError);
  EXPECT_FALSE(FileExists(store_.platform.folder.Path("data/My.tfr")));
  const std::string place = store_.platform.folder.Path("usb");
  store_.platform.files.CreateFolder(place);
  backup_.MakeAt(File(), place + "/Corvanta.dat", {});
  EXPECT_EQ(NamesIn(place), Names{"Corvanta.dat"});
  RecentFiles(store_.platform.registry).Add("/somewhere/private.dat");
  backup_.MakeAt(File(), place + "/Corvanta.dat", {true, true});
  const std::string text = ReadFile(place + "/Corvanta.tfr");
  EXPECT_EQ(text.find("private"), std::string::npos);
  const auto transfer = TransferFile::FromText(text);
  ASSERT_TRUE(transfer.has_value());
  EXPECT_EQ(transfer->password, store_.Password());

  // Carried to another machine, file and settings open there.
  TestPlatform elsewhere;
  elsewhere.files.CreateFolder(elsewhere.folder.Path("data"));
  for (const char* name : {"/Corvanta.dat", "/Corvanta.tfr"}) {
    std::filesystem::copy(place + name, elsewhere.folder.Path("data") + name);
  }
  DataFileOpener opener(elsewhere.Get(), "a test");
  opener.SetDataPath(elsewhere.folder.Path("data"));
  const DataFile file = opener.UseKey(elsewhere.folder.Path("data/Corvanta.tfr"));
  EXPECT_EQ(file.connection->QueryValue("Select Count(*) from tblTransactions").Int(), 16);
  transfer->WriteSettings(elsewhere.registry);
  EXPECT_EQ(elsewhere.registry.Read(Hive::CurrentUser, kSettingsKey, "Height"), "600");
}

TEST(RecentFilesTest, TheLatestComesFirstAndEachStandsOnce) {
  MemoryRegistry registry;
  RecentFiles recent(registry);
  for (int i = 0; i < 12; ++i) recent.Add("/data/" + std::to_string(i) + ".dat");
  recent.Add("/data/9.dat");
  ASSERT_EQ(recent.List().size(), RecentFiles::kMax);
  EXPECT_EQ(recent.List().front(), "/data/9.dat");
  EXPECT_EQ(recent.List().back(), "/data/4.dat");
  recent.Remove("/data/9.dat");
  EXPECT_EQ(recent.List().front(), "/data/11.dat");
}

}  // namespace
}  // namespace corvanta
