#pragma once

#include "controls/EditorDialog.h"
#include "ledger/ReferenceRecords.h"
#include "reference/AccountTypeEditor.h"

class QLineEdit;

namespace corvanta {

struct Platform;

// The editor of account groups.
class FrmAccountTypes : public EditorDialog {
  Q_OBJECT

 public:
  FrmAccountTypes(Platform& platform, clsCorvanta& ledger, QWidget* parent);

 protected:
  void Clear() override { Show({}); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return editor_.Save(Form()); }
  bool Delete() override;
  [[nodiscard]] QString ItemName() const override;

 private:
  void Show(const AccountGroupRecord& row);
  [[nodiscard]] AccountGroupRecord Form() const;

  AccountTypeEditor editor_;
  QLineEdit* txtAccountType_;
  QLineEdit* txtDescription_;
};

}  // namespace corvanta
