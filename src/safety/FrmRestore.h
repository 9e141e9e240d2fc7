#pragma once

#include "controls/FormDialog.h"
#include "safety/RestoreEditor.h"
#include "safety/SafetyDialogs.h"

namespace corvanta::inline invest {
class ucEntryList;
}

namespace corvanta::inline safety {

// Chooses a backup and shows what restoring it would change, account by account.
class FrmRestore : public FormDialog {
  Q_OBJECT

 public:
  FrmRestore(RestoreEditor& editor, const SafetyPlace& place);

  // What the person has decided to restore.
  [[nodiscard]] const std::optional<RestorePlan>& Decided() const { return decided_; }

 private:
  void MakeLists();
  void FillSources();
  void LookAtChosen();
  void Browse();
  // Looks into a file and shows what it would change.
  void Look(const std::string& path);
  void ShowPlan();
  [[nodiscard]] QStringList CellsOf(const AccountChange& change) const;
  [[nodiscard]] QStringList CellsOf(const ListChange& change) const;
  [[nodiscard]] QString CountText(std::size_t count) const;
  // "3 back, 1 go", what is 0 left out.
  [[nodiscard]] QStringList CountsOf(std::size_t added, std::size_t removed,
                                     std::size_t changed) const;
  void Accept();

  SafetyPlace place_;
  RestoreEditor& editor_;
  std::vector<RestoreSource> sources_;
  std::optional<RestorePlan> plan_;
  std::optional<RestorePlan> decided_;
  ucEntryList* lvBackups_;
  ucEntryList* lvChanges_;
  QPushButton* cmdAccept_ = nullptr;
};

}  // namespace corvanta::inline safety
