#include "app/FrmMain.h"
#include "app/secrets/FrmPassword.h"
#include "app/start/FrmSplash.h"
#include "app/start/StartUp.h"
#include "ledger/secrets/LoginPassword.h"
#include "platform/Settings.h"
#include "support/TemporaryFolder.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

constexpr int kLong = 60000;  // on a busy machine; it does not take that long

// Starts the program itself in a profile of its own.
class Start : public testing::Test {
 protected:
  Start() {
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { LookForLogin(); });
    options_.profileFolder = folder_.Path("profile");
    options_.dataPath = folder_.Path("data");
    options_.today = Date::FromYmd(2026, 11, 21);
  }

  // Makes the data file with this login password, and turns login on.
  void SetPassword(const std::string& password) {
    QtPrompts prompts;
    QtProgress progress;
    SystemPlatform platform({options_.profileFolder, options_.today, "en_GB"}, prompts, progress);
    Settings(platform.Get().registry).SetOn(Setting::Login, true);
    DataFileOpener opener(platform.Get(), "a test");
    opener.SetDataPath(options_.dataPath);
    const DataFile file = opener.CreateNew(false);
    LoginPassword(*file.connection).Set(password);
  }

  void SetOn(Setting setting, bool isOn) {
    QtPrompts prompts;
    QtProgress progress;
    SystemPlatform platform({options_.profileFolder, options_.today, "en_GB"}, prompts, progress);
    Settings(platform.Get().registry).SetOn(setting, isOn);
  }

  // Closes every dialog that comes up, and remembers which there were.
  void TurnBackEverywhere() {
    QObject::disconnect(&watch_, nullptr, nullptr, nullptr);
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      seen_.append(dialog->objectName());
      dialog->done(QDialog::Rejected);
    });
    watch_.start(1);
  }

  // Does this to the password dialog when it comes up.
  void AtLogin(std::function<void(FrmPassword&)> act) {
    act_ = std::move(act);
    watch_.start(1);
  }
  void LookForLogin() {
    auto* dialog = qobject_cast<FrmPassword*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    watch_.stop();
    ++logins_;
    act_(*dialog);
  }

  static FrmMain* MainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* main = qobject_cast<FrmMain*>(window)) return main;
    }
    return nullptr;
  }

  TemporaryFolder folder_;
  StartOptions options_;
  QTimer watch_;
  std::function<void(FrmPassword&)> act_;
  int logins_ = 0;
  QStringList seen_;
};

TEST_F(Start, AFirstStartMakesTheSampleFileAndShowsIt) {
  StartUp start(options_);
  ASSERT_TRUE(start.Run());
  ASSERT_NE(MainWindow(), nullptr);
  EXPECT_TRUE(MainWindow()->isVisible());
  EXPECT_EQ(MainWindow()->Shown(), (ViewCommand{kOverviewShow}));
  EXPECT_EQ(MainWindow()->Accounts().size(), 1U);
}

TEST_F(Start, ASecondOneOnTheSameFileBringsTheWindowForward) {
  TurnBackEverywhere();
  StartUp start(options_);
  EXPECT_FALSE(start.HandOver());
  ASSERT_TRUE(start.Run());
  MainWindow()->showMinimized();
  StartOptions named = options_;
  named.dataPath = folder_.Path("data/Corvanta.dat");
  EXPECT_TRUE(StartUp(named).HandOver());
  EXPECT_TRUE(QTest::qWaitFor([] { return !MainWindow()->isMinimized(); }, kLong));
  named.dataPath = folder_.Path("elsewhere");
  EXPECT_FALSE(StartUp(named).HandOver());
}

// Counts how often a widget is painted.
class Paints : public QObject {
 public:
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

TEST_F(Start, TheSplashIsPaintedBeforeAnythingElseGoesOn) {
  Paints paints;
  FrmSplash splash;
  splash.installEventFilter(&paints);
  splash.Appear();
  EXPECT_GE(paints.count, 1);
  splash.Say(QStringLiteral("Compacting"));
  EXPECT_GE(paints.count, 2);
}

TEST_F(Start, TheTipStandsBeforeTheLogin) {
  SetPassword("open sesame");
  SetOn(Setting::ShowTips, true);
  TurnBackEverywhere();
  StartUp start(options_);
  EXPECT_FALSE(start.Run());
  EXPECT_EQ(seen_, (QStringList{"FrmTips", "FrmPassword"}));
}

TEST_F(Start, AFileOfABankIsImportedInPlaceOfTheGreeting) {
  options_.importPath = folder_.Write("bank.qif", "!Type:Bank\nD11/01/2026\nT-5\nPShop\n^\n");
  TurnBackEverywhere();
  StartUp start(options_);
  ASSERT_TRUE(start.Run());
  ASSERT_TRUE(QTest::qWaitFor([this] { return !seen_.isEmpty(); }, kLong));
  EXPECT_EQ(seen_, QStringList{"FrmImport"});
}

TEST_F(Start, LoginLetsThePasswordIn) {
  SetPassword("open sesame");
  AtLogin([](FrmPassword& dialog) {
    QTest::keyClicks(dialog.findChild<QLineEdit*>(), "open sesame");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  StartUp start(options_);
  EXPECT_TRUE(start.Run());
  EXPECT_EQ(logins_, 1) << "asked once, although the file is opened twice";
  EXPECT_NE(MainWindow(), nullptr);
}

TEST_F(Start, TurningBackAtTheLoginEndsIt) {
  SetPassword("open sesame");
  AtLogin([](FrmPassword& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  StartUp start(options_);
  EXPECT_FALSE(start.Run());
  EXPECT_EQ(MainWindow(), nullptr);
}

TEST_F(Start, TheSettingsCannotSwitchTheLoginOff) {
  SetPassword("open sesame");
  SetOn(Setting::Login, false);
  AtLogin([](FrmPassword& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  StartUp start(options_);
  EXPECT_FALSE(start.Run());
  EXPECT_EQ(logins_, 1);
}

TEST_F(Start, WithoutAPasswordWhoTurnsBackGoesOnWithoutOne) {
  SetPassword("");
  AtLogin([](FrmPassword& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  StartUp start(options_);
  EXPECT_TRUE(start.Run());
  EXPECT_EQ(logins_, 1);
}

TEST_F(Start, WithoutAPasswordTheTypedTextBecomesIt) {
  SetPassword("");
  AtLogin([](FrmPassword& dialog) {
    QTest::keyClicks(dialog.findChild<QLineEdit*>("txtNewPassword"), "new one");
    QTest::keyClicks(dialog.findChild<QLineEdit*>("txtPasswordAgain"), "new one");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  {
    StartUp start(options_);
    EXPECT_TRUE(start.Run());
  }
  AtLogin([](FrmPassword& dialog) {
    QTest::keyClicks(dialog.findChild<QLineEdit*>(), "new one");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  StartUp again(options_);
  EXPECT_TRUE(again.Run());
  EXPECT_EQ(logins_, 2);
}

TEST_F(Start, AFileThatCannotBeOpenedLeavesTheProgramRunning) {
  options_.dataPath = folder_.Write("letter.dat", "Dear bank, ");
  QTimer close;
  int boxes = 0;
  QObject::connect(&close, &QTimer::timeout, &close, [&boxes] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    ++boxes;
    EXPECT_TRUE(box->text().contains(QStringLiteral("Nothing was changed.")))
        << qPrintable(box->text());
    box->reject();
  });
  close.start(1);
  StartUp start(options_);
  ASSERT_TRUE(start.Run());
  EXPECT_EQ(boxes, 1);
  ASSERT_NE(MainWindow(), nullptr);
  EXPECT_TRUE(MainWindow()->isVisible());
  bool isOffered = false;
  for (const auto* button : MainWindow()->findChildren<QPushButton*>("cmdEmptyState")) {
    isOffered = isOffered || button->isVisible();
  }
  EXPECT_TRUE(isOffered) << "a road to another file";
}

}  // namespace
}  // namespace corvanta
