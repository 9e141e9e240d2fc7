#pragma once

#include "entry/FrmEntry.h"
#include "entry/TransactionEditor.h"

#include <QSet>

#include <functional>

namespace corvanta::inline controls {
class ChoiceRow;
class DateField;
}  // namespace corvanta::inline controls

namespace corvanta::inline entry {

// The editor of ordinary transactions and transfers.
class FrmAccountTrans : public FrmEntry {
  Q_OBJECT

 public:
  // New rows are in that account; 0 for none.
  FrmAccountTrans(const EntryPlace& place, std::int64_t accountId);
  // Leaves the fields while what follows from them is still there.
  ~FrmAccountTrans() override { hide(); }

  // Whether a schedule was changed while the dialog stood.
  [[nodiscard]] bool IsScheduleChanged() const { return isScheduleChanged_; }
  // The new row that is shown is of that day.
  void SetDay(Date day);
  // The rules behind it.
  [[nodiscard]] TransactionEditor& Editor() { return editor_; }
  // Puts what was typed elsewhere into the fields of the row that is shown. Throws StoreError.
  void Prefill(const TransactionForm& form);

 protected:
  void Clear() override;
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override;
  bool Delete() override { return editor_.Delete(Key()); }
  void ApplyType() override;
  void ApplyAccount() override { ShowArrival(); }
  void ApplyLines(bool isChanged) override;
  void ShowType() override;

 private:
  void MakeFields();
  void MakeTools();
  void ConnectFields();
  // What the person changes in the field, no proposal replaces.
  void Watch(QWidget* field);
  void Touch(QWidget* field) { touched_.insert(field); }
  [[nodiscard]] bool IsUntouched(QWidget* field) const { return !touched_.contains(field); }

  void Show(const TransactionForm& form);
  [[nodiscard]] TransactionForm Form();
  void ShowSchedule();
  void MakeArrival();
  void KeepNotePlace();
  // The field of what arrives stands beside the amount while there are two currencies.
  void ShowArrival();

  void Propose();
  void Allocate();
  void OpenOtherHalf();
  void OpenSchedule();
  void Autofill();
  void LookUpCurrency();
  // What belongs to the row beside its fields; a new one is saved first.
  void ChooseKeywords();
  void OpenFiles();
  void OpenNotes(const std::function<bool(std::int64_t key)>& open);
  // The buttons say what the row of that key has; nothing for 0.
  void ShowNotes(std::int64_t key);
  void Help();

  TransactionEditor editor_;
  TransactionForm form_;  // what the fields were filled from
  QSet<QWidget*> touched_;
  bool isScheduleChanged_ = false;
  QString proposedFor_;  // the payee
  bool isArrivalTyped_ = false;
  std::optional<Date> lastDay_;  // of the transaction saved last, where the next one begins
  DateField* txtDate_;
  QLabel* lblArrives_;
  AmountEdit* txtAmountTo_;  // what arrives, in the other account's currency
  QLabel* lblCurrencyTo_;
  ChoiceRow* opPayment_;
  QPushButton* cmdAllocate_ = nullptr;
  QPushButton* cmdAutoFill_ = nullptr;
  QPushButton* cmdAddSchedule_ = nullptr;
  QPushButton* cmdKeywords_ = nullptr;
  QPushButton* cmdAttachments_ = nullptr;
};

}  // namespace corvanta::inline entry
