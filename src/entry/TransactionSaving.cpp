// Writing what the editor of transactions has accepted.
#include "entry/EntryRules.h"
#include "entry/TransactionEditor.h"
#include "ledger/BulkEditor.h"
#include "ledger/CategoryBook.h"
#include "ledger/Money.h"
#include "ledger/RateSource.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ScheduleBook.h"
#include "ledger/TransactionBook.h"
#include "ledger/TransactionRecord.h"
#include "ledger/TransactionStatus.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

namespace corvanta {
namespace {

constexpr const char* kTransferPayee = "Transfer";

// The other half follows a change of the edited one where both were the same.
template <typename Field>
void Follow(Field& other, const Field& before, const Field& now) {
  if (other == before) other = now;
}

}  // namespace

bool TransactionEditor::AskAll(const TransactionForm& form) {
  declinedField_.clear();
  if (!AgreeToCategory(ledger_, platform_.prompts, form.category, form.subCategory,
                       SignOf(form.type))) {
    declinedField_ = "cmbCategory";
    return false;
  }
  if (form.IsTransfer() && !ledger_.Transactions().SplitLines(form.transactionId).empty() &&
      !platform_.prompts.Ask("Transfer Item?",
                             "A transfer keeps no Allocated items. Do you wish to remove them?")) {
    declinedField_ = "cmbType";
    return false;
  }
  return true;
}

bool TransactionEditor::IsConverted(const TransactionForm& form) {
  if (!form.IsTransfer()) return false;
  const std::string from = CurrencyOf(form.accountId);
  const std::string to = CurrencyOf(form.accountToId);
  return !from.empty() && !to.empty() && !EqualFolded(from, to);
}

std::optional<double> TransactionEditor::KnownArrival(const TransactionForm& form) {
  const std::string to = CurrencyOf(form.accountToId);
  const double former = form.arrival ? form.arrival->amountTo : 0;
  if (form.amountTo) return RoundChanged(*form.amountTo, former, to);
  const std::optional<Arrival>& known = form.arrival;
  if (!known || !EqualFolded(known->from, CurrencyOf(form.accountId)) ||
      !EqualFolded(known->to, to)) {
    return std::nullopt;
  }
  if (known->amount == form.amount) return known->amountTo;
  if (!IsConverted(form) || known->amount == 0) return std::nullopt;
  return RoundToCurrency(form.amount.value_or(0) * (known->amountTo / known->amount), to);
}

double TransactionEditor::AmountTo(const TransactionForm& form) {
  const double amount = form.amount.value_or(0);
  const std::optional<double> known = KnownArrival(form);
  const bool isSettled = form.amountTo || (form.arrival && form.arrival->amount == form.amount);
  if (known && isSettled) return *known;
  if (!IsConverted(form)) return RoundToCurrency(amount, CurrencyOf(form.accountId));
  const std::string to = CurrencyOf(form.accountToId);
  if (const auto rate = rates_.Rate(CurrencyOf(form.accountId), to)) {
    return RoundToCurrency(*rate * amount, to);
  }
  platform_.prompts.Tell("Download Currency", "Could not connect to website");
  return known.value_or(amount);
}

std::int64_t TransactionEditor::Save(TransactionForm form) {
  for (std::string* text : {&form.payee, &form.payment, &form.category, &form.subCategory,
                            &form.reference, &form.description}) {
    TrimText(*text);
  }
  TakeCategoryPath(ledger_, form);
  if (!AskAll(form)) return 0;
  const double amountTo = form.IsTransfer() ? AmountTo(form) : 0;
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.transactionId == 0 ? "Add Transaction" : "Edit Transaction");
  Transaction all = ledger_.Store().Begin();
  TransactionRecord record = RecordOf(form);
  if (form.IsTransfer()) {
    WriteTransfer(form, record, amountTo);
  } else {
    WriteOrdinary(form, record);
  }
  all.Commit();
  if (!form.IsTransfer()) TellOtherAmount(ledger_, platform_, record.transactionId, record.amount);
  return record.transactionId;
}

TransactionRecord TransactionEditor::RecordOf(const TransactionForm& form) {
  TransactionRecord record;
  if (const auto stored = ledger_.Transactions().ReadTransaction(form.transactionId))
    record = *stored;
  const bool isOtherAccount = record.accountId != form.accountId;
  record.accountId = form.accountId;
  record.payeeId =
      ledger_.References().FindOrCreatePayee(form.IsTransfer() ? kTransferPayee : form.payee);
  record.paymentId = ledger_.References().FindOrCreatePayment(form.payment);
  record.categoryId = ledger_.Categories().FindOrCreateCategory(form.category, form.subCategory,
                                                                SignOf(form.type) > 0 ? 1 : -1);
  const double amount = SignOf(form.type) * form.amount.value_or(0) + 0.0;
  // One that is not touched stays to its last digit.
  if (isOtherAccount || amount != record.amount) {
    record.amount = RoundToCurrency(amount, CurrencyOf(form.accountId));
  }
  record.date = form.date;
  record.reference = form.reference;
  record.description = form.description;
  // A row of an old file may say "reconciled" in its own way, which stays until it is changed.
  if (StatusFrom(record.status) != form.status) record.status = FlagsOf(form.status);
  return record;
}

void TransactionEditor::WriteOrdinary(const TransactionForm& form, TransactionRecord& record) {
  const std::int64_t formerTwin = record.transferId;
  record.transferId = 0;
  if (form.transactionId != 0) {
    const auto stored = ledger_.Transactions().ReadTransaction(form.transactionId);
    if (stored && stored->hasLines && stored->amount * record.amount < 0) {
      ledger_.BulkEdits().ReverseSign(form.transactionId);
    }
  }
  ledger_.Transactions().SaveTransaction(record);
  if (formerTwin == 0) return;
  // Of the two rows only the one that has the occurrence's date stands for it from now on.
  for (const std::int64_t key : {record.transactionId, formerTwin}) {
    const auto half = ledger_.Transactions().ReadTransaction(key);
    if (half && half->scheduleId != 0 && !half->scheduleDate)
      ledger_.Schedules().DetachFromSchedule(key);
  }
}

void TransactionEditor::WriteTransfer(const TransactionForm& form, TransactionRecord& record,
                                      double amountTo) {
  const auto stored = ledger_.Transactions().ReadTransaction(form.transactionId);
  const auto twin = stored && stored->transferId != 0
                        ? ledger_.Transactions().ReadTransaction(stored->transferId)
                        : std::nullopt;
  TransactionRecord other = record;
  if (twin) {
    other = *twin;
    Follow(other.paymentId, stored->paymentId, record.paymentId);
    Follow(other.categoryId, stored->categoryId, record.categoryId);
    Follow(other.date, stored->date, record.date);
    Follow(other.reference, stored->reference, record.reference);
    Follow(other.description, stored->description, record.description);
    other.payeeId = record.payeeId;
  } else {
    other.transactionId = 0;
    other.scheduleId = 0;
    other.scheduleDate.reset();
    // The statement that has confirmed an existing row has not seen the other account.
    if (stored) other.status = FlagsOf(TransactionStatus::Uncleared);
  }
  const bool isToHalf = twin && IsToHalf(*stored, *twin);
  TransactionRecord& from = isToHalf ? other : record;
  TransactionRecord& to = isToHalf ? record : other;
  from.accountId = form.accountId;
  from.amount = RoundChanged(SignOf(form.type) * form.amount.value_or(0), from.amount,
                             CurrencyOf(form.accountId));
  to.accountId = form.accountToId;
  to.amount = amountTo;
  ledger_.Transactions().SaveTransfer(from, to);
}

}  // namespace corvanta
