#pragma once

#include "controls/FormDialog.h"
#include "reports/custom/ReportEditor.h"

#include <optional>
#include <string>

class QPushButton;
class QStackedWidget;
class QStandardItemModel;

namespace corvanta::inline controls {
class EmptyState;
class ListTable;
}  // namespace corvanta::inline controls

namespace corvanta::inline reports {

// "Custom Reports": the saved reports, which are opened and deleted here.
class FrmReport : public FormDialog {
  Q_OBJECT

 public:
  FrmReport(Registry& registry, Prompts& prompts, QWidget* parent);

  // What was chosen, once the dialog was accepted.
  [[nodiscard]] const std::optional<ReadDefinition>& Opened() const { return opened_; }

 private:
  void MakeList();
  void MakeButtons();
  void Fill();
  [[nodiscard]] std::string Chosen() const;
  void Open();
  void Delete();

  ReportEditor editor_;
  std::optional<ReadDefinition> opened_;
  QStackedWidget* pages_;
  ListTable* lvReports_;
  EmptyState* empty_;
  QStandardItemModel* model_;
  QPushButton* cmdOpen_ = nullptr;
  QPushButton* cmdDelete_ = nullptr;
};

}  // namespace corvanta::inline reports
