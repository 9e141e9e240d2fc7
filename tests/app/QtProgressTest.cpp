#include "app/QtProgress.h"

#include <QDialog>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

class ProgressTest : public testing::Test {
 protected:
  ProgressTest() {
    window_.setCentralWidget(button_);
    progress_.ShowIn(window_.statusBar());
    window_.show();
    QObject::connect(button_, &QPushButton::clicked, &window_, [this] { ++clicks_; });
  }
  QMainWindow window_;
  QPushButton* button_ = new QPushButton(QStringLiteral("Delete"));
  QtProgress progress_;
  int clicks_ = 0;
};

TEST_F(ProgressTest, ShowsTextAndStepsAndGoesAway) {
  EXPECT_EQ(progress_.SetStatus("Compacting"), "");
  progress_.SetStep(3, 12);
  EXPECT_EQ(window_.findChild<QLabel*>(QStringLiteral("lblStatus"))->text(), "Compacting");
  const auto* bar = window_.findChild<QProgressBar*>();
  EXPECT_TRUE(bar->isVisible());
  EXPECT_EQ(bar->value(), 250);
  EXPECT_EQ(progress_.SetStatus(""), "Compacting");
  EXPECT_FALSE(bar->isVisible());
}

TEST_F(ProgressTest, NothingElseTakesInputMeanwhile) {
  progress_.SetStatus("Working");
  QTest::mouseClick(button_, Qt::LeftButton);
  EXPECT_TRUE(progress_.Yield());
  EXPECT_FALSE(window_.close());
  EXPECT_EQ(clicks_, 0);
  progress_.SetStatus("");
  QTest::mouseClick(button_, Qt::LeftButton);
  EXPECT_EQ(clicks_, 1);
}

TEST_F(ProgressTest, TheStopButtonAndEscapeStop) {
  progress_.SetStatus("Working");
  progress_.SetStep(1, 2);
  QTest::mouseClick(window_.findChild<QToolButton*>(QStringLiteral("cmdStop")), Qt::LeftButton);
  EXPECT_FALSE(progress_.Yield());
  progress_.SetStatus("");
  progress_.SetStatus("Working again");
  EXPECT_TRUE(progress_.Yield());
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(progress_.Yield());
  progress_.SetStatus("");
}

TEST_F(ProgressTest, TheDialogThatItWasStartedFromWaitsAndItsQuestionsDoNot) {
  QDialog dialog(&window_);
  dialog.setModal(true);
  auto* again = new QPushButton(QStringLiteral("Download"), &dialog);
  QObject::connect(again, &QPushButton::clicked, &window_, [this] { ++clicks_; });
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  progress_.SetStatus("Working");
  QTest::mouseClick(again, Qt::LeftButton);
  EXPECT_EQ(clicks_, 0);
  QDialog question(&dialog);
  question.setModal(true);
  auto* answer = new QPushButton(QStringLiteral("Yes"), &question);
  QObject::connect(answer, &QPushButton::clicked, &window_, [this] { ++clicks_; });
  question.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&question));
  QTest::mouseClick(answer, Qt::LeftButton);
  EXPECT_EQ(clicks_, 1);
  question.hide();
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(progress_.Yield());
  EXPECT_TRUE(dialog.isVisible());
  progress_.SetStatus("");
}

}  // namespace
}  // namespace corvanta
