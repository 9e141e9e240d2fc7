#pragma once

#include "controls/EditorDialog.h"
#include "entry/EntryDialogs.h"
#include "entry/EntryEditor.h"

class QComboBox;
class QLineEdit;

namespace corvanta::inline controls {
class AmountEdit;
class MutedLabel;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline entry {

class ucCategoryBoxes;

// What the editors of transactions and of schedules have in common: the fields of an entry, and the
// layout that its type gives them.
class FrmEntry : public EditorDialog {
  Q_OBJECT

 protected:
  // New entries are in that account; 0 for none.
  FrmEntry(const QString& name, const QString& what, const EntryPlace& place,
           std::int64_t accountId);

  // Rows of the form; a dialog puts its own between them.
  void AddAccountRows();  // account, type
  void AddPayeeRows(
      const std::vector<QWidget*>& besideAmount = {});  // from the payee to the amount
  void AddTextRows();                                   // reference, description

  // What the rows above hold. Throws StoreError.
  void ShowFields(const EntryForm& form);
  void ReadFields(EntryForm& form);

  [[nodiscard]] EntryType Type() const;
  void SetType(EntryType type);
  // Opens the lines of the row, which is saved first where it is new. Throws StoreError.
  void OpenLines(AllocationSource source);
  // The lines have been looked at and perhaps edited: the row has the amount now, signed, that the
  // data file holds.
  void ReadBack(bool isChanged, bool hasLines, double amount);
  // Says beside the category into how many parts the row is split; nothing for 0.
  void ShowLines(std::size_t count);
  // Where a dialog of this one is opened.
  [[nodiscard]] EntryPlace Place();

  [[nodiscard]] QString ItemName() const override;
  // The key of what was saved; the field to go back to has the focus where the person declined.
  std::int64_t Saved(std::int64_t key, const EntryEditor& editor);
  // The lines have been closed; see ReadBack.
  virtual void ApplyLines(bool isChanged) = 0;
  // The person has chosen another type: what hangs on it in the fields follows.
  virtual void ApplyType() = 0;
  // The person has chosen another account.
  virtual void ApplyAccount() {}
  // The layout of the type.
  virtual void ShowType();

  EntryPlace place_;
  std::int64_t accountId_;
  PickBox* cmbAccount_;
  QComboBox* cmbType_;
  PickBox* cmbPayee_;
  PickBox* cmbAccountTo_;
  PickBox* cmbCategory_;
  PickBox* cmbSubCategory_;
  ucCategoryBoxes* categories_;
  PickBox* cmbPayment_;
  AmountEdit* txtAmount_;

 private:
  void ConnectFields();
  void ChooseType();
  void ChooseAccount();
  void ShowCurrency();

  bool isShowing_ = false;
  QLabel* lblAccount_ = nullptr;
  QLabel* lblPayee_ = nullptr;
  QLabel* lblCurrency_;
  MutedLabel* lblSplit_;
  QLineEdit* txtReference_;
  QLineEdit* txtDescription_;
};

}  // namespace corvanta::inline entry
