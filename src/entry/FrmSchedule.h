#pragma once

#include "entry/FrmEntry.h"
#include "entry/ScheduleEditor.h"

class QCheckBox;

namespace corvanta::inline controls {
class DateField;
class MutedLabel;
}  // namespace corvanta::inline controls

namespace corvanta::inline entry {

// The editor of scheduled transactions.
class FrmSchedule : public FrmEntry {
  Q_OBJECT

 public:
  // New schedules are in that account; 0 for none.
  FrmSchedule(const EntryPlace& place, std::int64_t accountId);
  // Leaves the fields while they can still be read: a number is settled when it is left.
  ~FrmSchedule() override { hide(); }

  // The rules behind it.
  [[nodiscard]] ScheduleEditor& Editor() { return editor_; }
  // Shows a new schedule of what the transaction is, from its day on. Throws StoreError.
  void Prefill(const TransactionForm& transaction);

 protected:
  void Clear() override;
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return Saved(editor_.Save(Form()), editor_); }
  bool Delete() override { return editor_.Delete(Key()); }
  void ApplyType() override;
  void ApplyLines(bool isChanged) override;

 private:
  void MakeFields();
  void MakeDayFields();
  void MakeTools();
  void ConnectFields();

  void Show(const ScheduleForm& form);
  void ShowAutomated(AddToAccount add);
  void ShowNext();
  void ShowDays(const DayRule& days);
  void AllowMonthEnd();
  [[nodiscard]] QString NextText(const ScheduleForm& plan);
  [[nodiscard]] ScheduleForm Form();
  // What of the form decides when payments are due.
  void ReadPlan(ScheduleForm& form) const;
  [[nodiscard]] AddToAccount Automated() const;
  [[nodiscard]] int Number() const;

  void ApplyPeriod();
  void Allocate();
  void Help();

  ScheduleEditor editor_;
  ScheduleForm form_;              // what the fields were filled from
  std::optional<int> beforeOnce_;  // the number of payments that "Once" has replaced
  QComboBox* cmbPeriod_;
  DateField* dtFrom_;
  AmountEdit* txtNumber_;
  MutedLabel* lblNext_;
  QCheckBox* chkAutomated_;
  QComboBox* cmbAutomated_;  // how far
  QCheckBox* chkMonthEnd_;
  QComboBox* cmbWeekend_;
};

}  // namespace corvanta::inline entry
