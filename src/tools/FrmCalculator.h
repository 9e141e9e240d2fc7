#pragma once

#include "controls/FormDialog.h"

class QLineEdit;
class QListWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline tools {

// A calculator: a sum is typed as it is anywhere an amount is asked for, and stays in a list with
// its result, to be used or changed again.
class FrmCalculator : public FormDialog {
  Q_OBJECT

 public:
  FrmCalculator(Platform& platform, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void MakeLayout();
  void WorkOutLine();
  // The result of the line above, or of the last one, is put where the line is typed.
  void UseResult();
  void CopyResult();
  [[nodiscard]] QString ResultOf(int row) const;

  Platform& platform_;
  QListWidget* lvSums_;
  QLineEdit* txtSum_;
};

}  // namespace corvanta::inline tools
