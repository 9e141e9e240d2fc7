#include "entry/ScheduleEditor.h"

#include "entry/EntryRules.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/register/StatusFilter.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleDates.h"
#include "ledger/schedules/ScheduleRows.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reference/Deletion.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <cmath>

namespace corvanta::inline entry {
namespace {

constexpr double kMaxPayments = 1e6;

constexpr EntryRule kRules[] = {
    kAmountNeeded,    kTypeNeeded,
    kPaymentNeeded,   kPaymentFits,
    kAccountNeeded,   kPayeeNeeded,
    kPayeeFits,       kCategoryNeeded,
    kCategoryFits,    kSubCategoryFits,
    kAccountToNeeded, {IsToItself, "You can not transfer to the the same Account", "cmbAccountTo"},
    kAmountUnsigned,  kAmountFits,
};

ScheduleRecord RecordOf(const std::optional<ScheduleDetails>& stored) {
  ScheduleRecord record;
  if (stored) record = *stored;
  return record;
}

// A finished schedule stays so as long as its plan does.
void FillPlan(const ScheduleForm& form, ScheduleRecord& record) {
  const bool isAsBefore = record.scheduleId != 0 && record.periodId == form.periodId &&
                          record.dateFrom == form.dateFrom &&
                          std::abs(record.noTimes) == form.number &&
                          record.days.isMonthEnd == form.days.isMonthEnd;
  record.periodId = form.periodId;
  record.dateFrom = form.dateFrom;
  record.days = form.days;
  if (!isAsBefore) record.noTimes = form.number;
}

}  // namespace

const ScheduleEditor::Stored& ScheduleEditor::Read(std::int64_t key) {
  return stored_.Of(key, ledger_.Store(), [this](std::int64_t wanted) {
    return ledger_.Schedules().ReadSchedule(wanted);
  });
}

std::optional<Warning> ScheduleEditor::CheckOpen() {
  if (!ledger_.Accounts().Accounts(StatusFilter(), true).empty()) return std::nullopt;
  return Warning{
      "Please Add Account", "There are no Accounts set up. Please add an Account to start", {}};
}

ScheduleForm ScheduleEditor::New(std::int64_t accountId) {
  ScheduleForm form;
  form.type = EntryType::Expense;
  form.accountId = accountId;
  form.dateFrom = platform_.clock.Today();
  const auto periods = ledger_.References().Periods();
  const auto monthly = std::ranges::find(periods, "m", &PeriodRecord::period);
  if (monthly != periods.end()) form.periodId = monthly->periodId;
  return form;
}

ScheduleForm ScheduleEditor::From(const TransactionForm& transaction) {
  ScheduleForm form = New(transaction.accountId);
  static_cast<EntryForm&>(form) = transaction;
  form.hasLines = false;
  form.dateFrom = transaction.date;
  if (transaction.transactionId == 0) return form;
  // That payment is in the account already.
  const std::vector<Date> dates = NextDates(form, 2);
  if (dates.size() == 2) form.dateFrom = dates.back();
  return form;
}

std::optional<ScheduleForm> ScheduleEditor::Load(std::int64_t key) {
  const Stored& row = Read(key);
  if (!row) return std::nullopt;
  if (row->allocatedItem != 0) return Load(row->allocatedItem);
  ScheduleForm form;
  FillForm(*row, row->IsTransfer(), form);
  form.scheduleId = row->scheduleId;
  form.accountToId = row->transferAccountId;
  form.periodId = row->periodId;
  form.dateFrom = row->dateFrom;
  form.number = std::abs(row->noTimes);
  form.days = row->days;
  form.addToAccount = row->addToAccount;
  form.posted = row->posted;
  form.isFinished = row->isFinished;
  return form;
}

void ScheduleEditor::ChoosePeriod(ScheduleForm& form, std::int64_t periodId) {
  form.periodId = periodId;
  const auto period = RowOf(ledger_.References().Periods(), &PeriodRecord::periodId, periodId);
  if (period && period->description == "Once") form.number = 1;
}

int ScheduleEditor::NumberOfPayments(std::string_view text, const Locale& locale) {
  const std::optional<double> number = locale.ParseNumber(text);
  if (!number || !std::isfinite(*number)) return 0;
  return static_cast<int>(std::lround(std::min(std::fabs(*number), kMaxPayments)));
}

std::string ScheduleEditor::PeriodCode(std::int64_t periodId) {
  const auto period = RowOf(ledger_.References().Periods(), &PeriodRecord::periodId, periodId);
  return period ? period->period : std::string();
}

bool ScheduleEditor::IsMonthly(std::int64_t periodId) {
  const auto step = PeriodStep::FromCode(PeriodCode(periodId));
  return step && step->IsMonthly();
}

SchedulePlan ScheduleEditor::PlanOf(const ScheduleForm& form) {
  ScheduleRecord record = RecordOf(Read(form.scheduleId));
  FillPlan(form, record);
  return ledger_.Schedules().PlanAfterSaving(record);
}

std::vector<Date> ScheduleEditor::NextDates(const ScheduleForm& form, std::size_t count) {
  return FirstScheduleDates(PlanOf(form), count);
}

std::vector<Date> ScheduleEditor::NotPosted(std::int64_t key, std::vector<Date> dates) {
  const PostedRows posted = PostedOf(ledger_.Store(), key);
  std::erase_if(dates, [&](Date due) { return posted.Has(due); });
  return dates;
}

std::optional<Warning> ScheduleEditor::Check(ScheduleForm form) {
  Settle(ledger_, form);
  if (form.periodId == 0) {
    return Warning{kSaveWarning, "You need to select a Frequency", "cmbPeriod"};
  }
  if (auto warning = FirstBroken(kRules, form)) return warning;
  if (auto warning = CheckTexts(ledger_, "tblSchedule", form)) return warning;
  const bool isNew = form.scheduleId == 0;
  if (!isNew && !Read(form.scheduleId)) return Gone();
  return CheckAccounts(form, isNew);
}

std::int64_t ScheduleEditor::Save(ScheduleForm form) {
  const Stored stored = Read(form.scheduleId);
  Settle(ledger_, form);
  form.hasLines = stored && stored->hasLines;
  if (!AgreeTo(form)) return 0;
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.scheduleId == 0 ? "Add Schedule" : "Edit Schedule");
  Transaction all = ledger_.Store().Begin();
  ScheduleRecord record = RecordOf(stored);
  Fill(form, record);
  record.transferAccountId = form.IsTransfer() ? form.accountToId : 0;
  record.addToAccount = form.addToAccount;
  FillPlan(form, record);
  if (form.hasLines && stored->amount * record.amount < 0) ReverseLines(record.scheduleId);
  const std::int64_t key = ledger_.Schedules().SaveSchedule(record);
  all.Commit();
  if (form.hasLines && !form.IsTransfer()) {
    TellOtherAmount(platform_, Read(key)->amount, record.amount);
  }
  return key;
}

// An expense that becomes an income has lines that are incomes.
void ScheduleEditor::ReverseLines(std::int64_t key) {
  for (ScheduleRecord line : ledger_.Schedules().ScheduleLines(key)) {
    line.amount = -line.amount;
    ledger_.Schedules().SaveSchedule(line);
  }
}

std::int64_t ScheduleEditor::PostedCount(std::int64_t key) {
  if (key == 0) return 0;
  return ledger_.Store()
      .QueryValue(
          "Select Count(*) from tblTransactions Where NOT (AllocatedItem <> 0) AND BankSch = " +
          SqlNumber(key) + " AND NOT IsNull(ScheduleDate)")
      .Int();
}

bool ScheduleEditor::Delete(std::int64_t key) {
  if (!AskDelete(platform_.prompts)) return false;
  const std::int64_t posted = PostedCount(key);
  const std::string rows = posted == 1 ? "transaction" : std::to_string(posted) + " transactions";
  const bool withRows =
      posted > 0 && platform_.prompts.Ask("Delete Item?", "Do you also wish to delete the " + rows +
                                                              " posted from it?");
  ledger_.Schedules().DeleteSchedule(key, withRows);
  return true;
}

}  // namespace corvanta::inline entry
