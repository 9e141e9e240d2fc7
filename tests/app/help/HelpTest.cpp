#include "app/WindowTest.h"
#include "app/help/HelpPages.h"
#include "app/help/QtHelpKey.h"
#include "platform/Files.h"
#include "support/DialogTest.h"

#include <filesystem>
#include <set>

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
  ShowHelp("FrmOfNoRoom", machine.Get(), folder);
  EXPECT_NE(machine.prompts.Shown().back().text.find("no page"), std::string::npos);
  machine.opener.SetResult(false);
  machine.prompts.ExpectTell("Help", ScriptedPrompts::kAnyText);
  ShowHelp("FrmOptions", machine.Get(), folder);
  EXPECT_NE(machine.prompts.Shown().back().text.find("options.md"), std::string::npos);
}

// The names that the windows have in the source.
std::set<std::string> WindowsIn(const std::filesystem::path& folder) {
  const std::string start = "\"Frm";
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const std::string text = ReadFile(entry.path().string());
    for (std::size_t at = text.find(start); at != std::string::npos; at = text.find(start, at)) {
      const std::size_t end = text.find('"', ++at);
      names.insert(text.substr(at, end - at));
    }
  }
  return names;
}

TEST(HelpPages, EveryWindowHasOne) {
  // Qt names the folder of the test program.
  const auto root = std::filesystem::path(QT_TESTCASE_SOURCEDIR).parent_path().parent_path();
  std::set<std::string> windows = WindowsIn(root / "src");
  EXPECT_GT(windows.size(), 40U);
  windows.erase("Frm");        // what all names begin with
  windows.erase("FrmSplash");  // takes no keys
  for (const std::string& window : windows) {
    const std::string page(HelpPageOf(window));
    EXPECT_TRUE(!page.empty() && FileExists((root / "docs" / page).string())) << window;
  }
}

class HelpKey : public DialogTest<WindowTest> {};

TEST_F(HelpKey, OpensThePageOfTheDialogInFrontAndOfTheWindow) {
  const QtHelpKey key(machine_.Get());
  OpenData(true);
  ShowWindow();
  BringForward();
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
  BringForward();
  machine_.prompts.ExpectTell("Help", ScriptedPrompts::kAnyText);
  QTest::keyClick(window_.get(), Qt::Key_F1);
  says("contents.md");
  machine_.prompts.ExpectTell("Help", ScriptedPrompts::kAnyText);
  Trigger("mnuHelpContents");
  says("contents.md");
}

}  // namespace
}  // namespace corvanta
