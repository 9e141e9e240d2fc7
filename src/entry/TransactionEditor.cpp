#include "entry/TransactionEditor.h"

#include "entry/EntryRules.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/ArithmeticText.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reference/Deletion.h"
#include "reference/Rules.h"

#include <cmath>
#include <utility>

namespace corvanta::inline entry {
namespace {

constexpr EntryRule kRules[] = {
    {[](const EntryForm& form) { return form.hasLines && HasNoAmount(form); },
     "You need to enter a valid Amount, as there are Allocated items", "txtAmount"},
    {[](const EntryForm& form) { return form.IsTransfer() && HasNoAmount(form); },
     "You need to enter a valid Amount, as this is a Transfer", "txtAmount"},
    kTypeNeeded,
    kPaymentNeeded,
    kPaymentFits,
    kAccountNeeded,
    kPayeeNeeded,
    kPayeeFits,
    kCategoryNeeded,
    kCategoryFits,
    kSubCategoryFits,
    kAccountToNeeded,
    {IsToItself, "You can not transfer to the same Account", "cmbAccountTo"},
    {[](const EntryForm& form) { return !form.amount; }, kInvalidAmount, "txtAmount"},
    kAmountUnsigned,
    kAmountFits,
};

std::optional<Warning> CheckRow(const StoredTransaction& stored) {
  if (stored.row.action != 0) {
    return Warning{
        kAmendItem, "This is an investment transaction, it is amended with its investment", {}};
  }
  if (!stored.IsClosed()) return std::nullopt;
  return Warning{kAmendItem, kAccountClosed, {}};
}

}  // namespace

const TransactionEditor::Stored& TransactionEditor::Read(std::int64_t key) {
  return stored_.Of(key, ledger_.Store(),
                    [this](std::int64_t wanted) { return ReadStored(ledger_, wanted); });
}

TransactionForm TransactionEditor::New(std::int64_t accountId) {
  TransactionForm form;
  form.type = EntryType::Expense;
  form.accountId = accountId;
  form.date = platform_.clock.Today();
  return form;
}

std::optional<TransactionForm> TransactionEditor::Load(std::int64_t key) {
  const Stored& stored = Read(key);
  if (!stored || stored->row.action != 0) return std::nullopt;
  if (stored->row.allocatedItem != 0) return Load(stored->row.allocatedItem);
  return FormOf(ledger_, *stored);
}

bool TransactionEditor::IsOfInvestment(std::int64_t key) {
  const Stored& stored = Read(key);
  return stored && stored->row.action != 0;
}

std::optional<Warning> TransactionEditor::CheckOpen(std::int64_t key) {
  const Stored& stored = Read(key);
  return stored ? CheckRow(*stored) : std::nullopt;
}

void TransactionEditor::ChooseType(TransactionForm& form, EntryType type) {
  const bool was = form.IsTransfer();
  corvanta::ChooseType(form, type);
  if (was == form.IsTransfer() || !form.isToHalf || form.accountToId == 0) return;
  std::swap(form.accountId, form.accountToId);
  // It goes on with what this half holds, and comes back to what it was.
  const std::optional<Arrival>& known = form.arrival;
  if (was && !form.amountTo && known && known->amount == form.amount) {
    form.amountTo = known->amountTo;
  }
  if (form.amountTo) std::swap(form.amount, form.amountTo);
  if (!was && known && known->amount == form.amount && known->amountTo == form.amountTo) {
    form.amountTo.reset();
  }
}

std::optional<Proposal> TransactionEditor::Propose(std::int64_t accountId,
                                                   const std::string& payee) {
  const std::int64_t payeeId = Trim(payee).empty() ? 0 : ledger_.References().OtherPayee(payee, 0);
  if (accountId == 0 || payeeId == 0) return std::nullopt;
  const auto last = ledger_.Transactions().LastTransaction(accountId, payeeId);
  if (!last || last->transferId != 0 || last->action != 0) return std::nullopt;
  const auto row = ledger_.Transactions().ReadTransaction(last->transactionId);
  return Proposal{TypeOf(false, row->amount), row->payment, row->category, row->subCategory,
                  std::fabs(row->amount)};
}

std::optional<Warning> TransactionEditor::Check(TransactionForm form) {
  const Stored& stored = Read(form.transactionId);
  Settle(ledger_, form);
  form.hasLines = stored && stored->row.hasLines;
  if (auto warning = FirstBroken(kRules, form)) return warning;
  if (auto warning = CheckArrival(form)) return warning;
  if (auto warning = CheckTexts(ledger_, "tblTransactions", form)) return warning;
  const bool isNew = form.transactionId == 0;
  if (!isNew && !stored) return Gone();
  if (stored) {
    if (auto warning = CheckRow(*stored)) return warning;
  }
  return CheckAccounts(form, isNew);
}

std::optional<Warning> TransactionEditor::CheckArrival(const TransactionForm& form) {
  if (!form.IsTransfer() || !form.amountTo) return std::nullopt;
  constexpr const char* kField = "txtAmountTo";
  if (*form.amountTo < 0) return Warning{kSaveWarning, kSignedAmount, kField};
  if (*form.amountTo == 0 || *form.amountTo > kLargestAmount) {
    return Warning{kSaveWarning, kInvalidAmount, kField};
  }
  if (IsConverted(form) || form.amountTo == form.amount) return std::nullopt;
  return Warning{kSaveWarning,
                 "Both accounts are in one currency: what arrives is the Amount itself", kField};
}

bool TransactionEditor::Delete(std::int64_t key) {
  if (const auto warning = CheckOpen(key)) {
    platform_.prompts.Tell(warning->title, warning->text);
    return false;
  }
  if (!AskDelete(platform_.prompts)) return false;
  ledger_.Transactions().DeleteTransaction(key);
  return true;
}

}  // namespace corvanta::inline entry
