#pragma once

#include "controls/EditorDialog.h"
#include "ledger/ReferenceRecords.h"
#include "reference/PaymentEditor.h"

class QLineEdit;

namespace corvanta {

struct Platform;

// The editor of payment types.
class FrmPayments : public EditorDialog {
  Q_OBJECT

 public:
  FrmPayments(Platform& platform, clsCorvanta& ledger, QWidget* parent);

 protected:
  void Clear() override { Show({}); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return editor_.Save(Form()); }
  bool Delete() override;
  [[nodiscard]] QString ItemName() const override;

 private:
  void Show(const PaymentRecord& row);
  [[nodiscard]] PaymentRecord Form() const;

  PaymentEditor editor_;
  QLineEdit* txtPayment_;
  QLineEdit* txtDescription_;
};

}  // namespace corvanta
