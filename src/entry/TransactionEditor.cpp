#include "entry/TransactionEditor.h"

#include "entry/EntryRules.h"
#include "ledger/CurrencyOf.h"
#include "ledger/ReferenceBook.h"
#include "ledger/TransactionBook.h"
#include "ledger/TransactionRecord.h"
#include "ledger/TransactionStatus.h"
#include "ledger/clsCorvanta.h"
#include "platform/ArithmeticText.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reference/Deletion.h"
#include "reference/Rules.h"

#include <cmath>
#include <utility>

namespace corvanta {
namespace {

constexpr const char* kTransferCategory = "Credit";
constexpr const char* kAllocateWarning = "Allocate Item Warning";

const char* TitleOf(const TransactionForm& form) {
  return form.transactionId == 0 ? "Add Item" : "Amend Item";
}

EntryType TypeOf(const TransactionRecord& row) {
  if (row.transferId != 0) return EntryType::Transfer;
  return row.amount > 0 ? EntryType::Income : EntryType::Expense;
}

void FillTransfer(TransactionForm& form, const TransactionDetails& row,
                  const TransactionDetails& other) {
  form.isToHalf = TransactionEditor::IsToHalf(row, other);
  const TransactionDetails& from = form.isToHalf ? other : row;
  const TransactionDetails& to = form.isToHalf ? row : other;
  form.accountId = from.accountId;
  form.accountToId = to.accountId;
  form.amount = std::fabs(from.amount);
  // It was settled when the transfer was entered.
  form.arrival = Arrival{std::fabs(from.amount), std::fabs(to.amount), from.currency, to.currency};
}

}  // namespace

std::optional<TransactionForm> LoadTransaction(clsCorvanta& ledger, std::int64_t key) {
  const auto row = ledger.Transactions().ReadTransaction(key);
  if (!row || row->action != 0) return std::nullopt;
  if (row->allocatedItem != 0) return LoadTransaction(ledger, row->allocatedItem);
  TransactionForm form;
  form.transactionId = row->transactionId;
  form.type = TypeOf(*row);
  form.accountId = row->accountId;
  if (!form.IsTransfer()) form.payee = row->payee;
  form.payment = row->payment;
  form.category = row->category;
  form.subCategory = row->subCategory;
  form.amount = std::fabs(row->amount);
  form.date = row->date;
  form.reference = row->reference;
  form.description = row->description;
  form.status = StatusFrom(row->status);
  form.hasLines = row->hasLines;
  if (row->hasLines) form.lines = ledger.Transactions().SplitLines(row->transactionId).size();
  form.transferId = row->transferId;
  form.scheduleId = row->scheduleId;
  if (row->transferId != 0) {
    if (const auto other = ledger.Transactions().ReadTransaction(row->transferId)) {
      FillTransfer(form, *row, *other);
    }
  }
  return form;
}

bool TransactionEditor::IsToHalf(const TransactionRecord& row, const TransactionRecord& other) {
  return row.amount > 0 || (row.amount == 0 && other.amount < 0);
}

TransactionForm TransactionEditor::New(std::int64_t accountId) {
  TransactionForm form;
  form.type = EntryType::Expense;
  form.accountId = accountId;
  form.date = platform_.clock.Today();
  return form;
}

std::optional<Warning> TransactionEditor::CheckOpen(std::int64_t key) {
  const auto row = ledger_.Transactions().ReadTransaction(key);
  if (!row) return std::nullopt;
  if (row->action != 0) {
    return Warning{
        "Amend Item", "This is an investment transaction, it is amended with its investment", {}};
  }
  if (!ledger_.Transactions().ReachesClosedAccount({{key}})) return std::nullopt;
  return Warning{"Amend Item", kAccountClosed, {}};
}

void TransactionEditor::ChooseType(TransactionForm& form, EntryType type) {
  const bool was = form.IsTransfer();
  form.type = type;
  if (was == form.IsTransfer()) return;
  if (!was && Trim(form.category).empty()) form.category = kTransferCategory;
  if (was && EqualFolded(form.category, kTransferCategory)) form.category.clear();
  if (!form.isToHalf || form.accountToId == 0) return;
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
  return Proposal{TypeOf(*row), row->payment, row->category, row->subCategory,
                  std::fabs(row->amount)};
}

std::string TransactionEditor::CurrencyOf(std::int64_t accountId) {
  return corvanta::CurrencyOf(ledger_, accountId);
}

std::optional<Warning> TransactionEditor::Check(const TransactionForm& form) {
  const double amount = form.amount.value_or(0);
  const auto stored = ledger_.Transactions().ReadTransaction(form.transactionId);
  const auto fails = [](const char* text, const char* field) {
    return Warning{kSaveWarning, text, field};
  };
  if (stored && stored->hasLines && amount == 0) {
    return fails("You need to enter a valid Amount, as there are Allocated items", "txtAmount");
  }
  if (form.IsTransfer() && amount == 0) {
    return fails("You need to enter a valid Amount, as this is a Transfer", "txtAmount");
  }
  if (form.type == EntryType::None) return fails("You need to select a Type", "cmbType");
  if (auto warning = CheckPayment(form.payment, true)) return warning;
  if (form.accountId == 0) {
    return fails("You need to select an Account / Transfer From", "cmbAccount");
  }
  if (!form.IsTransfer()) {
    if (auto warning = CheckPayee(form.payee, true)) return warning;
  }
  if (auto warning = CheckCategoryOf(ledger_, form, true)) return warning;
  if (form.IsTransfer() && form.accountToId == 0) {
    return fails("You need to select an Account / Transfer To", "cmbAccountTo");
  }
  if (form.IsTransfer() && form.accountToId == form.accountId) {
    return fails("You can not transfer to the same Account", "cmbAccountTo");
  }
  if (!form.amount) return fails(kInvalidAmount, "txtAmount");
  if (amount < 0) {
    return fails(kSignedAmount, "txtAmount");
  }
  if (auto warning = CheckSize(amount, kInvalidAmount)) return warning;
  if (auto warning = CheckArrival(form)) return warning;
  if (auto warning = CheckTexts(ledger_, form.reference, form.description)) return warning;
  return CheckAccounts(form, stored.has_value());
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

std::optional<Warning> TransactionEditor::CheckAccounts(const TransactionForm& form, bool isThere) {
  if (form.transactionId != 0) {
    if (!isThere) return Warning{"Amend Item", "This Item does not exist any more", {}};
    if (auto warning = CheckOpen(form.transactionId)) return warning;
  }
  if (auto warning = CheckOpenAccount(ledger_, form.accountId, TitleOf(form), "cmbAccount")) {
    return warning;
  }
  if (!form.IsTransfer()) return std::nullopt;
  return CheckOpenAccount(ledger_, form.accountToId, TitleOf(form), "cmbAccountTo");
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

std::optional<Warning> TransactionEditor::CheckAllocate(const TransactionForm& form) {
  if (form.type == EntryType::None || form.IsTransfer()) {
    return Warning{kAllocateWarning, "Please select a Type (Not Transfer) to allocate an Item",
                   "cmbType"};
  }
  if (form.amount.value_or(0) == 0) {
    return Warning{kAllocateWarning, "Please select a valid value for Amount", "txtAmount"};
  }
  return std::nullopt;
}

}  // namespace corvanta
