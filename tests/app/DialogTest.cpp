#include "app/FrmMessage.h"
#include "app/secrets/FrmPassword.h"
#include "app/secrets/FrmRecoveryKey.h"
#include "app/start/FrmTips.h"
#include "controls/OutlinedStyle.h"
#include "ledger/secrets/PasswordTries.h"
#include "platform/Files.h"
#include "platform/SettingsTable.h"
#include "store/datafile/InstallationKey.h"
#include "support/TestPlatform.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

class Dialogs : public testing::Test {
 protected:
  template <typename Widget>
  static Widget& Find(const QWidget& dialog, const char* name) {
    auto* found = dialog.findChild<Widget*>(QLatin1String(name));
    if (found == nullptr) throw std::runtime_error(std::string("no ") + name);
    return *found;
  }
  [[nodiscard]] std::string Setting(std::string_view name) const {
    return machine_.registry.Read(Hive::CurrentUser, kSettingsKey, name).value_or("(none)");
  }
  // The password is "open sesame"; what is set is kept.
  PasswordActions Actions() {
    return {[](const std::string& typed) { return typed == "open sesame"; },
            [this](const std::string& text) { set_ = text; }};
  }
  static void Type(FrmPassword& dialog, const char* field, const char* text) {
    QTest::keyClicks(&Find<QLineEdit>(dialog, field), QLatin1String(text));
  }

  TestPlatform machine_;
  std::string set_ = "(none)";
};

TEST_F(Dialogs, AWrongPasswordIsToldAndTheDialogStays) {
  FrmPassword dialog(FrmPassword::Mode::Login, false, machine_.Get(), Actions(), nullptr);
  dialog.show();
  auto& typed = Find<QLineEdit>(dialog, "txtPassword");
  EXPECT_EQ(dialog.windowTitle(), "Password");
  EXPECT_EQ(typed.echoMode(), QLineEdit::Password);
  QTest::keyClicks(&typed, "open sesam");
  machine_.prompts.ExpectTell("Password warning", "Incorrect password entered");
  QTest::keyClick(&typed, Qt::Key_Return);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(machine_.prompts.Shown().back().icon, Icon::Information);
  EXPECT_EQ(typed.selectedText(), "open sesam") << "ready to be typed over";
  EXPECT_EQ(Setting("Login"), "(none)");
}

TEST_F(Dialogs, TheRightPasswordGoesOnAndIsNotSwitchedOffInPassing) {
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Login", "1");
  FrmPassword dialog(FrmPassword::Mode::Login, false, machine_.Get(), Actions(), nullptr);
  dialog.show();
  EXPECT_EQ(dialog.property("mode").toString(), "LOGIN");
  EXPECT_FALSE(Find<QCheckBox>(dialog, "chkEnableLogin").isVisible());
  QTest::keyClicks(&Find<QLineEdit>(dialog, "txtPassword"), " open sesame ");
  QTest::mouseClick(&Find<QPushButton>(dialog, "cmdAccept"), Qt::LeftButton);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(Setting("Login"), "1");
  EXPECT_EQ(set_, "(none)") << "the file goes on asking for it";
}

TEST_F(Dialogs, TheFileDecidesWhetherItAsksAndNotTheSetting) {
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Login", "0");
  FrmPassword dialog(FrmPassword::Mode::Login, false, machine_.Get(), Actions(), nullptr);
  dialog.show();
  Type(dialog, "txtPassword", "open sesame");
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(set_, "(none)");
}

TEST_F(Dialogs, ANewPasswordIsTypedTwice) {
  FrmPassword dialog(FrmPassword::Mode::Change, false, machine_.Get(), Actions(), nullptr);
  dialog.show();
  Type(dialog, "txtPassword", "open");
  Type(dialog, "txtNewPassword", "new one");
  Type(dialog, "txtPasswordAgain", "new on");
  machine_.prompts.ExpectTell("Password warning", "Incorrect password entered");
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtPassword").selectedText(), "open");
  Type(dialog, "txtPassword", "open sesame");
  machine_.prompts.ExpectTell("Password warning",
                              "The two passwords are not the same. Please type them again");
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_EQ(set_, "(none)");
  EXPECT_TRUE(dialog.isVisible());
  Type(dialog, "txtPasswordAgain", "new one");
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(set_, "new one");
  EXPECT_EQ(Setting("Login"), "1");
}

TEST_F(Dialogs, AChangeSwitchesThePasswordOffByItsOwnButtonAlone) {
  FrmPassword dialog(FrmPassword::Mode::Change, false, machine_.Get(), Actions(), nullptr);
  dialog.show();
  EXPECT_FALSE(Find<QCheckBox>(dialog, "chkEnableLogin").isVisible());
  EXPECT_TRUE(Find<QCheckBox>(dialog, "chkEnableLogin").isChecked());
  QTest::mouseClick(&Find<QPushButton>(dialog, "cmdDelete"), Qt::LeftButton);
  EXPECT_EQ(dialog.result(), FrmPassword::kSwitchOff);
  EXPECT_EQ(set_, "(none)");
}

TEST_F(Dialogs, ThePasswordIsSwitchedOffByWhoKnowsIt) {
  FrmPassword dialog(FrmPassword::Mode::Delete, false, machine_.Get(), Actions(), nullptr);
  dialog.show();
  machine_.prompts.ExpectTell("Password warning", "Incorrect password entered");
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_EQ(set_, "(none)");
  Type(dialog, "txtPassword", "open sesame");
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_EQ(set_, "");
  EXPECT_EQ(Setting("Login"), "0");
}

TEST_F(Dialogs, AfterThreeWrongTriesTheNextHasToWait) {
  PasswordTries tries(machine_.clock);
  PasswordActions actions = Actions();
  actions.matches = [&tries](const std::string&) {
    tries.CountWrong();
    return false;
  };
  actions.wait = [&tries] { return tries.Wait(); };
  FrmPassword dialog(FrmPassword::Mode::Login, false, machine_.Get(), actions, nullptr);
  dialog.show();
  const auto& accept = Find<QPushButton>(dialog, "cmdAccept");
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(accept.isEnabled()) << i;
    machine_.prompts.ExpectTell("Password warning", "Incorrect password entered");
    QTest::keyClick(&Find<QLineEdit>(dialog, "txtPassword"), Qt::Key_Return);
  }
  EXPECT_FALSE(accept.isEnabled());
  EXPECT_TRUE(Find<QLabel>(dialog, "lblWait").text().contains(QStringLiteral("5 seconds")));
  QTest::keyClick(&Find<QLineEdit>(dialog, "txtPassword"), Qt::Key_Return);
  const auto pass = [&](int seconds) {
    DateTime now = machine_.clock.Now();
    now.seconds += seconds;
    machine_.clock.Set(now);
    QMetaObject::invokeMethod(&Find<QTimer>(dialog, "tmrWait"), "timeout");
  };
  pass(4);
  EXPECT_FALSE(accept.isEnabled());
  pass(1);
  EXPECT_TRUE(accept.isEnabled());
  EXPECT_FALSE(Find<QLabel>(dialog, "lblWait").isVisible());
}

TEST_F(Dialogs, ASecretIsAskedForByThePresentPasswordAlone) {
  for (const auto mode : {FrmPassword::Mode::Reveal, FrmPassword::Mode::Delete}) {
    FrmPassword dialog(mode, true, machine_.Get(), Actions(), nullptr);
    dialog.show();
    Type(dialog, "txtPassword", "open sesame");
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    const bool isOff = mode == FrmPassword::Mode::Delete;
    EXPECT_EQ(set_, isOff ? "" : "(none)");
    EXPECT_EQ(Setting("Login"), isOff ? "0" : "(none)");
  }
}

TEST_F(Dialogs, ThePasswordIsShownOnlyOnDemand) {
  FrmPassword dialog(FrmPassword::Mode::Delete, false, machine_.Get(), Actions(), nullptr);
  dialog.show();
  EXPECT_EQ(dialog.property("mode").toString(), "DELETE");
  EXPECT_FALSE(Find<QCheckBox>(dialog, "chkEnableLogin").isVisible());
  auto& typed = Find<QLineEdit>(dialog, "txtPassword");
  Find<QCheckBox>(dialog, "chkShowPwd").setChecked(true);
  EXPECT_EQ(typed.echoMode(), QLineEdit::Normal);
  Find<QCheckBox>(dialog, "chkShowPwd").setChecked(false);
  EXPECT_EQ(typed.echoMode(), QLineEdit::Password);
  OutlinedStyle style;
  typed.setStyle(&style);
  QTest::keyClicks(&typed, QStringLiteral("abc"));
  EXPECT_EQ(typed.displayText(), "***");
  typed.setStyle(nullptr);
  QTest::keyClick(&typed, Qt::Key_Escape);
  EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST_F(Dialogs, TheRecoveryKeyIsThatOfThePasswordAndCanBeCopiedSavedAndPrinted) {
  const std::string password = InstallationPassword(machine_.Get());
  const std::string sheet = machine_.folder.Path("key.pdf");
  FrmRecoveryKey dialog(machine_.Get(), password, nullptr, [&](QPrinter& printer, QWidget*) {
    printer.setOutputFileName(QString::fromStdString(sheet));
    return true;
  });
  dialog.show();
  const QString shown = Find<QPlainTextEdit>(dialog, "txtKey").toPlainText();
  EXPECT_EQ(PasswordFromRecoveryKey(shown.toStdString()), password);
  QTest::mouseClick(&Find<QPushButton>(dialog, "cmdCopy"), Qt::LeftButton);
  EXPECT_EQ(PasswordFromRecoveryKey(QGuiApplication::clipboard()->text().toStdString()), password);
  const std::string path = machine_.folder.Path("key.txt");
  machine_.prompts.ExpectSaveFile("Save Recovery Key", path);
  QTest::mouseClick(&Find<QPushButton>(dialog, "cmdSave"), Qt::LeftButton);
  EXPECT_EQ(PasswordFromRecoveryKey(ReadFile(path)), password);
  QTest::mouseClick(&Find<QPushButton>(dialog, "cmdPrint"), Qt::LeftButton);
  EXPECT_TRUE(FileExists(sheet));
  machine_.prompts.ExpectSaveFile("Save Recovery Key", machine_.folder.Path("no/such/key.txt"));
  machine_.prompts.ExpectTell("Corvanta Personal Finance", ScriptedPrompts::kAnyText);
  QTest::mouseClick(&Find<QPushButton>(dialog, "cmdSave"), Qt::LeftButton);
}

TEST(Messages, OfAnyLengthFitTheScreen) {
  const QString line = QStringLiteral("What has happened, what is safe, and what to do next.\n\n");
  for (const int lines : {20, 400}) {
    FrmMessage message(QStringLiteral("Help"), line.repeated(lines), nullptr);
    message.show();
    QCoreApplication::processEvents();
    EXPECT_LE(message.height(), message.screen()->availableSize().height());
    EXPECT_LE(message.width(), message.screen()->availableSize().width());
    const auto& text = *message.findChild<QLabel*>("lblMessage");
    EXPECT_GE(text.height(), text.heightForWidth(text.width()));
    auto& close = *message.findChild<QPushButton*>("cmdAccept");
    EXPECT_TRUE(message.rect().contains(close.geometry()));
    QTest::keyClick(&close, Qt::Key_Return);
    EXPECT_FALSE(message.isVisible());
  }
  EXPECT_FALSE(FrmMessage::IsLong(QStringLiteral("Incorrect password entered")));
}

TEST_F(Dialogs, TipsGoRoundAndTheChoiceIsKept) {
  const std::string file =
      machine_.folder.Write("tips.txt", "# a remark\nThat one?\n\n  That two?\n");
  FrmTips dialog(machine_.Get(), nullptr, QString::fromStdString(file));
  EXPECT_EQ(dialog.windowTitle(), "Tip of the Day");
  auto& tip = Find<QLabel>(dialog, "lblTip");
  const QString first = tip.text();
  Find<QPushButton>(dialog, "cmdNext").click();
  EXPECT_NE(tip.text(), first);
  Find<QPushButton>(dialog, "cmdNext").click();
  EXPECT_EQ(tip.text(), first);
  Find<QCheckBox>(dialog, "chkLoadTipsAtStartup").setChecked(true);
  EXPECT_EQ(Setting("ShowTips"), "1");
}

TEST_F(Dialogs, WithoutATipsFileTheTipSaysSo) {
  FrmTips dialog(machine_.Get(), nullptr, QString::fromStdString(machine_.folder.Path("tips.txt")));
  EXPECT_EQ(Find<QLabel>(dialog, "lblTip").text(), "That the tips.txt file was not found? ");
}

}  // namespace
}  // namespace corvanta
