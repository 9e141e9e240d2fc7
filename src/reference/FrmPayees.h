#pragma once

#include "controls/EditorDialog.h"
#include "ledger/ReferenceRecords.h"
#include "reference/PayeeEditor.h"

class QLineEdit;

namespace corvanta {

struct Platform;

// The editor of payees.
class FrmPayees : public EditorDialog {
  Q_OBJECT

 public:
  FrmPayees(Platform& platform, clsCorvanta& ledger, QWidget* parent);

 protected:
  void Clear() override { Show({}); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return editor_.Save(Form()); }
  bool Delete() override;
  [[nodiscard]] QString ItemName() const override;

 private:
  void Show(const PayeeRecord& row);
  [[nodiscard]] PayeeRecord Form() const;
  void Merge();

  Platform& platform_;
  clsCorvanta& ledger_;
  PayeeEditor editor_;
  QLineEdit* txtPayee_;
  QLineEdit* txtDescription_;
};

}  // namespace corvanta
