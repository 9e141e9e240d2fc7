#pragma once

#include "controls/FormDialog.h"
#include "reports/print/PageSetup.h"

class QComboBox;
class QDoubleSpinBox;

namespace corvanta::inline reports {

// The paper, how it lies, and its margins: for everything that is printed from here on.
class FrmPageSetup : public FormDialog {
  Q_OBJECT

 public:
  FrmPageSetup(Platform& platform, QWidget* parent);

 private:
  [[nodiscard]] QDoubleSpinBox* AddMargin(const QString& label, const char* name);
  void Show(const PageSetup& setup);
  [[nodiscard]] PageSetup Form() const;
  void Accept();

  Platform& platform_;
  QComboBox* cmbPaper_;
  QComboBox* cmbOrientation_;
  QDoubleSpinBox* txtLeft_;
  QDoubleSpinBox* txtTop_;
  QDoubleSpinBox* txtRight_;
  QDoubleSpinBox* txtBottom_;
};

}  // namespace corvanta::inline reports
