#pragma once

#include "entry/EntryEditor.h"
#include "entry/StoredRow.h"
#include "entry/TransactionForm.h"
#include "ledger/Warning.h"
#include "ledger/schedules/ScheduleDates.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline entry {

// A schedule as its editor shows it.
struct ScheduleForm : EntryForm {
  std::int64_t scheduleId = 0;  // 0 for a new one
  std::int64_t periodId = 0;    // 0 not chosen
  Date dateFrom;
  int number = 0;  // payments from dateFrom on; 0 without end
  DayRule days;
  AddToAccount addToAccount = AddToAccount::No;

  // As it was loaded.
  int posted = 0;           // of the payments from dateFrom on
  bool isFinished = false;  // the last payment is posted or skipped

  bool operator==(const ScheduleForm&) const = default;
};

// The rules behind the editor of scheduled transactions. Posting is another matter: run a pass
// after something was saved or deleted.
class ScheduleEditor : public EntryEditor {
 public:
  ScheduleEditor(clsCorvanta& ledger, Platform& platform) : EntryEditor(ledger, platform) {}

  // Why the editor has nothing to work with: there is no account.
  [[nodiscard]] std::optional<Warning> CheckOpen();
  // A monthly expense from today on, without end, posted by hand, in that account (0 for none).
  [[nodiscard]] ScheduleForm New(std::int64_t accountId);
  // A new one for what the transaction is, from its day on; of a saved transaction from the day
  // that the next payment is due.
  [[nodiscard]] ScheduleForm From(const TransactionForm& transaction);
  // A split line shows the schedule that it is a line of. nullopt when there is no such schedule.
  [[nodiscard]] std::optional<ScheduleForm> Load(std::int64_t key);

  // Sets the type; a transfer without a category is of the category "Credit", which it loses again
  // with the type. Show the whole form again.
  static void ChooseType(ScheduleForm& form, EntryType type) { corvanta::ChooseType(form, type); }
  // Sets the frequency, and with "Once" the number of payments.
  void ChoosePeriod(ScheduleForm& form, std::int64_t periodId);
  // The number that a typed text stands for: whole, 0 for what is no number.
  [[nodiscard]] static int NumberOfPayments(std::string_view text, const Locale& locale);
  // Whether payments of that frequency can be due on the last day of a month.
  [[nodiscard]] bool IsMonthly(std::int64_t periodId);
  // The plan as saving the form would store it: a saved schedule whose start lies in the past goes
  // on behind what it has posted.
  [[nodiscard]] SchedulePlan PlanOf(const ScheduleForm& form);
  // The first payments as they would be due; fewer where there are fewer.
  [[nodiscard]] std::vector<Date> NextDates(const ScheduleForm& form, std::size_t count);
  // Those of the due dates that the schedule of that key (0 for a new one) has no row for.
  [[nodiscard]] std::vector<Date> NotPosted(std::int64_t key, std::vector<Date> dates);

  // The first rule that is broken, about the control of that name.
  [[nodiscard]] std::optional<Warning> Check(ScheduleForm form);
  // As TransactionEditor::Save. A finished schedule stays so unless its start, frequency or number
  // is changed.
  std::int64_t Save(ScheduleForm form);
  // Asks, and once more whether the rows posted from it go too; otherwise they stay as if entered
  // by hand. True when the schedule is gone.
  bool Delete(std::int64_t key);
  // How many transactions the schedule has posted, a transfer counting once.
  [[nodiscard]] std::int64_t PostedCount(std::int64_t key);

 private:
  using Stored = std::optional<ScheduleDetails>;

  [[nodiscard]] const Stored& Read(std::int64_t key);
  [[nodiscard]] std::string PeriodCode(std::int64_t periodId);
  void ReverseLines(std::int64_t key);

  StoredRow<ScheduleDetails> stored_;
};

}  // namespace corvanta::inline entry
