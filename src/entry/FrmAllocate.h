#pragma once

#include "controls/FormDialog.h"
#include "entry/AllocationEditor.h"
#include "entry/EntryDialogs.h"

class QLineEdit;
class QStandardItemModel;

namespace corvanta {

class AmountEdit;
class FrmCategoryBoxes;
class ListTable;
class MutedLabel;
class PickBox;

// Spreads the amount of a transaction or a schedule over categories. Every share is written when it
// is saved, not when the dialog closes.
class FrmAllocate : public FormDialog {
  Q_OBJECT

 public:
  FrmAllocate(const AllocationParent& parent, const EntryPlace& place);

 public Q_SLOTS:
  // Asks first when the shares do not come to the parent's amount.
  void reject() override;

 private:
  void MakeList();
  void MakeFields();
  void MakeButtons();
  // The list and an empty share of what remains. Throws StoreError.
  void StartShare();
  void FillList();
  void ShowSums();
  void Show(const AllocationForm& share);
  [[nodiscard]] AllocationForm Form();
  [[nodiscard]] std::int64_t ChosenKey() const;
  // Shows the share that is chosen in the list.
  void TakeChosen();
  void Accept();
  void New();
  void Delete();
  void Help();
  [[nodiscard]] QString Shown(double amount) const;

  Platform& platform_;
  AllocationEditor editor_;
  std::vector<AllocationForm> shares_;
  bool isFilling_ = false;
  ListTable* lvAllocated_;
  QStandardItemModel* model_;
  MutedLabel* lblSums_;
  PickBox* cmbCategory_;
  PickBox* cmbSubCategory_;
  FrmCategoryBoxes* categories_;
  AmountEdit* txtAmount_;
  QLineEdit* txtReference_;
  QLineEdit* txtDescription_;
  QPushButton* cmdDelete_ = nullptr;
};

}  // namespace corvanta
