#pragma once

#include "controls/FormDialog.h"
#include "safety/BackupEditor.h"
#include "safety/SafetyDialogs.h"

class QCheckBox;
class QLineEdit;

namespace corvanta::inline safety {

// Makes a backup by command: where to, and with what.
class FrmBackup : public FormDialog {
  Q_OBJECT

 public:
  FrmBackup(const BackedFile& file, const SafetyPlace& place);

 private:
  void Browse();
  void Accept();

  SafetyPlace place_;
  BackupEditor editor_;
  QLineEdit* txtBackup_;
  QCheckBox* chkBackupstore_;
  QCheckBox* chkTransfer_;
};

}  // namespace corvanta::inline safety
