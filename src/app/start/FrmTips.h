#pragma once

#include "controls/QuietEnd.h"

#include <QDialog>
#include <QStringList>

class QCheckBox;
class QDialogButtonBox;
class QLabel;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// The tip of the day: another one each day, and the next one on demand.
class FrmTips : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  // Reads the tips from `file`; an empty name stands for the program's own file.
  FrmTips(Platform& platform, QWidget* parent, const QString& file = QString());

 private:
  void Arrange(QDialogButtonBox& buttons);
  void ShowTip();

  Platform& platform_;
  QStringList tips_;
  qsizetype shown_ = 0;
  QLabel* lblTip_;
  QCheckBox* chkLoadTipsAtStartup_;
};

}  // namespace corvanta::inline app
