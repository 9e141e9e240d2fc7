#include "ledger/secrets/PasswordTries.h"
#include "support/FixedClock.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(PasswordTries, EachWrongOneAfterTheThirdDoublesTheWait) {
  FixedClock clock(*DateTime::FromIso("2026-11-21T23:59:58"));
  PasswordTries tries(clock);
  EXPECT_EQ(tries.Wait(), 0);
  std::vector<std::int64_t> waits;
  for (int i = 0; i < 11; ++i) {
    tries.CountWrong();
    waits.push_back(tries.Wait());
  }
  EXPECT_EQ(waits, (std::vector<std::int64_t>{0, 0, 5, 10, 20, 40, 80, 160, 300, 300, 300}));
  clock.Set(*DateTime::FromIso("2026-11-22T00:04:57"));
  EXPECT_EQ(tries.Wait(), 1) << "over midnight";
  clock.Set(*DateTime::FromIso("2026-11-20T12:00:00"));
  EXPECT_EQ(tries.Wait(), 300) << "a clock that was set back";
  tries.Forget();
  EXPECT_EQ(tries.Wait(), 0);
}

}  // namespace
}  // namespace corvanta
