#include "app/WindowTest.h"
#include "app/help/HelpPages.h"
#include "app/help/QtHelpKey.h"
#include "support/DialogTest.h"

namespace corvanta {
namespace {

TEST(HelpPages, AreOpenedByTheDesktopOrTheWayToThemIsTold) {
  TestPlatform machine;
  const QString folder = QString::fromStdString(machine.folder.Path());
  machine.folder.Write("options.md", "# The options\n");
  ShowHelp("FrmOptions", machine.Get(), folder);
  EXPECT_EQ(machine.opener.Opened(), std::vector<std::string>{machine.folder.Path("options.md")});
  machine.prompts.ExpectTell("Help", ScriptedPrompts::kAnyText);
  ShowHelp("FrmPassword", machine.Get(), folder);
  EXPECT_NE(machine.prompts.Shown().back().text.find("password.md"), std::string::npos);
  machine.prompts.ExpectTell("Help", ScriptedPrompts::kAnyText);
  ShowHelp("FrmMerge", machine.Get(), folder);
  EXPECT_NE(machine.prompts.Shown().back().text.find("no page"), std::string::npos);
  machine.opener.SetResult(false);
  machine.prompts.ExpectTell("Help", ScriptedPrompts::kAnyText);
  ShowHelp("FrmOptions", machine.Get(), folder);
  EXPECT_NE(machine.prompts.Shown().back().text.find("options.md"), std::string::npos);
}

class HelpKey : public DialogTest<WindowTest> {};

TEST_F(HelpKey, OpensThePageOfTheDialogInFrontAndOfTheWindow) {
  const QtHelpKey key(machine_.Get());
  OpenData(true);
  ShowWindow();
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  const auto says = [this](const char* words) {
    EXPECT_NE(machine_.prompts.Shown().back().text.find(words), std::string::npos) << words;
  };
  // The pages do not lie beside the test program, which is told with their names.
  InNextDialog([&](QDialog& options) {
    machine_.prompts.ExpectTell("Help", ScriptedPrompts::kAnyText);
    QTest::keyClick(options.focusWidget(), Qt::Key_F1);
    says("options.md");
  });
  Trigger("mnuFileOptions");
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  machine_.prompts.ExpectTell("Help", ScriptedPrompts::kAnyText);
  QTest::keyClick(window_.get(), Qt::Key_F1);
  says("contents.md");
  machine_.prompts.ExpectTell("Help", ScriptedPrompts::kAnyText);
  Trigger("mnuHelpContents");
  says("contents.md");
}

}  // namespace
}  // namespace corvanta
