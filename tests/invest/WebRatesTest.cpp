#include "invest/InvestTest.h"
#include "invest/WebRates.h"
#include "platform/Download.h"

namespace corvanta {
namespace {

using namespace std::chrono_literals;

// Lets a download take time by the test's own watch.
class SlowDownload : public Download {
 public:
  SlowDownload(ScriptedDownload& answers, WebRates::Time& now) : answers_(answers), now_(now) {}
  void ToFile(const std::string& url, const std::string& path) override {
    now_ += takes;
    answers_.ToFile(url, path);
  }
  std::chrono::milliseconds takes{100};

 private:
  ScriptedDownload& answers_;
  WebRates::Time& now_;
};

class WebRatesTest : public InvestTest {
 protected:
  WebRates::Time now_{};
  SlowDownload slow_{Machine().download, now_};
  Platform platform_{Machine().registry,
                     Machine().locale,
                     Machine().clock,
                     Machine().machine,
                     Machine().files,
                     Machine().prompts,
                     Machine().progress,
                     slow_,
                     Machine().opener,
                     Machine().spreadsheet,
                     "",
                     ""};
  WebRates rates_{Store(), platform_, [this] { return now_; }};
};

TEST_F(WebRatesTest, ARateServesForAMinute) {
  AnswerRate("EURUSD", "1.25");
  EXPECT_EQ(rates_.Rate("EUR", "USD"), 1.25);
  AnswerRate("EURUSD", "1.5");
  now_ += 50s;
  EXPECT_EQ(rates_.Rate("EUR", "USD"), 1.25);
  EXPECT_EQ(Downloads(), 1U);
  now_ += 10s;
  EXPECT_EQ(rates_.Rate("EUR", "USD"), 1.5);
  EXPECT_EQ(rates_.Rate("USD", "EUR"), std::nullopt) << "the other direction is a rate of its own";
}

TEST_F(WebRatesTest, OneAndTheSameCurrencyIsNotAskedFor) {
  EXPECT_EQ(rates_.Rate("EUR", "EUR"), 1);
  EXPECT_EQ(Downloads(), 0U);
}

TEST_F(WebRatesTest, ARateBelowZeroIsNone) {
  AnswerRate("EURUSD", "-1.25");
  EXPECT_EQ(rates_.Rate("EUR", "USD"), std::nullopt);
}

TEST_F(WebRatesTest, ABrokenAnswerConvertsAtParAndIsNotKept) {
  AnswerRate("EURUSD", "N/A");
  EXPECT_EQ(rates_.Rate("EUR", "USD"), 1);
  AnswerRate("EURUSD", "1.25");
  EXPECT_EQ(rates_.Rate("EUR", "USD"), 1.25);
}

TEST_F(WebRatesTest, AQuickRefusalConcernsItsPairAlone) {
  AnswerRate("GBPUSD", "1.3");
  EXPECT_EQ(rates_.Rate("EUR", "USD"), std::nullopt);
  EXPECT_EQ(rates_.Rate("EUR", "USD"), std::nullopt);
  EXPECT_EQ(Downloads(), 1U);
  EXPECT_EQ(rates_.Rate("GBP", "USD"), 1.3);
  AnswerRate("EURUSD", "1.25");
  now_ += 3s;
  EXPECT_EQ(rates_.Rate("EUR", "USD"), 1.25);
}

TEST_F(WebRatesTest, ADeadServiceCostsOneWaitForAllRates) {
  AnswerRate("GBPUSD", "1.3");
  EXPECT_EQ(rates_.Rate("GBP", "USD"), 1.3);
  slow_.takes = 4s;
  const auto start = now_;
  for (const char* code : {"EUR", "CHF", "JPY", "SEK", "NOK"}) {
    EXPECT_EQ(rates_.Rate(code, "USD"), std::nullopt) << code;
  }
  EXPECT_EQ(now_ - start, 4s);
  EXPECT_EQ(rates_.Rate("GBP", "USD"), 1.3) << "what is known still serves";
  now_ += 10s;
  AnswerRate("EURUSD", "1.25");
  EXPECT_EQ(rates_.Rate("EUR", "USD"), 1.25);
}

TEST_F(WebRatesTest, AFileWithoutItsTableGivesNoRateAndThrowsNothing) {
  Store().Execute("DROP TABLE tblStockData");
  EXPECT_EQ(rates_.Rate("EUR", "USD"), std::nullopt);
}

}  // namespace
}  // namespace corvanta
