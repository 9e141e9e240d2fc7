#pragma once

#include "controls/QuietEnd.h"

#include <QDialog>

class QPlainTextEdit;

namespace corvanta {

struct Platform;

// Shows the recovery key of this installation, to be copied or saved.
class FrmRecoveryKey : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  // Throws PlatformError when the key cannot be read.
  FrmRecoveryKey(Platform& platform, QWidget* parent);

 private:
  void Copy();
  void Save();

  Platform& platform_;
  QString key_;
  QPlainTextEdit* txtKey_;
};

}  // namespace corvanta
