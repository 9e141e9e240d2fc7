#include "ledger/Money.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvanta {
namespace {

TEST(Money, SumsLoseTheirBinaryNoise) {
  EXPECT_EQ(RoundMoney(0.1 + 0.2), 0.3);
  EXPECT_EQ(RoundMoney(500.0 - 200.0 - 30.0 - 45.46), 224.54);
  double balance = 0;
  for (int i = 0; i < 100000; ++i) balance = RoundMoney(balance + 0.01);
  EXPECT_EQ(balance, 1000.0);
}

TEST(Money, NothingBecomesMinusZero) {
  EXPECT_FALSE(std::signbit(RoundMoney(-0.0)));
  EXPECT_FALSE(std::signbit(RoundMoney(-1e-12)));
  EXPECT_FALSE(std::signbit(RoundMoney(0.3 - 0.1 - 0.2)));
}

TEST(Money, LargeSumsKeepTheirCents) {
  EXPECT_EQ(RoundMoney(9100000000.10 + 0.20), 9100000000.30);
  EXPECT_EQ(RoundMoney(912345678901.10 + 0.20), 912345678901.30);
  EXPECT_EQ(RoundMoney(9999999999999.01 - 0.02), 9999999999998.99);
  EXPECT_EQ(RoundMoney(1e15 + 1.0), 1e15 + 1.0) << "too large for cents";
}

TEST(Money, IsRoundedToTheDecimalsOfItsCurrency) {
  EXPECT_EQ(RoundToCurrency(12.505, "USD"), 12.51) << "half away from zero, as it is written";
  EXPECT_EQ(RoundToCurrency(-12.5, "JPY"), -13);
  EXPECT_EQ(RoundToCurrency(12.5, "clp"), 13);
  EXPECT_EQ(RoundToCurrency(1.2345, "KWD"), 1.235);
  EXPECT_EQ(RoundToCurrency(12.5, "RSD"), 12.5) << "prices have none, accounts do";
  EXPECT_EQ(RoundToCurrency(12.345, ""), 12.35);
  EXPECT_FALSE(std::signbit(RoundToCurrency(-0.001, "EUR")));
}

TEST(Money, KeepsWhatIsTooLargeToRound) {
  EXPECT_EQ(RoundMoney(123456789012.25), 123456789012.25);
  EXPECT_TRUE(std::isnan(RoundMoney(std::nan(""))));
}

}  // namespace
}  // namespace corvanta
