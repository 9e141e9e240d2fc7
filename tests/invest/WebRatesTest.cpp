#include "invest/InvestTest.h"
#include "invest/rates/WebRates.h"
#include "ledger/investments/RateBook.h"
#include "platform/Download.h"

namespace corvanta {
namespace {

using namespace std::chrono_literals;

// Lets a download take time by the test's own watch.
class SlowDownload : public Download {
 public:
  SlowDownload(ScriptedDownload& answers, WebRates::Time& now) : answers_(answers), now_(now) {}
  void ToFile(const std::string& url, const std::string& path, const GoesOn& goesOn) override {
    now_ += takes;
    answers_.ToFile(url, path, goesOn);
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
  // The rate alone, which is a fresh one.
  std::optional<double> Rate(const std::string& from, const std::string& to) {
    const auto answer = rates_.Rate(from, to);
    if (!answer) return std::nullopt;
    EXPECT_FALSE(answer->day);
    EXPECT_EQ(answer->notice, "");
    return answer->rate;
  }
  void Forget() { Store().Execute("DELETE FROM own_Rates"); }

  clsCorvanta ledger_{Store(), platform_};
  WebRates rates_{ledger_, platform_, [this] { return now_; }};
};

TEST_F(WebRatesTest, ARateServesForAMinute) {
  AnswerRate("EURUSD", "1.25");
  EXPECT_EQ(Rate("EUR", "USD"), 1.25);
  AnswerRate("EURUSD", "1.5");
  now_ += 50s;
  EXPECT_EQ(Rate("EUR", "USD"), 1.25);
  EXPECT_EQ(Downloads(), 1U);
  now_ += 10s;
  EXPECT_EQ(Rate("EUR", "USD"), 1.5);
  Forget();
  EXPECT_EQ(Rate("USD", "EUR"), std::nullopt) << "the other direction is a rate of its own";
}

TEST_F(WebRatesTest, OneAndTheSameCurrencyIsNotAskedFor) {
  EXPECT_EQ(Rate("EUR", "EUR"), 1);
  EXPECT_EQ(Downloads(), 0U);
}

TEST_F(WebRatesTest, ARateBelowZeroIsNone) {
  AnswerRate("EURUSD", "-1.25");
  EXPECT_EQ(Rate("EUR", "USD"), std::nullopt);
}

TEST_F(WebRatesTest, ABrokenAnswerConvertsAtParWhichIsSaidAndNotKept) {
  AnswerRate("EURUSD", "N/A");
  const auto answer = rates_.Rate("EUR", "USD");
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->rate, 1);
  EXPECT_EQ(answer->notice,
            "The answer of Yahoo Currency held no rate. One EUR was taken for one USD.");
  EXPECT_TRUE(ledger_.Rates().All().empty());
  AnswerRate("EURUSD", "1.25");
  EXPECT_EQ(Rate("EUR", "USD"), 1.25);
  AnswerRate("EURUSD", "<html>, is this, a robot</html>");
  now_ += 61s;
  EXPECT_EQ(rates_.Rate("EUR", "USD")->rate, 1.25) << "a rate that is known goes before 1";
}

TEST_F(WebRatesTest, TheLatestRateKnownServesWhereNoneCanBeFetched) {
  AnswerRate("EURUSD", "1.25");
  EXPECT_EQ(Rate("EUR", "USD"), 1.25);
  const std::vector<RateRecord> kept = ledger_.Rates().All();
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_EQ(kept[0].date, Machine().clock.Today());
  EXPECT_EQ(kept[0].source, "Yahoo Currency");
  ledger_.Rates().Keep({0, "GBP", "JPY", *Date::FromIso("2024-02-29"), 190.5, kEnteredRate});
  const auto old = rates_.Rate("JPY", "GBP");
  ASSERT_TRUE(old);
  EXPECT_DOUBLE_EQ(old->rate, 1 / 190.5);
  EXPECT_EQ(old->day, Date::FromIso("2024-02-29"));
  EXPECT_EQ(
      old->notice,
      "Could not connect to website. The rate of 29/02/2024 was used: 1 JPY = 0.00524934 GBP.");
}

TEST_F(WebRatesTest, WhatThePersonStopsIsNoFailureAndAskedForAgain) {
  AnswerRate("EURUSD", "1.25");
  slow_.takes = 5s;
  Machine().progress.StopAfter(0);
  EXPECT_FALSE(rates_.Rate("EUR", "USD"));
  EXPECT_TRUE(rates_.WasStopped());
  Machine().progress.StopAfter(1000);
  EXPECT_EQ(Rate("EUR", "USD"), 1.25);
  EXPECT_FALSE(rates_.WasStopped());
  now_ += 90s;
  Machine().progress.StopAfter(0);
  const auto known = rates_.Rate("EUR", "USD");
  ASSERT_TRUE(known);
  EXPECT_TRUE(known->notice.starts_with("The download was stopped. The rate of ")) << known->notice;
}

TEST_F(WebRatesTest, AQuickRefusalConcernsItsPairAlone) {
  AnswerRate("GBPUSD", "1.3");
  EXPECT_EQ(Rate("EUR", "USD"), std::nullopt);
  EXPECT_EQ(Rate("EUR", "USD"), std::nullopt);
  EXPECT_EQ(Downloads(), 1U);
  EXPECT_EQ(Rate("GBP", "USD"), 1.3);
  AnswerRate("EURUSD", "1.25");
  now_ += 3s;
  EXPECT_EQ(Rate("EUR", "USD"), 1.25);
}

TEST_F(WebRatesTest, ADeadServiceCostsOneWaitForAllRates) {
  AnswerRate("GBPUSD", "1.3");
  EXPECT_EQ(Rate("GBP", "USD"), 1.3);
  slow_.takes = 4s;
  const auto start = now_;
  for (const char* code : {"EUR", "CHF", "JPY", "SEK", "NOK"}) {
    EXPECT_EQ(Rate(code, "USD"), std::nullopt) << code;
  }
  EXPECT_EQ(now_ - start, 4s);
  EXPECT_EQ(Rate("GBP", "USD"), 1.3) << "what was fetched still serves";
  now_ += 10s;
  AnswerRate("EURUSD", "1.25");
  EXPECT_EQ(Rate("EUR", "USD"), 1.25);
}

TEST_F(WebRatesTest, AFileWithoutItsTableGivesNoRateAndThrowsNothing) {
  Store().Execute("DROP TABLE tblStockData");
  EXPECT_EQ(Rate("EUR", "USD"), std::nullopt);
}

}  // namespace
}  // namespace corvanta
