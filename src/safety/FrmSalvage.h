#pragma once

#include "controls/FormDialog.h"
#include "safety/SafetyDialogs.h"
#include "safety/SalvageEditor.h"

#include <optional>
#include <string>

class QLineEdit;

namespace corvanta::inline invest {
class ucEntryList;
}

namespace corvanta::inline safety {

// Reads what can still be read of a damaged data file into a new one, and shows what could not.
class FrmSalvage : public FormDialog {
  Q_OBJECT

 public:
  // `damaged` is the file to begin with; empty for none.
  FrmSalvage(SalvageEditor& editor, const std::string& damaged, const SafetyPlace& place);

  // The new data file that the person wants to go on with; nullopt for none.
  [[nodiscard]] const std::optional<std::string>& Wanted() const { return wanted_; }

 private:
  void BrowseDamaged();
  void BrowseTarget();
  void Fill(const std::string& damaged);
  void Salvage();
  void ShowTables(const std::vector<SalvagedTable>& tables);
  void OpenNew();

  SafetyPlace place_;
  SalvageEditor& editor_;
  QLineEdit* txtDamaged_;
  QLineEdit* txtSalvaged_;
  ucEntryList* lvTables_;
  QPushButton* cmdAccept_;
  QPushButton* cmdOpen_;
  std::string made_;  // the new data file, once there is one
  std::optional<std::string> wanted_;
};

}  // namespace corvanta::inline safety
