#pragma once

#include "controls/EditorDialog.h"
#include "entry/AutofillEditor.h"
#include "entry/EntryDialogs.h"

#include <optional>

namespace corvanta::inline controls {
class AmountEdit;
class ChoiceRow;
class DateField;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline entry {

// Enters a transaction quickly: the rest is that of the account's latest one of the same payee and
// category.
class FrmAccountAuto : public EditorDialog {
  Q_OBJECT

 public:
  // New rows are in that account.
  FrmAccountAuto(const EntryPlace& place, std::int64_t accountId);

  // A schedule was changed from the full editor.
  [[nodiscard]] bool IsScheduleChanged() const { return isScheduleChanged_; }

 protected:
  void Clear() override;
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override;
  bool Delete() override { return false; }
  [[nodiscard]] QString ItemName() const override;
  [[nodiscard]] QString Title() const override { return tr("Autofill Transactions"); }

 private:
  void MakeFields();
  void Show(const AutofillForm& form);
  [[nodiscard]] AutofillForm Form();
  // The category of the payee's last transaction, until the person chooses one.
  void Propose();
  void OpenDetails();
  void Help();

  EntryPlace place_;
  std::int64_t accountId_;
  AutofillEditor editor_;
  AutofillForm form_;  // what the fields were filled from
  bool isScheduleChanged_ = false;
  bool isCategoryChosen_ = false;
  std::optional<Date> lastDay_;  // of the transaction saved last, where the next one begins
  DateField* txtDate_;
  AmountEdit* txtAmount_;
  QLabel* lblCurrency_;
  ChoiceRow* opType_;
  PickBox* cmbPayee_;
  PickBox* cmbCategory_;
};

}  // namespace corvanta::inline entry
