#include "safety/FrmArchive.h"
#include "safety/FrmBackup.h"
#include "safety/FrmRestore.h"
#include "safety/FrmSalvage.h"
#include "safety/SafetyDialogs.h"

namespace corvanta::inline safety {

bool OpenBackup(const BackedFile& file, const SafetyPlace& place) {
  FrmBackup form(file, place);
  form.exec();
  return form.IsChanged();
}

std::optional<RestorePlan> OpenRestore(RestoreEditor& editor, const SafetyPlace& place) {
  FrmRestore form(editor, place);
  form.exec();
  return form.Decided();
}

std::optional<std::string> OpenSalvage(SalvageEditor& editor, const std::string& damaged,
                                       const SafetyPlace& place) {
  FrmSalvage form(editor, damaged, place);
  form.exec();
  return form.Wanted();
}

bool OpenArchive(clsCorvanta& ledger, const BackedFile& file, const SafetyPlace& place) {
  FrmArchive form(ledger, file, place);
  form.exec();
  return form.IsChanged();
}

}  // namespace corvanta::inline safety
