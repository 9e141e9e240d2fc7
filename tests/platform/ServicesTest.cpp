#include "platform/ConsolePrompts.h"
#include "platform/Files.h"
#include "platform/Folders.h"
#include "platform/Machine.h"
#include "platform/Opener.h"
#include "platform/PlatformError.h"
#include "platform/Progress.h"
#include "platform/Registry.h"
#include "platform/ShownText.h"
#include "platform/Spreadsheet.h"
#include "platform/SystemPlatform.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace corvanta {
namespace {

TEST(ConsolePrompts, TellsAndRefusesRatherThanGuesses) {
  std::ostringstream messages;
  ConsolePrompts prompts(ConsoleAnswers{}, messages);
  prompts.Tell("Save Warning", "You need to select a Payee", Icon::Information);
  EXPECT_EQ(messages.str(), "Save Warning: You need to select a Payee\n");
  messages.str("");
  EXPECT_THROW((void)prompts.Ask("Delete?", "Sure?", Icon::Question), PromptRefused);
  EXPECT_EQ(messages.str(), "Delete?: Sure?\n");
  EXPECT_THROW((void)prompts.Choose("Which?", "Of", {"a", "b"}), PromptRefused);
  EXPECT_THROW((void)prompts.AskText("Name", "Your name", false), PromptRefused);
  EXPECT_THROW((void)prompts.OpenFile({}), PromptRefused);
  EXPECT_THROW((void)prompts.SaveFile({}), PromptRefused);
}

TEST(ConsolePrompts, AnswersFromItsOptions) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const std::string lines = "first secret\r\nsecond\nlast";
  ASSERT_EQ(::write(pipe[1], lines.data(), lines.size()), static_cast<ssize_t>(lines.size()));
  ::close(pipe[1]);
  std::ostringstream messages;
  ConsolePrompts prompts(ConsoleAnswers{true, {{"add it ", false}}, pipe[0]}, messages);
  EXPECT_TRUE(prompts.Ask("Delete?", "Sure?", Icon::Question));
  EXPECT_EQ(messages.str(), "");
  EXPECT_FALSE(prompts.Ask("Add it?", "Sure?", Icon::Question));
  EXPECT_EQ(messages.str(), "Add it?: Sure? (no)\n");
  messages.str("");
  EXPECT_EQ(prompts.AskText("Password", "Password", true), "first secret");
  EXPECT_EQ(prompts.AskText("Password", "Password", true), "second");
  EXPECT_EQ(prompts.AskText("Password", "Password", true), "last");
  EXPECT_EQ(prompts.AskText("Password", "Password", true), std::nullopt);
  EXPECT_EQ(messages.str(), "");
  ::close(pipe[0]);
}

TEST(ShownText, ShowsWhatWouldSteerATerminal) {
  const std::vector<std::pair<std::string, std::string>> texts = {
      {"", ""},
      {"Ärger & Söhne 漢字 😀", "Ärger & Söhne 漢字 😀"},
      {"two\nlines\tand\rmore", "two\nlines and more"},
      {"\x1B[2J\x07\x7F", "␛[2J␇␡"},
      {std::string("\0", 1), "␀"},
      {"\u0085 \u009B31m", "\uFFFD \uFFFD31m"},
      {"\u202Egnp.exe\u202C \u2066a\u2069\u200F\u061C",
       "\uFFFDgnp.exe\uFFFD \uFFFDa\uFFFD\uFFFD\uFFFD"},
      {"a\u2028b\u2029c\u206A", "a\uFFFDb\uFFFDc\uFFFD"},
      {"\x9B"
       "31m \xC3",
       "\uFFFD31m \uFFFD"},
      {"👨\u200D👩\u200D👧 می\u200Cخواهم", "👨\u200D👩\u200D👧 می\u200Cخواهم"},
  };
  for (const auto& [text, shown] : texts) EXPECT_EQ(ShownText(text), shown);
}

TEST(WorkbookSpreadsheet, OddTablesAreWritten) {
  WorkbookSpreadsheet spreadsheet;
  SpreadsheetTable table{"Income/Expense [2026]: a very long name?",
                         {{"Name"}, {"Amount", SpreadsheetKind::Money}},
                         {}};
  table.rows.push_back({{std::string("Käse & <Brot>"), -12.5}});
  table.rows.push_back({{std::monostate{}, std::numeric_limits<double>::infinity()}});
  table.rows.push_back({{std::string(40000, 'x'), 1.0, std::string("beyond the headers")}});
  table.rows.push_back({{*Date::FromYmd(1066, 10, 14)}, 0, true});
  EXPECT_TRUE(spreadsheet.Render(table, SpreadsheetForm::Xlsx).starts_with("PK\x03\x04"));
  for (const char* name :
       {"", "'''", "History", "\\/?*[]:", "üüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüüü"}) {
    table.name = name;
    EXPECT_NO_THROW((void)spreadsheet.Render(table, SpreadsheetForm::Xlsx)) << name;
  }
  EXPECT_NO_THROW((void)spreadsheet.Render({}, SpreadsheetForm::Xlsx));
}

// A program that keeps what it was asked for, and gives back what it was given.
void InstallProgram(const TemporaryFolder& folder, const std::string& work) {
  const std::string path = folder.Write("soffice", "#!/bin/sh\n" + work);
  ASSERT_EQ(::chmod(path.c_str(), 0700), 0);
}

std::string WhyNotRendered(WorkbookSpreadsheet& spreadsheet, const SpreadsheetTable& table) {
  try {
    return spreadsheet.Render(table, SpreadsheetForm::Xls);
  } catch (const PlatformError& error) {
    return error.what();
  }
}

TEST(WorkbookSpreadsheet, TheOlderFormIsLeftToAnInstalledProgram) {
  const TemporaryFolder folder;
  WorkbookSpreadsheet spreadsheet({folder.Path("none"), folder.Path()});
  SpreadsheetTable table{"List", {{"Name"}}, {{{std::string("Käse")}}}};
  EXPECT_EQ(WhyNotRendered(spreadsheet, table),
            "Microsoft Excel not installed. Cannot create export file");

  InstallProgram(folder, "echo \"$@\" > '" + folder.Path("asked") +
                             "'\nshift 6\nmkdir \"$1\"\ncp \"$2\" \"$1/list.xls\"\n");
  EXPECT_TRUE(WhyNotRendered(spreadsheet, table).starts_with("PK"));
  const std::string asked = ReadFile(folder.Path("asked"));
  EXPECT_NE(asked.find("--headless"), std::string::npos);
  EXPECT_NE(asked.find("--convert-to xls"), std::string::npos);
  const std::string work =
      asked.substr(asked.rfind(' ') + 1, asked.rfind("/list.xlsx") - asked.rfind(' ') - 1);
  EXPECT_FALSE(FolderExists(work)) << "nothing is left of what it worked on";

  for (const char* useless : {"exit 0\n", "exit 1\n"}) {
    InstallProgram(folder, useless);
    EXPECT_NE(WhyNotRendered(spreadsheet, table).find("ends in .xlsx"), std::string::npos);
  }
  table.rows.assign(65536, SpreadsheetRow{{std::string("x")}});
  EXPECT_NE(WhyNotRendered(spreadsheet, table).find("too large"), std::string::npos);
}

TEST(SystemMachineValue, IsPositiveAndStable) {
  const std::uint64_t value = SystemMachineValue().Read();
  EXPECT_GT(value, 0U);
  EXPECT_EQ(SystemMachineValue().Read(), value);
}

TEST(DesktopOpener, GivesTheTargetAsOneArgument) {
  const TemporaryFolder folder;
  const std::string log = folder.Path("log");
  const std::string script =
      folder.Write("xdg-open", "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$1\" >" + log +
                                   "\ncase $1 in *bad*) exit 3;; esac\n");
  ::chmod(script.c_str(), 0700);
  const std::string formerPath = std::getenv("PATH");
  ::setenv("PATH", (folder.Path() + ":" + formerPath).c_str(), 1);
  DesktopOpener opener;
  EXPECT_TRUE(opener.Open("/home/a b; $(touch x).pdf"));
  EXPECT_EQ(ReadFile(log), "1\n/home/a b; $(touch x).pdf\n");
  EXPECT_TRUE(opener.Open("--version"));
  EXPECT_EQ(ReadFile(log), "1\n./--version\n");
  EXPECT_FALSE(opener.Open("bad.xyz"));
  ::setenv("PATH", folder.Path("none").c_str(), 1);
  EXPECT_FALSE(opener.Open("a.pdf"));
  ::setenv("PATH", formerPath.c_str(), 1);
}

TEST(SystemPlatform, HoldsServicesForAProfile) {
  const TemporaryFolder folder;
  ConsolePrompts prompts;
  SilentProgress progress;
  SystemPlatformOptions options;
  options.profileFolder = folder.Path("profile/");
  options.fixedToday = Date::FromIso("2026-11-21");
  options.localeName = "de_DE";
  SystemPlatform system(options, prompts, progress);
  Platform& platform = system.Get();
  EXPECT_EQ(platform.clock.Today(), options.fixedToday);
  EXPECT_EQ(platform.locale.DecimalSeparator(), ",");
  EXPECT_FALSE(FolderExists(options.profileFolder));
  platform.registry.Write(Hive::CurrentUser, "Software", "A", "1");
  EXPECT_TRUE(FileExists(folder.Path("profile/registry.txt")));
}

TEST(Folders, FollowTheBaseDirectories) {
  const char* home = std::getenv("HOME");
  const std::string formerHome = home != nullptr ? home : "";
  ::setenv("HOME", "/home/someone", 1);
  ::unsetenv("XDG_CONFIG_HOME");
  ::setenv("XDG_DATA_HOME", "relative", 1);
  EXPECT_EQ(DefaultProfileFolder(), "/home/someone/.config/corvanta");
  EXPECT_EQ(DefaultDataFolder(), "/home/someone/.local/share/corvanta");
  ::setenv("XDG_CONFIG_HOME", "/cfg", 1);
  ::setenv("XDG_DATA_HOME", "/data/", 1);
  EXPECT_EQ(DefaultProfileFolder(), "/cfg/corvanta");
  EXPECT_EQ(DefaultDataFolder(), "/data/corvanta");
  ::unsetenv("XDG_CONFIG_HOME");
  ::unsetenv("XDG_DATA_HOME");
  ::setenv("HOME", formerHome.c_str(), 1);
}

}  // namespace
}  // namespace corvanta
