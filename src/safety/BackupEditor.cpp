#include "safety/BackupEditor.h"

#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "safety/WholePath.h"
#include "store/datafile/backup/BackupMark.h"
#include "store/datafile/opening/FileSteps.h"

namespace corvanta::inline safety {
namespace {
constexpr const char* kTitle = "Backup";
constexpr const char* kField = "txtBackup";
}  // namespace

BackupForm BackupEditor::Load() const {
  return {backup_.PlaceOf(file_.path), backup_.Chosen()};
}

std::string BackupEditor::State() const {
  if (const auto failure = backup_.Failure(file_)) return *failure;
  const std::vector<Generation> backups = backup_.Generations(file_);
  if (backups.empty()) return "There is no backup of this data file yet.";
  const std::string day = platform_.locale.FormatShortDate(backups.front().made.date);
  if (backups.size() == 1) return "The latest backup is of " + day + ".";
  return "The latest of " + std::to_string(backups.size()) + " backups is of " + day + ".";
}

std::optional<Warning> BackupEditor::Check(const BackupForm& form) const {
  if (Trim(form.path).empty()) {
    return Warning{kTitle, "You need to enter a Backup file", kField};
  }
  if (auto fault = WholePathFault(form.path, "backup file", kTitle, kField)) return fault;
  if (FolderExists(form.path)) {
    return Warning{kTitle, "This is a folder. Enter the name of a file in it.", kField};
  }
  const std::optional<FileIdentity> target = IdentityOf(form.path);
  if (target && target == IdentityOf(file_.path)) {
    return Warning{
        kTitle, "The selected backup file is the same as your data file. Please reselect", kField};
  }
  return std::nullopt;
}

std::optional<BackupResult> BackupEditor::Save(const BackupForm& form) {
  if (form.path == backup_.PlaceOf(file_.path)) return backup_.Make(file_, form.wishes);
  const bool isOther = IdentityOf(form.path).has_value() &&
                       !ReadBackupTime(form.path, file_.password, file_.path).has_value();
  if (isOther && !platform_.prompts.Ask(kTitle,
                                        "There is a file " + form.path +
                                            " already that is no backup of this data file. Do you "
                                            "wish to replace it?",
                                        Icon::Warning)) {
    return std::nullopt;
  }
  return backup_.MakeOver(file_, form.path, form.wishes);
}

}  // namespace corvanta::inline safety
