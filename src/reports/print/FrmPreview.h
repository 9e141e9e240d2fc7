#pragma once

#include "controls/QuietEnd.h"
#include "reports/print/PageSetup.h"
#include "reports/print/ReportDialogs.h"

#include <QDialog>

#include <functional>
#include <optional>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QScrollArea;
class QSpinBox;
class QToolButton;

namespace corvanta::inline reports {

class ucPrintPage;

// Shows the pages of a list as they would be printed, one at a time, at a size that can be chosen.
class FrmPreview : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  FrmPreview(PrintTable table, const PrintPlace& place);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakePageBar(QBoxLayout& page);
  void MakePaper(QBoxLayout& page);
  void MakeButtons(QBoxLayout& page);
  void MakeShortcuts();
  void SetUp();
  void ShowOrientation();
  // The paper as it is set, turned as this list was.
  [[nodiscard]] PageSetup Setup() const;
  void LayOut();
  void ShowPage(int number);
  // To the size chosen, or what fits.
  void ApplyZoom();
  // The next larger or smaller of the sizes.
  void StepZoom(bool larger);
  void Run(const std::function<void()>& command);

  PrintTable table_;
  PrintPlace place_;
  std::optional<PrintOrientation> turned_;
  QScrollArea* scroll_ = nullptr;
  ucPrintPage* picPreview_ = nullptr;
  QToolButton* cmdPrevious_ = nullptr;
  QToolButton* cmdNext_ = nullptr;
  QSpinBox* txtPage_ = nullptr;
  QLabel* lblPages_ = nullptr;
  QComboBox* cmbZoom_ = nullptr;
  QCheckBox* chkLandscape_ = nullptr;
};

}  // namespace corvanta::inline reports
