#pragma once

#include "controls/EditorDialog.h"
#include "ledger/reference/ReferenceRecords.h"
#include "reference/ReferenceEditor.h"

#include <vector>

class QLineEdit;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reference {

// The editor of account groups, banks, payees, payment types, currencies or keywords: a field for
// the name and one for each further text.
template <typename Record>
class FrmReference : public EditorDialog {
 public:
  FrmReference(Platform& platform, clsCorvanta& ledger, QWidget* parent);

 protected:
  void Clear() override { Show({}); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return editor_.Save(Form()); }
  bool Delete() override;
  [[nodiscard]] QString ItemName() const override;

 private:
  void AddMerge();
  void Merge();
  void Show(const Record& row);
  [[nodiscard]] Record Form() const;

  Platform& platform_;
  clsCorvanta& ledger_;
  ReferenceEditor<Record> editor_;
  QLineEdit* name_;
  std::vector<QWidget*> texts_;  // in the order of the table's
};

using FrmAccountTypes = FrmReference<AccountGroupRecord>;
using FrmBanks = FrmReference<BankRecord>;
using FrmPayees = FrmReference<PayeeRecord>;
using FrmPayments = FrmReference<PaymentRecord>;
using FrmCurrencies = FrmReference<CurrencyRecord>;
using FrmKeywords = FrmReference<KeywordRecord>;

}  // namespace corvanta::inline reference
