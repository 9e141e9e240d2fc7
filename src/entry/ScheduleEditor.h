#pragma once

#include "entry/TransactionForm.h"
#include "ledger/ScheduleDates.h"
#include "ledger/ScheduleRecord.h"
#include "ledger/Warning.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta {

class Locale;
struct Platform;
class clsCorvanta;

// A schedule as its editor shows it. Names are typed or picked.
struct ScheduleForm {
  std::int64_t scheduleId = 0;  // 0 for a new one
  EntryType type = EntryType::None;
  std::int64_t accountId = 0;    // 0 not chosen; of a transfer: From
  std::int64_t accountToId = 0;  // of a transfer
  std::string payee;             // not of a transfer
  std::string payment;
  std::string category;
  std::string subCategory;           // empty for none
  std::optional<double> amount = 0;  // unsigned, in accountId's currency; nullopt is no number
  std::int64_t periodId = 0;         // 0 not chosen
  Date dateFrom;
  int number = 0;  // payments from dateFrom on; 0 without end
  DayRule days;
  AddToAccount addToAccount = AddToAccount::No;
  std::string reference;
  std::string description;

  // As it was loaded.
  bool hasLines = false;
  int posted = 0;           // of the payments from dateFrom on
  bool isFinished = false;  // the last payment is posted or skipped
};

// The rules behind the editor of scheduled transactions. Posting is another matter: run a pass
// after something was saved or deleted. Operations throw StoreError.
class ScheduleEditor {
 public:
  ScheduleEditor(clsCorvanta& ledger, Platform& platform) : ledger_(ledger), platform_(platform) {}

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
  static void ChooseType(ScheduleForm& form, EntryType type);
  // Sets the frequency, and with "Once" the number of payments.
  void ChoosePeriod(ScheduleForm& form, std::int64_t periodId);
  // The number that a typed text stands for: whole, 0 for what is no number.
  [[nodiscard]] static int NumberOfPayments(std::string_view text, const Locale& locale);
  // The code of the account's currency; empty for no account.
  [[nodiscard]] std::string CurrencyOf(std::int64_t accountId);
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
  [[nodiscard]] std::optional<Warning> Check(const ScheduleForm& form);
  // Writes what Check accepts, with names that are new, as one step that can be undone; returns the
  // key. Asks before it makes a category, and before a split schedule becomes a transfer and loses
  // its lines: when the person declines, nothing is written, the key is 0, and DeclinedField()
  // names the control to go back to. A split schedule keeps the sum of its lines as its amount, and
  // tells so when another one was typed; the lines change their sign with the type. A finished
  // schedule stays so unless its start, frequency or number is changed.
  std::int64_t Save(ScheduleForm form);
  [[nodiscard]] const std::string& DeclinedField() const { return declinedField_; }
  // Asks, and once more whether the rows posted from it go too; otherwise they stay as if entered
  // by hand. True when the schedule is gone.
  bool Delete(std::int64_t key);
  // How many transactions the schedule has posted, a transfer counting once.
  [[nodiscard]] std::int64_t PostedCount(std::int64_t key);

  // Why the schedule cannot be split now.
  [[nodiscard]] std::optional<Warning> CheckAllocate(const ScheduleForm& form);

 private:
  [[nodiscard]] std::optional<Warning> CheckAccounts(const ScheduleForm& form);
  [[nodiscard]] bool AskAll(const ScheduleForm& form);
  void FillPlan(const ScheduleForm& form, ScheduleRecord& record);
  [[nodiscard]] ScheduleRecord RecordOf(const ScheduleForm& form);
  [[nodiscard]] std::string PeriodCode(std::int64_t periodId);
  void ReverseLines(const ScheduleRecord& record);
  void TellOtherAmount(const ScheduleRecord& record, double typed);

  clsCorvanta& ledger_;
  Platform& platform_;
  std::string declinedField_;
};

}  // namespace corvanta
