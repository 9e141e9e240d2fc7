#include "app/ChangeFollower.h"
#include "controls/ChangeNotice.h"

#include <QCoreApplication>
#include <QDialog>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(ChangeFollower, ReadsOnceAfterChangesThatAreToldTogether) {
  QWidget window;
  int reads = 0;
  new ChangeFollower(window, [&] { ++reads; });
  QDialog dialog(&window);
  TellBehind(dialog);
  QCoreApplication::processEvents();
  EXPECT_EQ(reads, 0) << "no dialog stands before it";
  dialog.open();
  for (int change = 0; change < 3; ++change) TellBehind(dialog);
  QCoreApplication::processEvents();
  EXPECT_EQ(reads, 1);
  TellBehind(dialog);
  QCoreApplication::processEvents();
  EXPECT_EQ(reads, 2);
}

}  // namespace
}  // namespace corvanta
