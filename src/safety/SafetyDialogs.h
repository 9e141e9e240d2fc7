// Opens the windows of backup, restore, salvage and archive, each modal before its parent.
#pragma once

#include "safety/Backup.h"
#include "safety/RestoreEditor.h"

#include <functional>
#include <optional>
#include <string>

class QWidget;

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline safety {

class SalvageEditor;

// What a dialog works with and stands before.
struct SafetyPlace {
  Platform& platform;
  const Writer& writer;  // who this program is to others
  QWidget* parent;
  // Whether the person may have the key of the data file written; empty: without a question.
  std::function<bool()> mayWriteKey{};
};

// The backup dialog. True when a backup was made.
bool OpenBackup(const BackedFile& file, const SafetyPlace& place);
// The restore dialog. What the person has decided to restore, after seeing what it changes; nullopt
// for nothing. It is not done yet: the data file has to be closed for it.
std::optional<RestorePlan> OpenRestore(RestoreEditor& editor, const SafetyPlace& place);

// The salvage dialog, with that damaged file to begin with. The new data file that the person wants
// to go on with; nullopt for none.
std::optional<std::string> OpenSalvage(SalvageEditor& editor, const std::string& damaged,
                                       const SafetyPlace& place);

// The archive dialog. True when something was archived.
bool OpenArchive(clsCorvanta& ledger, const BackedFile& file, const SafetyPlace& place);

}  // namespace corvanta::inline safety
