#pragma once

#include "ledger/Warning.h"
#include "safety/Backup.h"

#include <optional>
#include <string>

namespace corvanta::inline safety {

struct BackupForm {
  std::string path;  // of the backup
  BackupWishes wishes;
};

// The rules of making a backup by command. Operations throw StoreError and PlatformError.
class BackupEditor {
 public:
  // All must outlive this object.
  BackupEditor(BackedFile file, Platform& platform, const Writer& writer)
      : file_(std::move(file)), platform_(platform), backup_(platform, writer) {}

  // Where the settings send it, and what they say is backed up.
  [[nodiscard]] BackupForm Load() const;
  // Which backups there are, or why the last one failed, as a sentence for a person.
  [[nodiscard]] std::string State() const;
  [[nodiscard]] std::optional<Warning> Check(const BackupForm& form) const;
  // Asks before it writes over a file that is no backup of this data file. nullopt when the person
  // declines.
  std::optional<BackupResult> Save(const BackupForm& form);

 private:
  BackedFile file_;
  Platform& platform_;
  Backup backup_;
};

}  // namespace corvanta::inline safety
