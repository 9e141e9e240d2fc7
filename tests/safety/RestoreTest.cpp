#include "ledger/secrets/LoginPassword.h"
#include "platform/Files.h"
#include "safety/FileStore.h"
#include "safety/RestoreEditor.h"
#include "safety/SafetyTest.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/backup/RestoreDataFile.h"
#include "store/sql/StoreError.h"
#include "support/DeafOpening.h"
#include "support/LedgerProblems.h"

#include <utime.h>

#include <ctime>

namespace corvanta {
namespace {

// Hands out one key, and counts how often it was asked for.
class KeyHolder : public DeafOpening {
 public:
  [[nodiscard]] Key KeyOf(const std::string&) override {
    ++asked;
    return {password, Road::Back};
  }
  std::optional<std::string> password;
  int asked = 0;
};

class Restores : public SafetyTest {
 protected:
  Restores() {
    SetToday(2026, 11, 20, 18, 30);
    made_ = backup_.Make(File(), {}).path;
  }
  RestoreEditor Editor() {
    return RestoreEditor(
        DataFileLocation::FromPath(store_.Path()), passwords_, keys_,
        [this](Connection&) { return admits_; }, store_.platform.Get());
  }
  RestoredFile Restore(const std::string& path) {
    store_.Close();
    DataFileOpener opener(store_.platform.Get(), "a test");
    return opener.Restore(path, store_.Password());
  }
  // At noon, by this machine's clock.
  static void SetWritten(const std::string& path, int year, int month, int day) {
    std::tm noon{};
    noon.tm_year = year - 1900;
    noon.tm_mon = month - 1;
    noon.tm_mday = day;
    noon.tm_hour = 12;
    noon.tm_isdst = -1;
    const utimbuf times{std::mktime(&noon), std::mktime(&noon)};
    ASSERT_EQ(::utime(path.c_str(), &times), 0);
  }
  std::int64_t Rows() { return store_.Number("Select Count(*) from tblTransactions"); }

  FilePasswords passwords_{store_.platform.Get()};
  KeyHolder keys_;
  bool admits_ = true;
  std::string made_;
};

TEST_F(Restores, TellWhatElseThanTransactionsChanges) {
  const std::string path = store_.Path();
  EXPECT_FALSE(Editor().Look(made_)->IsChange());
  store_.Db().Execute("ALTER TABLE tblPayees ADD Colour INT DEFAULT 0");
  store_.Db().Execute("UPDATE tblPayees SET Colour = 0");
  EXPECT_FALSE(Editor().Look(made_)->IsChange()) << "a column that says nothing yet";
  store_.Db().Execute("INSERT INTO tblKeywords ([Keyword]) VALUES ('Holiday')");
  store_.Db().Execute("UPDATE tblPayees SET Description = 'corner shop' WHERE PayeeID = 1");
  store_.Db().Execute("DELETE FROM tblSchedule");
  store_.Db().Execute("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (1,#01/02/2026#,7)");
  const auto plan = Editor().Look(made_);
  ASSERT_TRUE(plan && plan->IsChange());
  std::vector<std::string> told;
  for (const ListChange& change : plan->lists) {
    told.push_back(change.what + " " + std::to_string(change.added > 0 ? 1 : 0) +
                   std::to_string(change.removed) + std::to_string(change.changed));
  }
  EXPECT_EQ(told, (std::vector<std::string>{"Payees 001", "Keywords 010", "Schedules 100",
                                            "Prices 010"}));
  EXPECT_NE(Editor().QuestionOf(*plan).find("Payees, Keywords, Schedules, Prices"),
            std::string::npos);
}

TEST_F(Restores, ThinOutWhatTheyHaveKept) {
  const std::string folder = std::filesystem::path(store_.Path()).parent_path().string() + "/";
  const auto put = [&](const std::string& name) {
    SetWritten(store_.platform.folder.Write("data/" + name, "former rows"), 2026, 1, 1);
  };
  const std::string own = "Corvanta before the summer.dat";
  for (const char* day : {"2026-01-03 10-00", "2026-01-20 10-00", "2026-11-10 09-00",
                          "2026-11-10 11-00", "2026-11-20 10-00", "2026-11-20 10-00 2"}) {
    put(std::string("Corvanta before ") + day + ".dat");
  }
  put(own);
  // Two that are data files of somebody's by now.
  const std::string worked = "Corvanta before 2026-01-05 10-00.dat";
  const std::string locked = "Corvanta before 2026-01-06 10-00.dat";
  put(worked);
  SetWritten(folder + worked, 2026, 1, 6);
  put(locked);
  const auto lock = WriterLock::Acquire(folder + locked, std::string("somebody"));
  Restore(made_);
  std::vector<std::string> kept;
  for (const std::string& name : NamesIn(folder)) {
    if (name.starts_with("Corvanta before ")) kept.push_back(name);
  }
  EXPECT_EQ(kept, (std::vector<std::string>{worked, locked, "Corvanta before 2026-01-20 10-00.dat",
                                            "Corvanta before 2026-11-10 11-00.dat",
                                            "Corvanta before 2026-11-20 10-00 2.dat",
                                            "Corvanta before 2026-11-20 10-00.dat",
                                            "Corvanta before 2026-11-20 18-30.dat", own}));
}

// A backup of a file with a passphrase has it, too, and comes back with it.
TEST_F(Restores, AskForThePassphraseOnceAndKeepIt) {
  const std::string password = NewPasswordFromPassphrase("a phrase of four words");
  store_.Close();
  DataFileOpener opener(store_.platform.Get(), "a test");
  opener.Protect(password);
  SetToday(2026, 11, 21, 18, 30);
  const std::string made = backup_.Make({store_.Path(), password}, {}).path;
  ASSERT_TRUE(WantsPassphrase(made));
  int asked = 0;
  passwords_.SetQuestion([&asked](const std::string&, bool) {
    ++asked;
    return "a phrase of four words";
  });
  const auto sources = Editor().Sources();
  ASSERT_FALSE(sources.empty());
  EXPECT_EQ(sources.front().path, made);
  const auto plan = Editor().Look(made);
  ASSERT_TRUE(plan.has_value());
  EXPECT_EQ(asked, 1);
  EXPECT_FALSE(plan->IsChange()) << "the present file was read for it";
  const RestoredFile restored = opener.Restore(plan->path, plan->password);
  EXPECT_EQ(restored.file.password, password);
  EXPECT_TRUE(WantsPassphrase(store_.Path()));
}

TEST_F(Restores, WorkWithAPassphraseWhenTheDataFileIsCutOffOrGone) {
  const std::string password = NewPasswordFromPassphrase("a phrase of four words");
  store_.Close();
  DataFileOpener opener(store_.platform.Get(), "a test");
  opener.Protect(password);
  SetToday(2026, 11, 21, 18, 30);
  const std::string made = backup_.Make({store_.Path(), password}, {}).path;
  passwords_.SetQuestion([](const std::string&, bool) { return "a phrase of four words"; });
  const std::string whole = ReadFile(store_.Path());
  for (const std::size_t size : {whole.size() / 2, std::size_t{0}}) {
    store_.platform.folder.Write("data/Corvanta.dat", whole.substr(0, size));
    const auto plan = Editor().Look(made);
    ASSERT_TRUE(plan.has_value()) << size;
    EXPECT_FALSE(plan->isPresentRead);
    EXPECT_NE(Editor().QuestionOf(*plan).find("could not be read"), std::string::npos);
    DataFileOpener fresh(store_.platform.Get(), "a test");
    EXPECT_EQ(fresh.Restore(plan->path, plan->password).file.password, password);
  }
  store_.platform.files.Remove(store_.Path());
  ASSERT_TRUE(Editor().Look(made).has_value());
  EXPECT_TRUE(WantsPassphrase(opener.Restore(made, password).file.connection->Path()));
}

// Whoever does not know the passphrase can restore what has another key, and is told what follows.
TEST_F(Restores, SayWhenAPassphraseIsLost) {
  const std::string former = store_.Password();
  store_.Close();
  DataFileOpener(store_.platform.Get(), "a test")
      .Protect(NewPasswordFromPassphrase("a phrase of four words"));
  passwords_.SetQuestion([](const std::string&, bool) { return std::nullopt; });
  const auto sources = Editor().Sources();
  ASSERT_FALSE(sources.empty()) << "those under the former key are offered";
  const auto plan = Editor().Look(sources.front().path);
  ASSERT_TRUE(plan.has_value());
  EXPECT_TRUE(plan->losesPassphrase);
  EXPECT_NE(Editor().QuestionOf(*plan).find("without a passphrase"), std::string::npos);
}

TEST_F(Restores, SayWhenTheLoginPasswordIsLost) {
  LoginPassword(store_.Db()).Set("open sesame");
  const auto plan = Editor().Look(made_);
  ASSERT_TRUE(plan && plan->IsChange());
  EXPECT_NE(Editor().QuestionOf(*plan).find("nobody is asked for a password"), std::string::npos);
  SetToday(2026, 11, 21, 18, 30);
  const auto same = Editor().Look(backup_.Make(File(), {}).path);
  ASSERT_TRUE(same.has_value());
  EXPECT_FALSE(same->IsChange());
}

TEST_F(Restores, BringAttachedFilesBack) {
  Files& files = store_.platform.files;
  const std::string stored = store_.platform.folder.Path("data/FileStore");
  files.CreateFolder(stored);
  store_.platform.folder.Write("data/FileStore/bill.txt", "paid");
  store_.platform.folder.Write("data/FileStore/other.txt", "as it was");
  const std::string made = backup_.Make(File(), {true, false}).path;
  files.Remove(stored + "/bill.txt");
  EXPECT_EQ(RestoreFileStore(made, store_.Path(), files), "");
  EXPECT_EQ(ReadFile(stored + "/bill.txt"), "paid");
  store_.platform.folder.Write("data/FileStore/other.txt", "changed since");
  EXPECT_NE(RestoreFileStore(made, store_.Path(), files), "");
  EXPECT_EQ(ReadFile(stored + "/other.txt"), "changed since");
}

TEST_F(Restores, ABackupFromBeforeThePassphraseComesBackUnderIt) {
  const std::string former = store_.Password();
  const std::string password = NewPasswordFromPassphrase("a phrase of four words");
  store_.Close();
  DataFileOpener opener(store_.platform.Get(), "a test");
  opener.Protect(password);
  EXPECT_EQ(opener.Restore(made_, former).file.password, password);
  EXPECT_TRUE(WantsPassphrase(store_.Path()));
}

TEST_F(Restores, ShowsWhatItWouldChangeAccountByAccount) {
  EXPECT_FALSE(Editor().Look(made_)->IsChange());
  Connection& db = store_.Db();
  db.Execute(
      "INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance) "
      "VALUES ('A new one',2,17,5)");
  db.Execute("Delete from tblTransactions WHERE TransactionID = 1");
  db.Execute("UPDATE tblTransactions SET Description = 'other' WHERE TransactionID = 2");
  db.Execute(
      "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,[Amount],"
      "[Date]) VALUES (1,1,1,1,0,7,#12/31/2027#)");
  const auto plan = Editor().Look(made_);
  ASSERT_TRUE(plan.has_value());
  ASSERT_EQ(plan->changes.size(), 2U);
  const AccountChange& gone = plan->changes[0];
  EXPECT_EQ(gone.Name(), "A new one");
  EXPECT_FALSE(gone.then.has_value());
  EXPECT_EQ(gone.now->balance, 5);
  const AccountChange& kept = plan->changes[1];
  EXPECT_EQ(kept.added, 1U);
  EXPECT_EQ(kept.removed, 1U);
  EXPECT_EQ(kept.changed, 1U);
  EXPECT_EQ(kept.now->rows, kept.then->rows);
  EXPECT_EQ(kept.now->to->ToIso(), "2027-12-31");
  EXPECT_LT(kept.then->to->ToIso(), "2027");
  EXPECT_NEAR(kept.then->balance, 314.49, 0.001);
  const std::string question = Editor().QuestionOf(*plan);
  EXPECT_NE(question.find("1 row of transactions comes back, 1 row of transactions goes"),
            std::string::npos)
      << question;
  EXPECT_NE(question.find("kept beside it"), std::string::npos);
}

TEST_F(Restores, KeepsThePresentFileAndCanBeTakenBack) {
  store_.Db().Execute("Delete from tblTransactions");
  SetToday(2026, 11, 22, 9, 15);
  {
    const RestoredFile restored = Restore(made_);
    EXPECT_EQ(restored.kept,
              store_.platform.folder.Path("data/Corvanta before 2026-11-22 09-15.dat"));
    EXPECT_EQ(restored.file.connection->QueryValue("Select Count(*) from tblTransactions").Int(),
              16);
    EXPECT_EQ(LedgerProblems(*restored.file.connection), std::vector<std::string>{});
  }
  EXPECT_EQ(NumberIn(made_, "Select Count(*) from tblTransactions"), 16) << "the backup stays";
  const auto sources = Editor().Sources();
  ASSERT_EQ(sources.size(), 2U);
  EXPECT_EQ(sources[0].path, made_);
  EXPECT_EQ(sources[0].made->ToIso(), "2026-11-20T18:30:00");
  EXPECT_TRUE(sources[1].isKept);
  { const RestoredFile back = Restore(sources[1].path); }
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(Editor().Sources().size(), 3U) << "and that can be taken back in turn";
  EXPECT_EQ(NamesIn(store_.platform.folder.Path("data")).size(), 4U) << "nothing is left over";
}

TEST_F(Restores, WorkWhenTheDataFileIsDamagedOrGone) {
  store_.Close();
  store_.platform.folder.Write("data/Corvanta.dat", std::string(8192, '?'));
  auto plan = Editor().Look(made_);
  ASSERT_TRUE(plan.has_value());
  EXPECT_FALSE(plan->changes.at(0).now.has_value());
  EXPECT_EQ(plan->changes.at(0).added, plan->changes.at(0).then->rows);
  { const RestoredFile restored = Restore(made_); }
  EXPECT_EQ(Rows(), 16);
  store_.Close();
  store_.platform.files.Remove(store_.Path());
  EXPECT_EQ(Editor().QuestionOf(*Editor().Look(made_)).find("kept beside"), std::string::npos);
  EXPECT_EQ(Restore(made_).kept, "");
  EXPECT_EQ(Rows(), 16);
}

TEST_F(Restores, RefuseDamageAndLeaveTheDataFileAlone) {
  std::string bytes = ReadFile(made_);
  for (std::size_t at = 4096 * 5; at < 4096 * 6; ++at) bytes[at] = static_cast<char>(at);
  const std::string bad = store_.platform.folder.Write("bad.dat", bytes);
  EXPECT_THROW((void)Editor().Look(bad), StoreError);
  const std::string before = ReadFile(store_.Path());
  EXPECT_THROW(Restore(bad), StoreError);
  EXPECT_THROW(Restore(store_.platform.folder.Path("none.dat")), StoreError);
  EXPECT_EQ(ReadFile(store_.Path()), before);
  EXPECT_EQ(NamesIn(store_.platform.folder.Path("data")),
            (std::vector<std::string>{"Backup", "Corvanta.dat"}));
  EXPECT_EQ(Editor().Check("")->text, "You need to select a Backup");
  EXPECT_EQ(Editor().Check(store_.Path())->text,
            "This is the data file itself. Select a Backup of it.");
  const auto lock = WriterLock::Acquire(store_.Path(), "corvanta-cli add");
  EXPECT_THROW(Restore(made_), StoreError);
}

TEST_F(Restores, OfAnotherInstallationNeedItsKey) {
  TestPlatform elsewhere;
  PutDataFile(elsewhere);
  // The fixtures share their key: this installation gets another one.
  const std::string foreign = store_.Password();
  store_.platform.files.Remove(InstallationKeyPath(store_.platform.Get()));
  const std::string brought = store_.platform.folder.Path("brought.dat");
  std::filesystem::copy(made_, brought);
  store_.Close();
  store_.platform.files.Remove(store_.Path());
  EXPECT_FALSE(Editor().Look(brought).has_value());
  EXPECT_EQ(keys_.asked, 1);
  keys_.password = foreign;
  const auto plan = Editor().Look(brought);
  ASSERT_TRUE(plan.has_value());
  EXPECT_EQ(plan->password, foreign);
  EXPECT_THROW((void)Editor().Look(brought, std::string(64, '0')), StoreError);
  DataFileOpener opener(store_.platform.Get(), "a test");
  const RestoredFile restored = opener.Restore(brought, plan->password);
  EXPECT_NE(restored.file.password, foreign) << "it is protected with this installation's";
  EXPECT_EQ(restored.file.connection->QueryValue("Select Count(*) from tblTransactions").Int(), 16);
}

TEST_F(Restores, TakeABackupThatMayNotBeWritten) {
  store_.Db().Execute("Delete from tblTransactions");
  std::filesystem::permissions(made_, std::filesystem::perms::owner_read);
  EXPECT_TRUE(Editor().Look(made_)->IsChange());
  { const RestoredFile restored = Restore(made_); }
  EXPECT_EQ(Rows(), 16);
  store_.Db().Execute("Delete from tblTransactions");
}

TEST_F(Restores, ShowNothingOfAFileWhosePasswordWasNotGiven) {
  admits_ = false;
  EXPECT_FALSE(Editor().Look(made_).has_value());
}

}  // namespace
}  // namespace corvanta
