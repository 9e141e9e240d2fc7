// Data files that a passphrase opens.
#include "ledger/secrets/PassphrasePrompt.h"
#include "ledger/secrets/PromptedOpening.h"
#include "platform/Files.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/OpenDataFile.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/opening/KeyRecovery.h"
#include "store/sql/StoreError.h"
#include "support/LedgerProblems.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvanta {
namespace {

constexpr const char* kAny = ScriptedPrompts::kAnyText;
// Slow on purpose, so it is made once.
const std::string& PasswordOfPhrase() {
  static const std::string password = NewPasswordFromPassphrase("correct horse battery");
  return password;
}

class Passphrases : public ::testing::Test {
 protected:
  void SetUp() override { path_ = PutDataFile(machine); }

  DataFileOpener Opener(TestPlatform& platform) {
    DataFileOpener opener(platform.Get(), "a test");
    opener.SetDataPath(path_);
    opener.SetPassphraseQuestion(AskForPassphrase(platform.prompts));
    return opener;
  }
  void Expect(TestPlatform& platform, std::optional<std::string> answer) {
    platform.prompts.ExpectText("Passphrase", kAny, std::move(answer));
  }
  static std::int64_t Rows(DataFile file) {
    return file.connection->QueryValue("SELECT COUNT(*) FROM tblTransactions").Int();
  }

  TestPlatform machine;
  TestPlatform elsewhere;  // a machine without this one's key
  std::string path_;
};

TEST_F(Passphrases, TheFileOpensEverywhereAndNobodyIsShutOut) {
  const std::int64_t rows = Rows(Opener(machine).OpenExisting(false));
  Opener(machine).Protect(PasswordOfPhrase());
  EXPECT_TRUE(WantsPassphrase(path_));
  for (TestPlatform* platform : {&machine, &elsewhere, &machine}) {
    DataFileOpener opener = Opener(*platform);
    Expect(*platform, "correct horse battery");
    EXPECT_EQ(Rows(opener.OpenExisting(true)), rows);
    EXPECT_EQ(Rows(opener.Validate()), rows) << "asked once in a run";
  }
  EXPECT_FALSE(FileExists(InstallationKeyPath(elsewhere.Get()))) << "no key is drawn for it";
}

TEST_F(Passphrases, AWrongOneIsAskedAgainAndTurningBackLeavesTheFile) {
  Opener(machine).Protect(PasswordOfPhrase());
  const std::string before = ReadFile(path_);
  Expect(machine, "correct horse batterY");
  Expect(machine, std::nullopt);
  try {
    (void)Opener(machine).OpenExisting(true);
    FAIL() << "opened";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.Code(), StoreErrorCode::WrongPassphrase);
  }
  EXPECT_EQ(ReadFile(path_), before);
  Expect(machine, "Correct horse battery");
  Expect(machine, "correct horse battery");
  EXPECT_GT(Rows(Opener(machine).OpenExisting(false)), 0);
}

TEST_F(Passphrases, ALetterWithAnAccentMayBeTypedInTwoWays) {
  const std::string password = NewPasswordFromPassphrase("caf\u00e9 au lait");
  Opener(machine).Protect(password);
  EXPECT_EQ(PasswordFromPassphrase("cafe\u0301 au lait", path_), password);
  EXPECT_NE(PasswordFromPassphrase("cafe au lait", path_), password);
}

TEST_F(Passphrases, TheStartOffersAnotherFileToWhoDoesNotKnowIt) {
  const std::int64_t rows = Rows(Opener(machine).OpenExisting(false));
  Opener(machine).Protect(PasswordOfPhrase());
  DataFileOpener opener = Opener(elsewhere);
  PromptedOpening questions(elsewhere.Get());
  Expect(elsewhere, std::nullopt);
  elsewhere.prompts.ExpectChoose("Open Data File", kAny, 0);  // try again
  Expect(elsewhere, "correct horse battery");
  auto file = opener.Open(false, questions);
  ASSERT_TRUE(file.has_value());
  EXPECT_FALSE(file->isRenewed) << "it keeps its passphrase";
  EXPECT_EQ(Rows(std::move(*file)), rows);
}

TEST_F(Passphrases, TheKeyOfTheInstallationComesBack) {
  Opener(machine).Protect(PasswordOfPhrase());
  Expect(machine, "correct horse battery");
  Opener(machine).Protect({});
  EXPECT_FALSE(WantsPassphrase(path_));
  EXPECT_TRUE(OpensWith(path_, InstallationPassword(machine.Get()), machine.Get()));
  EXPECT_FALSE(OpensWith(path_, PasswordOfPhrase(), machine.Get()));
}

TEST_F(Passphrases, NoOtherKeyIsTakenAndThereIsNoneToWriteDown) {
  Opener(machine).Protect(PasswordOfPhrase());
  const std::string key = RecoveryKeyFromPassword(InstallationPassword(machine.Get()));
  try {
    (void)Opener(machine).UseKey(key);
    ADD_FAILURE() << "another key was taken";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.Code(), StoreErrorCode::WrongPassphrase);
  }
  EXPECT_TRUE(WantsPassphrase(path_));
  EXPECT_EQ(RecoveryKeyFromPassword(PasswordOfPhrase()), "");
}

TEST_F(Passphrases, ADamagedBeginningIsNoReasonToChangeAnything) {
  Opener(machine).Protect(PasswordOfPhrase());
  std::string bytes = ReadFile(path_);
  bytes.replace(100, 20, std::string(20, '?'));
  std::filesystem::resize_file(path_, 0);
  machine.files.WriteAtomically(path_, bytes);
  Expect(machine, "correct horse battery");
  Expect(machine, std::nullopt);
  EXPECT_THROW((void)Opener(machine).Validate(), StoreError);
  EXPECT_EQ(ReadFile(path_), bytes);
}

TEST(PassphraseRule, RefusesWhatIsFoundByTrying) {
  struct Case {
    const char* typed;
    const char* again;
    const char* field;  // nullptr when it will do
  };
  for (const auto& [typed, again, field] :
       {Case{"", "", "txtPassphrase"}, Case{"   ", "   ", "txtPassphrase"},
        Case{"elevenchars", "elevenchars", "txtPassphrase"},
        Case{" twelve chars", " twelve chars", "txtPassphrase"},
        Case{"twelve chars", "twelve charS", "txtPassphraseAgain"},
        Case{"twelve chars", "twelve chars", nullptr},
        Case{"äöüäöüäöüäöü", "äöüäöüäöüäöü", nullptr}}) {
    const auto warning = CheckNewPassphrase(typed, again);
    ASSERT_EQ(warning.has_value(), field != nullptr) << typed;
    if (warning) {
      EXPECT_EQ(warning->field, field) << typed;
    }
  }
}

}  // namespace
}  // namespace corvanta
