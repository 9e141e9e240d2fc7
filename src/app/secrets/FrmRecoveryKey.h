#pragma once

#include "controls/QuietEnd.h"
#include "reports/print/ReportDialogs.h"

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
  // `password` is the one that opens the data file; `choose` stands for the system's own dialog of
  // printers.
  FrmRecoveryKey(Platform& platform, const std::string& password, QWidget* parent,
                 PrinterChoice choose = {});

 private:
  void Copy();
  void Save();
  void Print();

  Platform& platform_;
  PrinterChoice choose_;
  QString key_;
  QPlainTextEdit* txtKey_;
};

}  // namespace corvanta::inline app
