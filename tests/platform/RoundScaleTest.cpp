#include "platform/RoundScale.h"

#include <gtest/gtest.h>

#include <vector>

namespace corvanta {
namespace {

TEST(RoundScale, MarksCanBeCountedWith) {
  EXPECT_EQ(ScaleOf(0, 200, 5).Marks(), (std::vector<double>{0, 50, 100, 150, 200}));
  const RoundScale small = ScaleOf(-0.013, 0.02, 5);
  EXPECT_EQ(small.decimals, 2);
  EXPECT_LE(small.low, -0.013);
  EXPECT_GE(small.high, 0.02);
  const RoundScale none = ScaleOf(7, 7, 5);
  EXPECT_LT(none.low, 7);
  EXPECT_GT(none.high, 7);
}

}  // namespace
}  // namespace corvanta
