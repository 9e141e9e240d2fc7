#include "invest/InvestTest.h"
#include "invest/prices/PriceRound.h"
#include "store/sql/UndoLog.h"

namespace corvanta {
namespace {

class PriceRoundTest : public InvestTest {
 protected:
  PriceRoundTest() {
    ledger_.Undo().Start();
    Store().Execute("UPDATE tblStockData SET [URL] = 'http://one.test/STOCK' WHERE DataID = 2");
    Store().Execute("UPDATE tblStockData SET [URL] = 'http://two.test/STOCK' WHERE DataID = 3");
    for (int i = 0; i < 6; ++i) {
      const std::string n = std::to_string(i);
      Store().Execute(
          "INSERT INTO tblPayees (PayeeID,Payee,[Symbol],CurrencyID,InvestCurrencyID,DataID,"
          "[Conversion],Investment) VALUES (5" +
          n + ",'Share " + n + "','S" + n + "',17,17," + (i < 4 ? "2" : "3") + ",1,1)");
    }
  }
  void Answer(const std::string& address, const std::string& value) {
    Machine().download.Answer("http://" + address,
                              "\"S\"," + value + ",\"11/20/2026\",\"5pm\",1,2\r\n");
  }
  std::int64_t Prices() { return store_.Number("SELECT COUNT(*) FROM tblHistory"); }

  clsCorvanta ledger_{Store(), Services()};
  PriceRound round_{ledger_, Services()};
};

TEST_F(PriceRoundTest, TellsNobodyAnythingOnTheWayAndSaysWhatIsMissing) {
  for (const char* address : {"two.test/S4", "two.test/S5"}) Answer(address, "7.5");
  Answer("two.test/S5", "N/A");
  const PriceRound::Result result = round_.Download(round_.All());
  EXPECT_EQ(result.stored, 1U);
  EXPECT_EQ(Prices(), 1);
  EXPECT_EQ(Downloads(), 3U) << "of the first source, which is dead, one alone";
  ASSERT_EQ(result.remarks.size(), 5U);
  EXPECT_EQ(result.remarks.back().asked.investment, "Share 5");
  EXPECT_TRUE(result.remarks.back().why.starts_with("Invalid Symbol S5 entered."));
  const std::string text = RemarksText(result.remarks);
  EXPECT_NE(text.find("Share 1, Share 2, Share 3: The service does not answer."), std::string::npos)
      << text;
  EXPECT_EQ(Machine().progress.Status(), "");
  EXPECT_EQ(Machine().progress.Steps().back(), std::pair(std::size_t{0}, std::size_t{0}));
}

TEST_F(PriceRoundTest, ThePersonStopsItAndKeepsWhatCameInOneStep) {
  for (const char* address : {"one.test/S0", "one.test/S1", "one.test/S2"}) Answer(address, "3");
  Answer("one.test/S3", "3");
  const std::size_t before = Machine().progress.Yields();
  static_cast<void>(round_.Download({round_.All().front()}));
  const std::size_t each = Machine().progress.Yields() - before;
  Store().Execute("DELETE FROM tblHistory");
  Machine().progress.StopAfter(Machine().progress.Yields() + 2 * each);
  const PriceRound::Result result = round_.Download(round_.All());
  EXPECT_TRUE(result.wasStopped);
  EXPECT_EQ(result.stored, 2U);
  EXPECT_TRUE(result.remarks.empty()) << "stopping is no failure";
  EXPECT_EQ(Prices(), 2);
  ledger_.Undo().Undo();
  EXPECT_EQ(Prices(), 0);
}

}  // namespace
}  // namespace corvanta
