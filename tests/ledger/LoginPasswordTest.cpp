#include "ledger/LedgerTest.h"
#include "ledger/secrets/LoginGate.h"
#include "ledger/secrets/LoginPassword.h"
#include "platform/Settings.h"

namespace corvanta {
namespace {

class Login : public LedgerTest {
 protected:
  std::string Stored() {
    return Store().QueryValue("Select [Password] from tblVerification").Text();
  }
  LoginPassword password_{Store()};
};

TEST_F(Login, TheFirstTypedTextBecomesThePassword) {
  EXPECT_FALSE(password_.IsSet());
  EXPECT_TRUE(password_.Accept("  sésame 1 "));
  EXPECT_TRUE(password_.IsSet());
  EXPECT_TRUE(password_.Accept("sésame 1"));
  EXPECT_TRUE(password_.Matches(" sésame 1"));
  for (const char* wrong : {"", "sésame", "Sésame 1", "sésame  1"}) {
    EXPECT_FALSE(password_.Accept(wrong)) << wrong;
  }
  EXPECT_LE(Stored().size(), 50U);
  EXPECT_EQ(Stored().find("same"), std::string::npos);
}

TEST_F(Login, TheSamePasswordIsNeverStoredTheSameWay) {
  password_.Set("twice");
  const std::string first = Stored();
  password_.Set("twice");
  EXPECT_NE(Stored(), first);
  password_.Set(" ");
  EXPECT_FALSE(password_.IsSet());
}

TEST_F(Login, AReadablePasswordIsTakenOverAndHidden) {
  Run("UPDATE tblVerification SET [Password] = 'plain'");
  EXPECT_FALSE(password_.Accept("other"));
  EXPECT_EQ(Stored(), "plain");
  EXPECT_TRUE(password_.Matches("plain"));
  EXPECT_EQ(Stored(), "plain");
  EXPECT_TRUE(password_.Accept("plain"));
  EXPECT_NE(Stored(), "plain");
  EXPECT_TRUE(password_.Accept("plain"));
}

TEST_F(Login, ADamagedHashAcceptsNothing) {
  password_.Set("right");
  const std::string damaged = Stored().substr(0, 49) + "!";
  Run("UPDATE tblVerification SET [Password] = '" + damaged + "'");
  EXPECT_FALSE(password_.Accept("right"));
  EXPECT_FALSE(password_.Accept(""));
}

// A password of an earlier version, asked for by a setting, is the file's own from then on.
TEST_F(Login, TheFileDecidesAndASettingCannotPassItBy) {
  Settings settings(machine_.registry);
  password_.Set("right");
  const std::string former = "1$" + Stored().substr(2);
  for (const std::string& kept : {former, std::string("right")}) {
    Run("UPDATE tblVerification SET [Password] = '" + kept + "'");
    settings.SetOn(Setting::Login, false);
    EXPECT_FALSE(LoginGate(machine_.registry).Asks(Store())) << kept;
    settings.SetOn(Setting::Login, true);
    EXPECT_TRUE(LoginGate(machine_.registry).Asks(Store())) << kept;
    settings.SetOn(Setting::Login, false);
    LoginGate gate(machine_.registry);
    EXPECT_TRUE(gate.Asks(Store())) << kept;
    EXPECT_FALSE(gate.Admit(Store(), "wrong"));
    EXPECT_TRUE(gate.Asks(Store()));
    EXPECT_TRUE(gate.Admit(Store(), "right"));
    EXPECT_FALSE(gate.Asks(Store())) << "asked once";
    EXPECT_EQ(Stored().find("right"), std::string::npos);
  }
  password_.Set("another");
  LoginGate gate(machine_.registry);
  EXPECT_TRUE(gate.Asks(Store()));
  password_.Set("");
  settings.SetOn(Setting::Login, true);
  EXPECT_FALSE(gate.Asks(Store()));
}

TEST_F(Login, AFileWithoutItsHousekeepingRowAsksForNothing) {
  Run("DROP TABLE tblVerification");
  EXPECT_FALSE(password_.IsSet());
  EXPECT_FALSE(LoginGate(machine_.registry).Asks(Store()));
}

}  // namespace
}  // namespace corvanta
