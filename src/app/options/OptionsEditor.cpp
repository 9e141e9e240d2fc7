#include "app/options/OptionsEditor.h"

#include "platform/Files.h"
#include "platform/Opener.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "platform/TextCase.h"
#include "safety/FileStore.h"
#include "safety/WholePath.h"

#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

namespace corvanta::inline app {
namespace {

// In the order in which they are written.
constexpr std::array kWritten{
    Setting::FUcleared,   Setting::Fcleared,    Setting::Alt1,        Setting::Alt2,
    Setting::ShowDesc,    Setting::ShowRef,     Setting::ShowStatus,  Setting::Grid,
    Setting::Ledger,      Setting::SkipBackup,  Setting::BFreq,       Setting::Backup,
    Setting::NoReminders, Setting::NoShedule,   Setting::NoDecimal,   Setting::Payment,
    Setting::Investment,  Setting::Calendar,    Setting::Closed,      Setting::UpdateSchedule,
    Setting::Overdue,     Setting::AccountNo,   Setting::AutoFill,    Setting::LocalFS,
    Setting::BackupFS,    Setting::Association, Setting::AttachInside};

constexpr const char* kSameFile =
    "The selected backup file is the same as your data file. Please reselect";

std::string TextOf(const Settings& settings, Setting setting) {
  switch (InfoOf(setting).kind) {
    case SettingKind::Check:
      return settings.IsOn(setting) ? "1" : "0";
    case SettingKind::Colour:
      return std::to_string(settings.Colour(setting));
    case SettingKind::Choice:
      return std::string(settings.ChoiceText(setting));
    default:
      return settings.Text(setting);
  }
}

}  // namespace

OptionsEditor::OptionsEditor(Platform& platform, std::string dataFile)
    : platform_(platform), dataFile_(std::move(dataFile)) {}

OptionsForm OptionsEditor::Load() const {
  const Settings settings(platform_.registry);
  OptionsForm form;
  for (const Setting setting : kWritten) form[setting] = TextOf(settings, setting);
  return form;
}

OptionsForm OptionsEditor::Defaults() {
  OptionsForm form;
  for (const Setting setting : kWritten) form[setting] = InfoOf(setting).defaultText;
  return form;
}

void OptionsEditor::TellDefaults() const {
  platform_.prompts.Tell(kOptionsSelection, "Default settings have now been applied.");
}

std::optional<Warning> OptionsEditor::Check(const OptionsForm& form) const {
  const std::string path(Trim(form.at(Setting::Backup)));
  if (path.empty()) return std::nullopt;
  if (IsDataFile(path)) return Warning{kOptionsSelection, kSameFile, "txtBackup"};
  return WholePathFault(path, "backup file", kOptionsSelection, "txtBackup");
}

void OptionsEditor::Save(const OptionsForm& form) {
  Settings settings(platform_.registry);
  const bool wasAssociated = settings.IsOn(Setting::Association);
  for (const Setting setting : kWritten) settings.SetText(setting, Trim(form.at(setting)));
  MakeFileStore(form);
  Associate(wasAssociated, form.at(Setting::Association) == "1");
}

void OptionsEditor::MakeFileStore(const OptionsForm& form) {
  if (dataFile_.empty() || form.at(Setting::LocalFS) != "1") return;
  const std::string folder = FileStoreOf(dataFile_);
  if (!FolderExists(folder)) platform_.files.CreateFolder(folder);
}

void OptionsEditor::Associate(bool was, bool is) {
  if (!was && !is) return;
  if (platform_.opener.Associate({kQifType, kOfxType}, is) || !is) return;
  platform_.prompts.Tell(kOptionsSelection, kNotOnDesktop, Icon::Warning);
}

void OptionsEditor::AdviseOnForecast(bool updatesDates) const {
  if (!updatesDates) return;
  platform_.prompts.Tell(kOptionsSelection,
                         "Update Schedule Date is checked - we suggest this is unchecked during "
                         "forecasting.");
}

std::optional<std::string> OptionsEditor::BrowseBackup() {
  const auto path = platform_.prompts.SaveFile(
      {"Save Backup File As", "Data Files", "*.dat", "dat", std::string()});
  if (!path) return std::nullopt;
  if (IsDataFile(*path)) {
    platform_.prompts.Tell(kOptionsSelection, kSameFile);
    return std::nullopt;
  }
  Settings(platform_.registry).SetText(Setting::Backup, *path);
  return path;
}

void OptionsEditor::ResetColumns() {
  Settings(platform_.registry).ResetColumns();
  platform_.prompts.Tell(kOptionsSelection, "All column widths have now been reset.");
}

bool OptionsEditor::IsDataFile(const std::string& path) const {
  if (dataFile_.empty()) return false;
  const std::filesystem::path dataFile(dataFile_);
  std::filesystem::path place(path);
  // In a folder the backup has the name of the data file.
  if (FolderExists(path)) place /= dataFile.filename();
  std::error_code none;
  // By another name, or through a link, it is still the same file.
  if (std::filesystem::equivalent(place, dataFile, none)) return true;
  return place.lexically_normal() == dataFile.lexically_normal();
}

}  // namespace corvanta::inline app
