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

TEST(Money, KeepsWhatIsTooLargeToRound) {
  EXPECT_EQ(RoundMoney(123456789012.25), 123456789012.25);
  EXPECT_TRUE(std::isnan(RoundMoney(std::nan(""))));
}

}  // namespace
}  // namespace corvanta
