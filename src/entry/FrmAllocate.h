#pragma once

#include "controls/FormDialog.h"
#include "entry/AllocationEditor.h"
#include "entry/EntryDialogs.h"

class QLineEdit;
class QStandardItemModel;

namespace corvanta::inline controls {
class AmountEdit;
class ListTable;
class MutedLabel;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline entry {

class ucCategoryBoxes;

// Spreads the amount of a transaction or a schedule over categories. Every line is written when it
// is saved, not when the dialog closes.
class FrmAllocate : public FormDialog {
  Q_OBJECT

 public:
  FrmAllocate(const AllocationParent& parent, const EntryPlace& place);

 public Q_SLOTS:
  // Asks first when the lines do not come to the parent's amount.
  void reject() override;

 private:
  void MakeList();
  void MakeFields();
  void MakeButtons();
  // The list and an empty line of what remains. Throws StoreError.
  void StartLine();
  void FillList();
  void ShowSums();
  void Show(const AllocationForm& line);
  [[nodiscard]] AllocationForm Form();
  [[nodiscard]] std::int64_t ChosenKey() const;
  // Shows the line that is chosen in the list.
  void ShowChosen();
  void Accept();
  void New();
  void Delete();
  void Help();
  [[nodiscard]] QString Shown(double amount) const;

  Platform& platform_;
  AllocationEditor editor_;
  std::vector<AllocationForm> lines_;
  bool isFilling_ = false;
  ListTable* lvAllocated_;
  QStandardItemModel* model_;
  MutedLabel* lblSums_;
  PickBox* cmbCategory_;
  PickBox* cmbSubCategory_;
  ucCategoryBoxes* categories_;
  AmountEdit* txtAmount_;
  QLineEdit* txtReference_;
  QLineEdit* txtDescription_;
  QPushButton* cmdDelete_ = nullptr;
};

}  // namespace corvanta::inline entry
