#include "invest/InvestTest.h"
#include "invest/prices/PriceDownload.h"
#include "ledger/investments/PriceBook.h"
#include "ledger/investments/RateBook.h"
#include "platform/IcuLocale.h"

namespace corvanta {
namespace {

constexpr std::int64_t kUsd = 140;
constexpr std::int64_t kGbp = 17;

class PriceDownloadTest : public InvestTest {
 protected:
  PriceDownloadTest() {
    Store().Execute("UPDATE tblStockData SET [URL] = 'http://quotes.test/STOCK' WHERE DataID = 2");
    Store().Execute(
        "INSERT INTO tblPayees (PayeeID,Payee,[Symbol],CurrencyID,InvestCurrencyID,DataID,"
        "[Conversion],Investment) VALUES (50,'Telecom','BT-A.L',17,17,2,0.01,1)");
  }
  void Quote(const std::string& value) {
    Machine().download.Answer("http://quotes.test/BT-A.L",
                              "\"BT-A.L\"," + value + ",\"11/20/2026\",\"5:30pm\",+1,2,3,4,5\r\n");
  }
  void Set(const std::string& column, const std::string& value) {
    Store().Execute("UPDATE tblPayees SET [" + column + "] = " + value + " WHERE PayeeID = 50");
  }
  // The price that was stored; -1 for none.
  double Downloaded() {
    const auto stored = download_.DownloadInvestmentPrice(50);
    if (!stored) return -1;
    EXPECT_EQ(stored->date, Machine().clock.Today());
    EXPECT_EQ(ledger_.Prices().LatestPrice(50)->price, stored->price);
    return stored->price;
  }
  std::int64_t Prices() {
    return store_.Number("SELECT COUNT(*) FROM tblHistory WHERE PayeeID = 50");
  }
  void Refused(const char* title, const char* text) {
    Machine().prompts.ExpectTell(title, text);
    EXPECT_EQ(Downloaded(), -1);
    EXPECT_EQ(Prices(), 0);
  }

  clsCorvanta ledger_{Store(), Services()};
  PriceDownload download_{ledger_, Services()};
};

TEST_F(PriceDownloadTest, TheQuoteTimesItsConversionIsTodaysPrice) {
  Quote("316.5");
  EXPECT_DOUBLE_EQ(Downloaded(), 3.165);
  Quote("1320");
  EXPECT_DOUBLE_EQ(Downloaded(), 13.2);
  EXPECT_EQ(Prices(), 1) << "a second one of the day takes its place";
  Set("Conversion", "NULL");
  EXPECT_DOUBLE_EQ(Downloaded(), 1320);
  Set("Conversion", "0");
  EXPECT_DOUBLE_EQ(Downloaded(), 1320);
  EXPECT_EQ(download_.Note(), "");
}

TEST_F(PriceDownloadTest, WhatIsQuotedInAnotherCurrencyIsConverted) {
  Set("InvestCurrencyID", std::to_string(kUsd));
  Set("Conversion", "1");
  Quote("10");
  AnswerRate("USDGBP", "0.8");
  EXPECT_DOUBLE_EQ(Downloaded(), 8);
  EXPECT_EQ(ledger_.Rates().Latest("USD", "GBP", Machine().clock.Today())->rate, 0.8);
  Quote("0");
  const std::size_t before = Downloads();
  EXPECT_EQ(Downloaded(), 0);
  EXPECT_EQ(Downloads(), before + 1) << "nothing needs no rate";
}

TEST_F(PriceDownloadTest, WithoutARateNothingIsStored) {
  Set("InvestCurrencyID", std::to_string(kUsd));
  Quote("10");
  Refused("Download Warning", "Could not connect to website");
  EXPECT_NE(download_.Note(), "");
}

TEST_F(PriceDownloadTest, ABrokenRateCountsAsOneAndThePersonIsTold) {
  Set("InvestCurrencyID", std::to_string(kUsd));
  Set("Conversion", "1");
  Quote("10");
  AnswerRate("USDGBP", "N/A");
  Machine().prompts.ExpectTell(
      "Download Warning",
      "The answer of Yahoo Currency held no rate. One USD was taken for one GBP.");
  EXPECT_EQ(Downloaded(), 10);
  EXPECT_FALSE(ledger_.Rates().Latest("USD", "GBP", Machine().clock.Today()));
}

TEST_F(PriceDownloadTest, WhatIsNoPriceIsNeverStored) {
  Refused("Download Warning", "Could not connect to website");
  for (const char* answer : {"", "\"BT-A.L\",N/A,x,y", "\"BT-A.L\",12", "<html><b>12</b></html>",
                             "<html>Wait, we check, that you, are no robot</html>"}) {
    Machine().download.Answer("http://quotes.test/BT-A.L", answer);
    Refused("Download Warning", "Invalid Symbol BT-A.L entered");
    EXPECT_NE(download_.Note(), "") << answer;
  }
  Set("DataID", "7");
  Refused("Download Warning", "Could not connect to website");
  Set("DataID", "0");
  Refused("Download Warning", "Could not connect to website");
  Set("DataID", "99");
  Refused("Download Warning", "Could not connect to website");
  Set("Symbol", "' '");
  Refused("Save Warning", "You need to enter a Symbol");
  EXPECT_EQ(download_.DownloadInvestmentPrice(999), std::nullopt);
}

}  // namespace
}  // namespace corvanta
