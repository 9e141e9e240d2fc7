#include "app/start/QtWindowBell.h"
#include "support/TestPlatform.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

constexpr int kLong = 60000;  // on a busy machine; it does not take that long

class WindowBell : public testing::Test {
 protected:
  TestPlatform machine_;
  std::string file_ = machine_.folder.Write("Corvanta.dat", "rows");
  std::string other_ = machine_.folder.Write("Other.dat", "rows");
  QtWindowBell bell_;
  QSignalSpy rung_{&bell_, &QtWindowBell::Rung};
};

TEST_F(WindowBell, IsFoundByItsDataFileAlone) {
  EXPECT_FALSE(QtWindowBell::Ring(file_, {}));
  bell_.ListenFor(file_);
  EXPECT_FALSE(QtWindowBell::Ring(other_, {}));
  EXPECT_TRUE(QtWindowBell::Ring(machine_.folder.Path("./Corvanta.dat"), {}));
  ASSERT_TRUE(rung_.wait(kLong));
  EXPECT_EQ(rung_.takeFirst().at(0).toString(), "");
  EXPECT_TRUE(QtWindowBell::Ring(file_, "/home/me/Bänk export.csv"));
  ASSERT_TRUE(rung_.wait(kLong));
  EXPECT_EQ(rung_.takeFirst().at(0).toString().toStdString(), "/home/me/Bänk export.csv");
  bell_.ListenFor(other_);
  EXPECT_FALSE(QtWindowBell::Ring(file_, {}));
  EXPECT_TRUE(QtWindowBell::Ring(other_, {}));
  bell_.ListenFor({});
  EXPECT_FALSE(QtWindowBell::Ring(other_, {}));
}

TEST_F(WindowBell, TakesThePlaceOfOneWhoseProgramIsGone) {
  QtWindowBell former;
  former.ListenFor(file_);
  bell_.ListenFor(file_);
  EXPECT_TRUE(QtWindowBell::Ring(file_, {}));
  EXPECT_TRUE(rung_.wait(kLong));
}

}  // namespace
}  // namespace corvanta
