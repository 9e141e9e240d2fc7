// Writing what the editor of transactions has accepted.
#include "entry/EntryRules.h"
#include "entry/TransactionEditor.h"
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/RateSource.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/transactions/BulkEditor.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline entry {
namespace {

// The other half follows a change of the edited one where both were the same.
template <typename Field>
void Follow(Field& other, const Field& before, const Field& now) {
  if (other == before) other = now;
}

// The half that is not edited, as far as the edited one says.
TransactionRecord OtherHalf(const std::optional<StoredTransaction>& stored,
                            const TransactionRecord& record) {
  if (stored && stored->other) {
    TransactionRecord other = *stored->other;
    const TransactionRecord& before = stored->row;
    Follow(other.paymentId, before.paymentId, record.paymentId);
    Follow(other.categoryId, before.categoryId, record.categoryId);
    Follow(other.date, before.date, record.date);
    Follow(other.reference, before.reference, record.reference);
    Follow(other.description, before.description, record.description);
    other.payeeId = record.payeeId;
    return other;
  }
  TransactionRecord other = record;
  other.transactionId = 0;
  other.scheduleId = 0;
  other.scheduleDate.reset();
  // The statement that has confirmed an existing row has not seen the other account.
  if (stored) other.status = FlagsOf(TransactionStatus::Uncleared);
  return other;
}

}  // namespace

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
  // What was rounded to nothing says nothing of the rate.
  if (!IsConverted(form) || known->amount == 0 || known->amountTo == 0) return std::nullopt;
  return RoundToCurrency(form.amount.value_or(0) * (known->amountTo / known->amount), to);
}

double TransactionEditor::AmountTo(const TransactionForm& form) {
  if (!form.IsTransfer()) return 0;
  const double amount = form.amount.value_or(0);
  const std::optional<double> known = KnownArrival(form);
  const bool isSettled = form.amountTo || (form.arrival && form.arrival->amount == form.amount);
  if (known && isSettled) return *known;
  if (!IsConverted(form)) return RoundToCurrency(amount, CurrencyOf(form.accountId));
  const std::string to = CurrencyOf(form.accountToId);
  const auto answer = rates_.Rate(CurrencyOf(form.accountId), to);
  // The rate that the transfer had is nearer than one of another day.
  if (answer && !(answer->day && known)) {
    if (!answer->notice.empty()) platform_.prompts.Tell("Download Currency", answer->notice);
    return RoundToCurrency(answer->rate * amount, to);
  }
  platform_.prompts.Tell("Download Currency",
                         !rates_.WasStopped() ? "Could not connect to website"
                         : known              ? "Stopped. The rate that the transfer had was used."
                                              : "Stopped. The amount arrives unconverted.");
  return known.value_or(amount);
}

std::int64_t TransactionEditor::Save(TransactionForm form) {
  const Stored stored = Read(form.transactionId);
  Settle(ledger_, form);
  form.hasLines = stored && stored->row.hasLines;
  if (!AgreeTo(form)) return 0;
  const double amountTo = AmountTo(form);
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.transactionId == 0 ? "Add Transaction" : "Edit Transaction");
  Transaction all = ledger_.Store().Begin();
  TransactionRecord record;
  if (stored) record = stored->row;
  Fill(form, record);
  record.date = form.date;
  // A row of an old file may say "reconciled" in its own way, which stays until it is changed.
  if (StatusFrom(record.status) != form.status) record.status = FlagsOf(form.status);
  if (form.IsTransfer()) {
    WriteTransfer(form, stored, record, amountTo);
  } else {
    WriteOrdinary(form, stored, record);
  }
  all.Commit();
  if (form.hasLines && !form.IsTransfer()) {
    TellOtherAmount(platform_, Read(record.transactionId)->row.amount, record.amount);
  }
  return record.transactionId;
}

void TransactionEditor::WriteOrdinary(const TransactionForm& form, const Stored& stored,
                                      TransactionRecord& record) {
  record.transferId = 0;
  if (form.hasLines && stored->row.amount * record.amount < 0) {
    ledger_.BulkEdits().ReverseSign(form.transactionId);
  }
  ledger_.Transactions().SaveTransaction(record);
  if (!stored || stored->row.transferId == 0) return;
  // Of the two rows only the one that has the occurrence's date stands for it from now on.
  const auto settle = [this](const TransactionRecord& half) {
    if (half.scheduleId != 0 && !half.scheduleDate) {
      ledger_.Schedules().DetachFromSchedule(half.transactionId);
    }
  };
  settle(stored->row);
  if (stored->other) settle(*stored->other);
}

void TransactionEditor::WriteTransfer(const TransactionForm& form, const Stored& stored,
                                      TransactionRecord& record, double amountTo) {
  TransactionRecord other = OtherHalf(stored, record);
  const bool isToHalf = stored && stored->IsToHalf();
  TransactionRecord& from = isToHalf ? other : record;
  TransactionRecord& to = isToHalf ? record : other;
  from.accountId = form.accountId;
  from.amount = RoundChanged(form.SignedAmount(), from.amount, CurrencyOf(form.accountId));
  to.accountId = form.accountToId;
  to.amount = amountTo;
  ledger_.Transactions().SaveTransfer(from, to);
}

}  // namespace corvanta::inline entry
