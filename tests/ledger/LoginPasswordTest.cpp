#include "ledger/LedgerTest.h"
#include "ledger/LoginPassword.h"

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

}  // namespace
}  // namespace corvanta
