#pragma once

#include "controls/EditorDialog.h"
#include "reference/AccountEditor.h"

class QCheckBox;
class QLineEdit;

namespace corvanta::inline controls {
class AmountEdit;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline reference {

// The editor of accounts.
class FrmAccounts : public EditorDialog {
  Q_OBJECT

 public:
  FrmAccounts(Platform& platform, clsCorvanta& ledger, QWidget* parent);

  // New accounts begin like that one; 0 for none.
  void BeginLike(std::int64_t accountId) { like_ = accountId; }

 protected:
  void Clear() override { Show(editor_.New(like_)); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return editor_.Save(Form()); }
  bool Delete() override { return editor_.Delete(Key()).isGone; }
  [[nodiscard]] QString ItemName() const override;

 private:
  void FillLists();
  void FillBanks();
  void Show(const AccountForm& row);
  [[nodiscard]] AccountForm Form() const;
  void AddBank();

  Platform& platform_;
  clsCorvanta& ledger_;
  AccountEditor editor_;
  std::int64_t like_ = 0;
  QLineEdit* txtAccount_;
  PickBox* cmbAccountType_;
  PickBox* cmbBank_;
  QLineEdit* txtAccountNo_;
  PickBox* cmbCurrency_;
  AmountEdit* txtOpeningBalance_;
  QLineEdit* txtDescription_;
  QCheckBox* chkCloseAccount_;
};

}  // namespace corvanta::inline reference
