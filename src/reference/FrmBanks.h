#pragma once

#include "controls/EditorDialog.h"
#include "ledger/ReferenceRecords.h"
#include "reference/BankEditor.h"

class QLineEdit;
class QPlainTextEdit;

namespace corvanta {

struct Platform;

// The editor of banks.
class FrmBanks : public EditorDialog {
  Q_OBJECT

 public:
  FrmBanks(Platform& platform, clsCorvanta& ledger, QWidget* parent);

 protected:
  void Clear() override { Show({}); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return editor_.Save(Form()); }
  bool Delete() override;
  [[nodiscard]] QString ItemName() const override;

 private:
  void Show(const BankRecord& row);
  [[nodiscard]] BankRecord Form() const;

  BankEditor editor_;
  QLineEdit* txtBank_;
  QPlainTextEdit* txtAddress_;
  QLineEdit* txtPostcode_;
  QLineEdit* txtTelephone_;
  QLineEdit* txtAccount_;
  QLineEdit* txtSortcode_;
  QLineEdit* txtWeb_;
  QLineEdit* txtDescription_;
};

}  // namespace corvanta
