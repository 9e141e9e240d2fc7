#include "controls/SvgIcon.h"

#include <QApplication>

#include <gtest/gtest.h>

// The tests of windows need one application for the whole run, and no display.
int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  corvanta::InitPictures();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
