#include "ledger/clsCorvanta.h"
#include "ledger/investments/PriceBook.h"
#include "ledger/investments/RateBook.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <array>

namespace corvanta {
namespace {

Date Day(const char* iso) {
  return *Date::FromIso(iso);
}

class PriceBookTest : public testing::Test {
 protected:
  TemporaryStore store_{StoreContent::Default};
  clsCorvanta ledger_{store_.Db(), store_.platform.Get()};
};

TEST_F(PriceBookTest, ADayHasOnePriceAndTheNewestDayCounts) {
  PriceBook& prices = ledger_.Prices();
  EXPECT_FALSE(prices.LatestPrice(5));
  prices.StorePrice(5, Day("2026-11-20"), 3);
  prices.StorePrice(5, Day("2026-11-18"), 2);
  prices.StorePrice(5, Day("2026-11-20"), 4);
  prices.StorePrice(6, Day("2026-11-21"), 9);
  EXPECT_EQ(prices.LatestPrice(5)->price, 4);
  const std::vector<PriceRecord> rows = prices.PricesOf(5);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].date, Day("2026-11-20"));
  EXPECT_EQ(rows[1].price, 2);
  // Several of one day, as another program may have left them.
  store_.Db().Execute("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (5,#11/20/2026#,7)");
  EXPECT_EQ(prices.LatestPrice(5)->price, 7) << "the last one added";
  prices.StorePrice(5, Day("2026-11-20"), 8);
  EXPECT_EQ(prices.LatestPrice(5)->price, 8);
}

TEST_F(PriceBookTest, ManyPricesAreOneStep) {
  ledger_.Undo().Start();
  const std::array<DayPrice, 3> days = {
      {{Day("2026-01-02"), 1}, {Day("2026-01-03"), 2}, {Day("2026-01-02"), 3}}};
  EXPECT_TRUE(ledger_.Prices().StorePrices(5, days));
  EXPECT_EQ(ledger_.Prices().PricesOf(5).size(), 2U);
  EXPECT_EQ(ledger_.Prices().PricesOf(5).back().price, 3);
  ledger_.Undo().Undo();
  EXPECT_TRUE(ledger_.Prices().PricesOf(5).empty());
  store_.platform.progress.StopAfter(store_.platform.progress.Yields() + 1);
  EXPECT_FALSE(ledger_.Prices().StorePrices(5, days));
  EXPECT_TRUE(ledger_.Prices().PricesOf(5).empty()) << "stopped, none is stored";
}

TEST_F(PriceBookTest, TheLatestRateOfEitherDirectionIsKnown) {
  RateBook& rates = ledger_.Rates();
  const Date today = Day("2026-11-22");
  EXPECT_FALSE(rates.Latest("EUR", "USD", today));
  rates.Keep({0, "EUR", "USD", Day("2026-11-10"), 1.25, "A service"});
  rates.Keep({0, "USD", "EUR", Day("2026-11-12"), 0.5, kEnteredRate});
  const auto turned = rates.Latest("EUR", "USD", today);
  ASSERT_TRUE(turned);
  EXPECT_EQ(turned->rate, 2);
  EXPECT_EQ(turned->from, "EUR");
  EXPECT_EQ(turned->source, kEnteredRate);
  EXPECT_EQ(rates.Latest("EUR", "USD", Day("2026-11-11"))->rate, 1.25) << "of a day before";
  EXPECT_FALSE(rates.Latest("EUR", "USD", Day("2026-11-09")));
  const std::int64_t key = rates.Keep({0, "EUR", "USD", Day("2026-11-12"), 1.5, "Another"});
  EXPECT_EQ(rates.Latest("EUR", "USD", today)->rate, 1.5) << "its own direction goes first";
  EXPECT_EQ(rates.Keep({0, "EUR", "USD", Day("2026-11-12"), 1.6, "Third"}), key);
  EXPECT_EQ(rates.All().size(), 3U);
  rates.Delete(std::array{key});
  EXPECT_EQ(rates.All().size(), 2U);
}

}  // namespace
}  // namespace corvanta
