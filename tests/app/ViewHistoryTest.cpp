#include "app/ViewHistory.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

ViewCommand Register(std::int64_t account) {
  return {kTransactionShow, account};
}

TEST(ViewHistory, GoesBackAndForward) {
  ViewHistory history;
  EXPECT_FALSE(history.Back());
  history.Push(Register(1));
  history.Push(Register(2));
  history.Push(Register(2));
  history.Push({kAccountShow, 0});
  EXPECT_EQ(history.Back(), Register(2));
  EXPECT_EQ(history.Back(), Register(1));
  EXPECT_FALSE(history.Back());
  EXPECT_EQ(history.Forward(), Register(2));
  history.Push(Register(3));
  EXPECT_FALSE(history.CanGoForward()) << "a new view forgets what lay ahead";
  EXPECT_EQ(history.Back(), Register(2));
}

TEST(ViewHistory, ForgetsWhatItsSlotsDoNotHold) {
  ViewHistory history;
  for (int account = 1; account <= 30; ++account) history.Push(Register(account));
  int steps = 0;
  std::optional<ViewCommand> last;
  while (const auto view = history.Back()) {
    last = view;
    ++steps;
  }
  EXPECT_EQ(steps, 19);
  EXPECT_EQ(last, Register(11));
}

}  // namespace
}  // namespace corvanta
