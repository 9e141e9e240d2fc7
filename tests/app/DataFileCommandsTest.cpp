#include "app/WindowTest.h"
#include "app/secrets/FrmPassphrase.h"
#include "app/secrets/FrmPassword.h"
#include "app/secrets/FrmRecoveryKey.h"
#include "controls/ListTable.h"
#include "ledger/secrets/LoginPassword.h"
#include "platform/Files.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/Passphrase.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

#include <filesystem>

namespace corvanta {
namespace {

constexpr const char* kValidateTitle = "Validate Data Files";
constexpr const char* kValidateText =
    "This option will validate and fix any problems with the data file.\n"
    " Do you wish to continue?";

class DataFileCommands : public WindowTest {
 protected:
  ~DataFileCommands() override { watch_.stop(); }

  // Types this at every password dialog that comes up, and counts them; empty turns back. Whatever
  // else comes up is counted and closed.
  void AtPassword(const QString& text) {
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this, text] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      const bool isPassword = qobject_cast<FrmPassword*>(dialog) != nullptr;
      ++(isPassword ? asked_ : others_);
      if (!isPassword || text.isEmpty()) return dialog->reject();
      for (auto* field : dialog->findChildren<QLineEdit*>()) QTest::keyClicks(field, text);
      QTest::keyClick(dialog, Qt::Key_Return);
    });
    watch_.start(1);
  }

  QTimer watch_;
  int asked_ = 0;
  int others_ = 0;

  int Rows() { return Find<ListTable>("lvbank").model()->rowCount(); }
};

TEST_F(DataFileCommands, ValidateAsksFirstAndChangesNothingOnNo) {
  OpenData();
  ShowWindow();
  machine_.prompts.ExpectAsk(kValidateTitle, kValidateText, false);
  Trigger("mnuFileValidate");
  EXPECT_EQ(Setting("Reindex"), "(none)");
  EXPECT_TRUE(session_.IsOpen());
}

TEST_F(DataFileCommands, ValidateCleansUpAndShowsTheSameViewAgain) {
  OpenData();
  session_.PostSchedules();
  Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,[Date]) "
      "VALUES (1,1,1,1,4711,#01/01/2026#)");
  ShowWindow();
  const int rows = Rows();
  machine_.prompts.ExpectAsk(kValidateTitle, kValidateText, true);
  Trigger("mnuFileValidate");
  EXPECT_EQ(Setting("Reindex"), "");
  ASSERT_TRUE(session_.IsOpen());
  EXPECT_TRUE(
      session_.Ledger()
          .Store()
          .QueryValue("Select TransactionID from tblTransactions WHERE AllocatedItem = 4711")
          .IsNull());
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 1}));
  EXPECT_EQ(Rows(), rows);
}

TEST_F(DataFileCommands, AFileThatCannotBeValidatedStaysOpenAsItWas) {
  OpenData();
  session_.PostSchedules();
  ShowWindow();
  const int rows = Rows();
  const auto other = WriterLock::Acquire(DataFolder() + "/Corvanta.000", "corvanta-cli validate");
  machine_.prompts.ExpectAsk(kValidateTitle, kValidateText, true);
  machine_.prompts.ExpectTell("Open Data File", ScriptedPrompts::kAnyText);
  Trigger("mnuFileValidate");
  EXPECT_TRUE(session_.IsOpen());
  EXPECT_EQ(Rows(), rows);
}

TEST_F(DataFileCommands, TheRecoveryKeyIsThatOfTheOpenFile) {
  OpenData();
  const std::string password = session_.Password();
  machine_.files.Remove(InstallationKeyPath(machine_.Get()));
  ShowWindow();
  QString shown;
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<FrmRecoveryKey*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    shown = dialog->findChild<QPlainTextEdit*>(QStringLiteral("txtKey"))->toPlainText();
    dialog->reject();
  });
  Trigger("mnuFileKey");
  EXPECT_EQ(PasswordFromRecoveryKey(shown.toStdString()), password);
  EXPECT_FALSE(FileExists(InstallationKeyPath(machine_.Get()))) << "none is drawn for it";

  // One that would not open what stands there by now is not handed out.
  std::filesystem::rename(DataFilePath(), machine_.folder.Path("moved.dat"));
  machine_.folder.Write("data/Corvanta.dat", std::string(8192, '?'));
  machine_.prompts.ExpectTell("Recovery Key", ScriptedPrompts::kAnyText);
  Trigger("mnuFileKey");
}

TEST_F(DataFileCommands, APassphraseIsSetChangedAndTakenAwayAndTheSameViewStandsAgain) {
  OpenData();
  session_.PostSchedules();
  ShowWindow();
  const int rows = Rows();
  // Types this into both fields, after something that will not do; nothing goes back to the key.
  const auto answer = [](const QString& typed) {
    QTimer::singleShot(0, [typed] {
      auto* dialog = qobject_cast<FrmPassphrase*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      auto& first = *dialog->findChild<QLineEdit*>(QStringLiteral("txtPassphrase"));
      auto& again = *dialog->findChild<QLineEdit*>(QStringLiteral("txtPassphraseAgain"));
      auto& key = *dialog->findChild<QCheckBox*>(QStringLiteral("chkKey"));
      if (typed.isEmpty()) {
        EXPECT_TRUE(key.isVisible());
        key.click();
        return QTest::keyClick(dialog, Qt::Key_Return);
      }
      QTest::keyClicks(&first, typed);
      QTest::keyClicks(&again, typed + QStringLiteral("!"));
      QTest::keyClick(dialog, Qt::Key_Return);
      EXPECT_EQ(again.selectedText(), typed + QStringLiteral("!")) << "to be typed over";
      QTest::keyClicks(&again, typed);
      QTest::keyClick(dialog, Qt::Key_Return);
      EXPECT_FALSE(dialog->isVisible());
      dialog->close();
    });
  };
  std::optional<std::string> present;
  for (const char* phrase : {"correct horse battery", "another four words"}) {
    if (present) machine_.prompts.ExpectText("Passphrase", ScriptedPrompts::kAnyText, present);
    answer(QString::fromLatin1(phrase));
    present = phrase;
    machine_.prompts.ExpectTell("Passphrase warning", ScriptedPrompts::kAnyText);
    machine_.prompts.ExpectTell("Passphrase", ScriptedPrompts::kAnyText);
    Trigger("mnuFilePassphrase");
    EXPECT_EQ(PasswordFromPassphrase(phrase, DataFilePath()), session_.Password());
    EXPECT_EQ(Rows(), rows);
  }
  machine_.prompts.ExpectTell("Recovery Key", ScriptedPrompts::kAnyText);
  Trigger("mnuFileKey");
  machine_.prompts.ExpectText("Passphrase", ScriptedPrompts::kAnyText, "some other words");
  machine_.prompts.ExpectTell("Passphrase warning", ScriptedPrompts::kAnyText);
  Trigger("mnuFilePassphrase");
  EXPECT_EQ(PasswordFromPassphrase(*present, DataFilePath()), session_.Password());
  machine_.prompts.ExpectText("Passphrase", ScriptedPrompts::kAnyText, present);
  answer({});
  machine_.prompts.ExpectTell("Passphrase", ScriptedPrompts::kAnyText);
  Trigger("mnuFilePassphrase");
  EXPECT_EQ(session_.Password(), InstallationPassword(machine_.Get()));
  EXPECT_EQ(Rows(), rows);
}

TEST_F(DataFileCommands, OpenChangesToAnotherFileAndRemembersIt) {
  OpenData();
  const std::string other = machine_.folder.Path("other");
  {
    DataFileOpener second(machine_.Get(), "a test");
    second.SetDataPath(other);
    const DataFile made = second.CreateNew(true);
  }
  ShowWindow();
  const std::string path = other + "/Corvanta.dat";
  machine_.prompts.ExpectOpenFile("Select File to Open", path);
  Trigger("mnuFileOpen");
  EXPECT_EQ(session_.Path(), path);
  EXPECT_EQ(Setting("DBPath"), path);
  EXPECT_EQ(window_->Shown().name, kAccountShow);
  const auto& shown = machine_.prompts.Shown().back();
  EXPECT_EQ(shown.file.filterName, "Data Files");
  EXPECT_EQ(shown.file.filterPattern, "*.dat");
}

TEST_F(DataFileCommands, AFileThatCannotBeUsedLeavesTheFormerOneOpen) {
  OpenData();
  session_.PostSchedules();
  const std::string path = machine_.folder.Write("letter.dat", "Dear bank, ");
  ShowWindow();
  const int rows = Rows();
  machine_.prompts.ExpectOpenFile("Select File to Open", path);
  machine_.prompts.ExpectChoose(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText, std::nullopt);
  Trigger("mnuFileOpen");
  EXPECT_EQ(session_.Path(), DataFilePath());
  EXPECT_EQ(Setting("DBPath"), DataFolder());
  EXPECT_EQ(Rows(), rows);
  EXPECT_EQ(ReadFile(path), "Dear bank, ");
}

TEST_F(DataFileCommands, AnotherFileAsksForItsPasswordOnce) {
  OpenData();
  const std::string other = machine_.folder.Path("other");
  {
    DataFileOpener second(machine_.Get(), "a test");
    second.SetDataPath(other);
    const DataFile made = second.CreateNew(true);
    LoginPassword(*made.connection).Set("theirs");
  }
  ShowWindow();
  const std::string path = other + "/Corvanta.dat";
  AtPassword({});
  machine_.prompts.ExpectOpenFile("Select File to Open", path);
  Trigger("mnuFileOpen");
  EXPECT_EQ(session_.Path(), DataFilePath()) << "turned back at the password";
  EXPECT_EQ(asked_, 1);
  watch_.disconnect();
  AtPassword("theirs");
  machine_.prompts.ExpectOpenFile("Select File to Open", path);
  Trigger("mnuFileOpen");
  EXPECT_EQ(session_.Path(), path);
  machine_.prompts.ExpectAsk(kValidateTitle, kValidateText, true);
  Trigger("mnuFileValidate");
  EXPECT_EQ(session_.Path(), path);
  EXPECT_EQ(asked_, 2);
}

TEST_F(DataFileCommands, ThePasswordStandsBeforeTheRecoveryKey) {
  OpenData();
  ShowWindow();
  AtPassword("secret");
  Trigger("mnuFilePassword");
  EXPECT_TRUE(LoginPassword(session_.Ledger().Store()).Matches("secret"));
  EXPECT_TRUE(LoginPassword(session_.Ledger().Store()).IsAsked());
  Trigger("mnuFileKey");
  EXPECT_EQ(asked_, 2);
  EXPECT_EQ(others_, 1) << "the key is shown";
  watch_.disconnect();
  AtPassword({});
  Trigger("mnuFileKey");
  EXPECT_EQ(others_, 1) << "and is not, without the password";
}

TEST_F(DataFileCommands, NoSecretIsShownOfAFileThatIsNotOpen) {
  PutDataFile(machine_);
  ShowWindow();
  EXPECT_FALSE(Find<QAction>("mnuFileKey").isEnabled());
  EXPECT_FALSE(Find<QAction>("mnuFilePassword").isEnabled());
}

TEST_F(DataFileCommands, CancellingOpenKeepsEverything) {
  OpenData();
  ShowWindow();
  machine_.prompts.ExpectOpenFile("Select File to Open", std::nullopt);
  Trigger("mnuFileOpen");
  EXPECT_TRUE(session_.IsOpen());
  EXPECT_EQ(Setting("DBPath"), DataFolder());
}

TEST_F(DataFileCommands, AStatementThatFailsIsToldAndTheWindowGoesOn) {
  OpenData();
  ShowWindow();
  Run("DROP TABLE tblPayments");
  machine_.prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  Trigger("mnuViewRefresh");
  Trigger("mnuViewAccounts");
  EXPECT_EQ(window_->Shown().name, kAccountShow);
}

TEST_F(DataFileCommands, RowsThatCannotBeReadAsTheyAreDrawnAreToldOnce) {
  OpenData();
  ShowWindow();
  Run("DROP TABLE tblAttachments");
  Trigger("mnuViewRefresh");
  machine_.prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  window_->grab();
  window_->grab();
  QApplication::processEvents();
  Trigger("mnuViewAccounts");
  EXPECT_EQ(window_->Shown().name, kAccountShow);
}

}  // namespace
}  // namespace corvanta
