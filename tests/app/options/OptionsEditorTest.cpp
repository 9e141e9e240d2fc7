#include "app/options/OptionsEditor.h"
#include "app/options/OptionsWords.h"
#include "platform/Files.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

namespace corvanta {
namespace {

class OptionsEditorTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Stored(std::string_view name) const {
    return machine_.registry.Read(Hive::CurrentUser, kSettingsKey, name).value_or("(none)");
  }
  void Store(std::string_view name, std::string_view value) {
    machine_.registry.Write(Hive::CurrentUser, kSettingsKey, name, value);
  }

  TestPlatform machine_;
  std::string file_ = machine_.folder.Write("Corvanta.dat", "data");
  OptionsEditor editor_{machine_.Get(), file_};
};

TEST_F(OptionsEditorTest, WritesEveryValueInItsOrder) {
  const OptionsForm form = editor_.Load();
  editor_.Save(form);
  const std::vector<std::string> order = {
      "FUcleared",   "Fcleared",       "Alt1",        "Alt2",       "ShowDesc",   "ShowRef",
      "ShowStatus",  "Grid",           "Ledger",      "SkipBackup", "BFreq",      "Backup",
      "NoReminders", "NoShedule",      "NoDecimal",   "Payment",    "Investment", "Calendar",
      "Closed",      "UpdateSchedule", "Overdue",     "AccountNo",  "AutoFill",   "LocalFS",
      "BackupFS",    "Association",    "AttachInside"};
  EXPECT_EQ(machine_.registry.ValueNames(Hive::CurrentUser, kSettingsKey), order);
  EXPECT_EQ(Stored("BFreq"), "Once a Day");
  EXPECT_EQ(Stored("FUcleared"), "2147483665");
}

TEST_F(OptionsEditorTest, WhatIsStoredIsReadAndNonsenseIsItsDefault) {
  Store("Alt1", "0");
  Store("Fcleared", "255");
  Store("NoShedule", "2 Years");
  Store("NoDecimal", "seven");
  Store("Grid", "1");
  const OptionsForm form = editor_.Load();
  EXPECT_EQ(form.at(Setting::Alt1), "16383743") << "black cannot be chosen";
  EXPECT_EQ(form.at(Setting::Fcleared), "255");
  EXPECT_EQ(form.at(Setting::NoShedule), "2 Years");
  EXPECT_EQ(form.at(Setting::NoDecimal), "4");
  EXPECT_EQ(form.at(Setting::Grid), "1");
  const OptionsForm defaults = OptionsEditor::Defaults();
  EXPECT_EQ(defaults.at(Setting::Grid), "0");
  EXPECT_EQ(defaults.at(Setting::Fcleared), "16711680");
  EXPECT_EQ(Stored("Grid"), "1") << "nothing is written before it is accepted";
}

TEST_F(OptionsEditorTest, TheFolderOfAttachedFilesIsMadeWhereTheyAreKept) {
  const std::string folder = machine_.folder.Path("FileStore");
  OptionsForm form = editor_.Load();
  form[Setting::LocalFS] = "0";
  editor_.Save(form);
  EXPECT_FALSE(FolderExists(folder));
  form[Setting::LocalFS] = "1";
  editor_.Save(form);
  EXPECT_TRUE(FolderExists(folder));
  editor_.Save(form);
  OptionsEditor(machine_.Get(), std::string()).Save(form);
}

TEST_F(OptionsEditorTest, FilesOfBanksAreGivenToTheProgramAndBack) {
  OptionsForm form = editor_.Load();
  editor_.Save(form);
  EXPECT_TRUE(machine_.opener.Associated().empty()) << "what was never given is not given back";
  form[Setting::Association] = "1";
  editor_.Save(form);
  EXPECT_EQ(machine_.opener.Associated(),
            (std::vector<std::string>{"+application/x-qw", "+application/x-ofx"}));
  form[Setting::Association] = "0";
  editor_.Save(form);
  EXPECT_EQ(machine_.opener.Associated().size(), 4U);
  EXPECT_EQ(machine_.opener.Associated().back(), "-application/x-ofx");
  machine_.opener.SetResult(false);
  form[Setting::Association] = "1";
  machine_.prompts.ExpectTell("Options Selection", ScriptedPrompts::kAnyText);
  editor_.Save(form);
}

TEST_F(OptionsEditorTest, TheBackupIsNeverTheDataFile) {
  constexpr const char* kRefused =
      "The selected backup file is the same as your data file. Please reselect";
  std::filesystem::create_symlink(file_, machine_.folder.Path("link.dat"));
  for (const std::string& path :
       {file_, machine_.folder.Path("./Corvanta.dat"), machine_.folder.Path("link.dat"),
        std::filesystem::path(file_).parent_path().string()}) {
    machine_.prompts.ExpectSaveFile("Save Backup File As", path);
    machine_.prompts.ExpectTell("Options Selection", kRefused);
    EXPECT_EQ(editor_.BrowseBackup(), std::nullopt);
    EXPECT_EQ(Stored("Backup"), "(none)");
    OptionsForm form = editor_.Load();
    form[Setting::Backup] = path;
    const auto warning = editor_.Check(form);
    ASSERT_TRUE(warning);
    EXPECT_EQ(warning->text, kRefused);
    EXPECT_EQ(warning->field, "txtBackup");
  }
  machine_.prompts.ExpectSaveFile("Save Backup File As", machine_.folder.Path("copy.dat"));
  EXPECT_EQ(editor_.BrowseBackup(), machine_.folder.Path("copy.dat"));
  EXPECT_EQ(Stored("Backup"), machine_.folder.Path("copy.dat"));
  const FileQuestion& asked = machine_.prompts.Shown().back().file;
  EXPECT_EQ(asked.filterName + asked.filterPattern + asked.defaultExtension, "Data Files*.datdat");
}

TEST_F(OptionsEditorTest, ResettingClearsWidthsSortingAndDays) {
  for (const char* name : {"chT", "chL1", "ColNo", "ColSort", "Dates"}) Store(name, "1");
  Store("Grid", "1");
  machine_.prompts.ExpectTell("Options Selection", "All column widths have now been reset.");
  editor_.ResetColumns();
  for (const char* name : {"chT", "chC", "chP", "chS", "chI", "chIT", "chH", "chR", "chL", "chL0",
                           "chL1", "ColNo", "ColSort", "Dates"}) {
    EXPECT_EQ(Stored(name), "") << name;
  }
  EXPECT_EQ(Stored("Grid"), "1");
}

TEST(OptionsWords, EveryOptionHasOnePlaceAndIsFoundByWhatItIsCalled) {
  TestPlatform machine;
  std::set<Setting> placed;
  for (const OptionSection& section : OptionSections()) {
    for (const OptionWords& option : section.options) {
      EXPECT_TRUE(placed.insert(option.setting).second) << option.control;
      EXPECT_TRUE(IsFound(section, option, ""));
      EXPECT_TRUE(IsFound(section, option, InfoOf(option.setting).name)) << option.control;
      EXPECT_FALSE(IsFound(section, option, "hippopotamus"));
    }
  }
  for (const auto& [setting, text] : OptionsEditor(machine.Get(), "").Load()) {
    EXPECT_TRUE(placed.contains(setting)) << InfoOf(setting).name;
  }
  const OptionSection& backup = OptionSections()[4];
  EXPECT_TRUE(IsFound(backup, backup.options[0], " ONCE  week "));
  EXPECT_FALSE(IsFound(backup, backup.options[0], "once yesterday"));
}

}  // namespace
}  // namespace corvanta
