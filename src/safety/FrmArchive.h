#pragma once

#include "controls/FormDialog.h"
#include "safety/ArchiveEditor.h"
#include "safety/SafetyDialogs.h"

class QCheckBox;
class QLineEdit;
class QStandardItemModel;

namespace corvanta::inline controls {
class DateField;
class ListTable;
}  // namespace corvanta::inline controls

namespace corvanta::inline safety {

// Chooses what is archived, and shows account by account what goes and what stays.
class FrmArchive : public FormDialog {
  Q_OBJECT

 public:
  FrmArchive(clsCorvanta& ledger, const BackedFile& file, const SafetyPlace& place);

 private:
  void MakeFields();
  void MakeList();
  void FillAccounts(const ArchiveForm& form);
  [[nodiscard]] ArchiveForm Form() const;
  void ShowPlan();
  void Browse();
  void Accept();

  SafetyPlace place_;
  ArchiveEditor editor_;
  clsCorvanta& ledger_;
  DateField* dtBefore_;
  QLineEdit* txtArchive_;
  QCheckBox* chkReconciled_;
  ListTable* lvAccounts_;
  QStandardItemModel* model_;
  std::vector<std::int64_t> accounts_;  // as they are listed
  bool isFilling_ = false;
};

}  // namespace corvanta::inline safety
