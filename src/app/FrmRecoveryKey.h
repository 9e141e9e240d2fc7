#pragma once

#include "controls/QuietEnd.h"

#include <QDialog>

#include <string>

class QPlainTextEdit;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// Shows the recovery key of a data file, to be copied or saved.
class FrmRecoveryKey : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  // `password` is the one that opens the data file.
  FrmRecoveryKey(Platform& platform, const std::string& password, QWidget* parent);

 private:
  void Copy();
  void Save();

  Platform& platform_;
  QString key_;
  QPlainTextEdit* txtKey_;
};

}  // namespace corvanta::inline app
