#include "entry/ScheduleEditor.h"

#include "entry/EntryRules.h"
#include "ledger/AccountBook.h"
#include "ledger/CategoryBook.h"
#include "ledger/CurrencyOf.h"
#include "ledger/Money.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "ledger/ScheduleBook.h"
#include "ledger/ScheduleDates.h"
#include "ledger/ScheduleRows.h"
#include "ledger/StatusFilter.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reference/Deletion.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <cmath>

namespace corvanta {
namespace {

constexpr const char* kTransferPayee = "Transfer";
constexpr const char* kTransferCategory = "Credit";
constexpr const char* kAllocateWarning = "Allocate Item Warning";
constexpr double kMostPayments = 1e6;

bool IsTransfer(const ScheduleForm& form) {
  return form.type == EntryType::Transfer;
}

EntryType TypeOf(const ScheduleRecord& record) {
  if (record.transferAccountId != 0) return EntryType::Transfer;
  return record.amount > 0 ? EntryType::Income : EntryType::Expense;
}

}  // namespace

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
  form.type = transaction.type;
  form.accountToId = transaction.accountToId;
  form.payee = transaction.payee;
  form.payment = transaction.payment;
  form.category = transaction.category;
  form.subCategory = transaction.subCategory;
  form.amount = transaction.amount;
  form.reference = transaction.reference;
  form.description = transaction.description;
  form.dateFrom = transaction.date;
  if (transaction.transactionId == 0) return form;
  // That payment is in the account already.
  const std::vector<Date> dates = NextDates(form, 2);
  if (dates.size() == 2) form.dateFrom = dates.back();
  return form;
}

std::optional<ScheduleForm> ScheduleEditor::Load(std::int64_t key) {
  const auto row = ledger_.Schedules().ReadSchedule(key);
  if (!row) return std::nullopt;
  if (row->allocatedItem != 0) return Load(row->allocatedItem);
  ScheduleForm form;
  form.scheduleId = row->scheduleId;
  form.type = TypeOf(*row);
  form.accountId = row->accountId;
  form.accountToId = row->transferAccountId;
  if (!IsTransfer(form)) form.payee = row->payee;
  form.payment = row->payment;
  form.category = row->category;
  form.subCategory = row->subCategory;
  form.amount = std::fabs(row->amount);
  form.periodId = row->periodId;
  form.dateFrom = row->dateFrom;
  form.number = std::abs(row->noTimes);
  form.days = row->days;
  form.addToAccount = row->addToAccount;
  form.reference = row->reference;
  form.description = row->description;
  form.hasLines = row->hasLines;
  form.posted = row->posted;
  form.isFinished = row->isFinished;
  return form;
}

void ScheduleEditor::ChooseType(ScheduleForm& form, EntryType type) {
  const bool was = IsTransfer(form);
  form.type = type;
  if (!was && IsTransfer(form) && Trim(form.category).empty()) form.category = kTransferCategory;
  if (was && !IsTransfer(form) && EqualFolded(form.category, kTransferCategory)) {
    form.category.clear();
  }
}

void ScheduleEditor::ChoosePeriod(ScheduleForm& form, std::int64_t periodId) {
  form.periodId = periodId;
  const auto period = RowOf(ledger_.References().Periods(), &PeriodRecord::periodId, periodId);
  if (period && period->description == "Once") form.number = 1;
}

int ScheduleEditor::NumberOfPayments(std::string_view text, const Locale& locale) {
  const std::optional<double> number = locale.ParseNumber(text);
  if (!number || !std::isfinite(*number)) return 0;
  return static_cast<int>(std::lround(std::min(std::fabs(*number), kMostPayments)));
}

std::string ScheduleEditor::CurrencyOf(std::int64_t accountId) {
  return corvanta::CurrencyOf(ledger_, accountId);
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
  ScheduleRecord record;
  if (const auto stored = ledger_.Schedules().ReadSchedule(form.scheduleId)) record = *stored;
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

std::optional<Warning> ScheduleEditor::Check(const ScheduleForm& form) {
  const auto fails = [](const char* text, const char* field) {
    return Warning{kSaveWarning, text, field};
  };
  if (form.periodId == 0) return fails("You need to select a Frequency", "cmbPeriod");
  if (form.amount.value_or(0) == 0) {
    return fails(kInvalidAmount, "txtAmount");
  }
  if (form.type == EntryType::None) return fails("You need to select a Type", "cmbType");
  if (auto warning = CheckPayment(form.payment, true)) return warning;
  if (form.accountId == 0) {
    return fails("You need to select an Account / Transfer From", "cmbAccount");
  }
  if (!IsTransfer(form)) {
    if (auto warning = CheckPayee(form.payee, true)) return warning;
  }
  if (auto warning = CheckCategoryOf(ledger_, form, true)) return warning;
  if (IsTransfer(form) && form.accountToId == 0) {
    return fails("You need to select an Account / Transfer To", "cmbAccountTo");
  }
  if (IsTransfer(form) && form.accountToId == form.accountId) {
    return fails("You can not transfer to the the same Account", "cmbAccountTo");
  }
  if (form.amount.value_or(0) < 0) {
    return fails(kSignedAmount, "txtAmount");
  }
  if (auto warning = CheckSize(form.amount, kInvalidAmount)) return warning;
  if (auto warning = TextTooLong(ledger_, "tblSchedule",
                                 {{"Reference", Trim(form.reference), "txtReference"},
                                  {"Description", Trim(form.description), "txtDescription"}})) {
    return warning;
  }
  return CheckAccounts(form);
}

std::optional<Warning> ScheduleEditor::CheckAccounts(const ScheduleForm& form) {
  const char* title = form.scheduleId == 0 ? "Add Item" : "Amend Item";
  if (form.scheduleId != 0 && !ledger_.Schedules().ReadSchedule(form.scheduleId)) {
    return Warning{title, "This Item does not exist any more", {}};
  }
  if (auto warning = CheckOpenAccount(ledger_, form.accountId, title, "cmbAccount")) {
    return warning;
  }
  if (!IsTransfer(form)) return std::nullopt;
  return CheckOpenAccount(ledger_, form.accountToId, title, "cmbAccountTo");
}

bool ScheduleEditor::AskAll(const ScheduleForm& form) {
  declinedField_.clear();
  if (!AgreeToCategory(ledger_, platform_.prompts, form.category, form.subCategory,
                       SignOf(form.type))) {
    declinedField_ = "cmbCategory";
    return false;
  }
  if (IsTransfer(form) && !ledger_.Schedules().ScheduleLines(form.scheduleId).empty() &&
      !platform_.prompts.Ask("Transfer Item?",
                             "A transfer keeps no Allocated items. Do you wish to remove them?")) {
    declinedField_ = "cmbType";
    return false;
  }
  return true;
}

std::int64_t ScheduleEditor::Save(ScheduleForm form) {
  for (std::string* text : {&form.payee, &form.payment, &form.category, &form.subCategory,
                            &form.reference, &form.description}) {
    TrimText(*text);
  }
  TakeCategoryPath(ledger_, form);
  if (!AskAll(form)) return 0;
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.scheduleId == 0 ? "Add Schedule" : "Edit Schedule");
  Transaction all = ledger_.Store().Begin();
  ScheduleRecord record = RecordOf(form);
  const double typed = record.amount;
  ReverseLines(record);
  const std::int64_t key = ledger_.Schedules().SaveSchedule(record);
  all.Commit();
  TellOtherAmount(record, typed);
  return key;
}

ScheduleRecord ScheduleEditor::RecordOf(const ScheduleForm& form) {
  ScheduleRecord record;
  if (const auto stored = ledger_.Schedules().ReadSchedule(form.scheduleId)) record = *stored;
  const bool isOtherAccount = record.accountId != form.accountId;
  record.accountId = form.accountId;
  record.transferAccountId = IsTransfer(form) ? form.accountToId : 0;
  record.payeeId =
      ledger_.References().FindOrCreatePayee(IsTransfer(form) ? kTransferPayee : form.payee);
  record.paymentId = ledger_.References().FindOrCreatePayment(form.payment);
  record.categoryId = ledger_.Categories().FindOrCreateCategory(form.category, form.subCategory,
                                                                SignOf(form.type) > 0 ? 1 : -1);
  const double amount = SignOf(form.type) * form.amount.value_or(0) + 0.0;
  if (isOtherAccount || amount != record.amount) {
    record.amount = RoundToCurrency(amount, CurrencyOf(form.accountId));
  }
  record.reference = form.reference;
  record.description = form.description;
  record.addToAccount = form.addToAccount;
  FillPlan(form, record);
  return record;
}

// A finished schedule stays so as long as its plan does.
void ScheduleEditor::FillPlan(const ScheduleForm& form, ScheduleRecord& record) {
  const bool isAsBefore = record.scheduleId != 0 && record.periodId == form.periodId &&
                          record.dateFrom == form.dateFrom &&
                          std::abs(record.noTimes) == form.number &&
                          record.days.isMonthEnd == form.days.isMonthEnd;
  record.periodId = form.periodId;
  record.dateFrom = form.dateFrom;
  record.days = form.days;
  if (!isAsBefore) record.noTimes = form.number;
}

// An expense that becomes an income has lines that are incomes.
void ScheduleEditor::ReverseLines(const ScheduleRecord& record) {
  const auto stored = ledger_.Schedules().ReadSchedule(record.scheduleId);
  if (!stored || !stored->hasLines || stored->amount * record.amount >= 0) return;
  for (ScheduleRecord line : ledger_.Schedules().ScheduleLines(record.scheduleId)) {
    line.amount = -line.amount;
    ledger_.Schedules().SaveSchedule(line);
  }
}

void ScheduleEditor::TellOtherAmount(const ScheduleRecord& record, double typed) {
  const auto saved = ledger_.Schedules().ReadSchedule(record.scheduleId);
  if (!saved || !saved->hasLines || saved->amount == typed) return;
  platform_.prompts.Tell(kSaveWarning, "The Allocated items add up to " +
                                           platform_.locale.FormatNumber(std::fabs(saved->amount)) +
                                           ", which stays the Amount of this item");
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

std::optional<Warning> ScheduleEditor::CheckAllocate(const ScheduleForm& form) {
  if (IsTransfer(form)) {
    return Warning{kAllocateWarning, "Please select a Type (Not Transfer) to allocate an Item",
                   "cmbType"};
  }
  if (form.amount.value_or(0) == 0) {
    return Warning{kAllocateWarning, "Please select a valid value for Amount", "txtAmount"};
  }
  return std::nullopt;
}

}  // namespace corvanta
