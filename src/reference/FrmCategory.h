#pragma once

#include "controls/EditorDialog.h"
#include "reference/CategoryEditor.h"

class QComboBox;
class QLineEdit;

namespace corvanta::inline controls {
class AmountEdit;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reference {

// The editor of categories and their budgets.
class FrmCategory : public EditorDialog {
  Q_OBJECT

 public:
  FrmCategory(Platform& platform, clsCorvanta& ledger, QWidget* parent);

 protected:
  void Clear() override { Show({}); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return editor_.Save(Form()); }
  bool Delete() override;
  [[nodiscard]] QString ItemName() const override;

 private:
  void FillLists(std::int64_t shown);
  void Show(const CategoryForm& row);
  [[nodiscard]] CategoryForm Form() const;
  void Merge();

  Platform& platform_;
  clsCorvanta& ledger_;
  CategoryEditor editor_;
  PickBox* cmbCategory_;
  QLineEdit* txtSubCategory_;
  QLineEdit* txtDescription_;
  QComboBox* cmbType_;
  AmountEdit* txtBudget_;
  QComboBox* cmbPeriod_;
};

}  // namespace corvanta::inline reference
