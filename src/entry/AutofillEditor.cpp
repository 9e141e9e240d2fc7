#include "entry/AutofillEditor.h"

#include "entry/EntryRules.h"
#include "entry/StoredTransaction.h"
#include "ledger/Money.h"
#include "ledger/accounts/CurrencyOf.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/TransactionBook.h"
#include "platform/ArithmeticText.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/UndoLog.h"

#include <cmath>

namespace corvanta::inline entry {

AutofillForm AutofillEditor::New(std::int64_t accountId) {
  AutofillForm form;
  form.accountId = accountId;
  form.date = platform_.clock.Today();
  form.type = EntryType::Expense;
  return form;
}

std::optional<AutofillForm> AutofillEditor::Load(std::int64_t key) {
  const auto row = ledger_.Transactions().ReadTransaction(key);
  if (!row || row->transferId != 0 || row->allocatedItem != 0 || row->action != 0) {
    return std::nullopt;
  }
  AutofillForm form;
  form.transactionId = row->transactionId;
  form.accountId = row->accountId;
  form.date = row->date;
  form.amount = std::fabs(row->amount);
  form.type = row->amount > 0 ? EntryType::Income : EntryType::Expense;
  form.payeeId = row->payeeId;
  form.categoryId = row->categoryId;
  return form;
}

std::int64_t AutofillEditor::ProposeCategory(std::int64_t accountId, std::int64_t payeeId) {
  if (payeeId == 0) return 0;
  const auto last = ledger_.Transactions().LastTransaction(accountId, payeeId);
  return last && last->transferId == 0 && last->action == 0 ? last->categoryId : 0;
}

std::optional<Warning> AutofillEditor::Check(const AutofillForm& form) {
  const auto fails = [](const char* text, const char* field) {
    return Warning{kSaveWarning, text, field};
  };
  if (form.amount.value_or(0) == 0) {
    return fails(kInvalidAmount, "txtAmount");
  }
  if (form.type != EntryType::Expense && form.type != EntryType::Income) {
    return fails("You need to select either Expense or Income.", "opType");
  }
  if (form.payeeId == 0) return fails("You need to select a Payee", "cmbPayee");
  if (form.categoryId == 0) {
    return fails("You need to select a Category/SubCategory", "cmbCategory");
  }
  if (*form.amount < 0) return fails(kSignedAmount, "txtAmount");
  if (*form.amount > kLargestAmount) return fails(kInvalidAmount, "txtAmount");
  const char* title = form.transactionId == 0 ? "Add Item" : kAmendItem;
  return CheckOpenAccount(ledger_, form.accountId, title, "");
}

std::int64_t AutofillEditor::Save(const AutofillForm& form) {
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.transactionId == 0 ? "Add Transaction" : "Edit Transaction");
  const auto stored = ledger_.Transactions().ReadTransaction(form.transactionId);
  const double amount =
      RoundChanged(SignOf(form.type) * form.amount.value_or(0), stored ? stored->amount : 0,
                   CurrencyOf(ledger_, form.accountId));
  const std::int64_t key = ledger_.Transactions().Autofill(
      {form.transactionId, form.accountId, form.payeeId, form.categoryId, amount, form.date});
  if (key == 0) {
    platform_.prompts.Tell(kSaveWarning, "Not enough information for Autofill Transactions");
    return 0;
  }
  if (stored && stored->hasLines) {
    TellOtherAmount(platform_, ledger_.Transactions().ReadTransaction(key)->amount, amount);
  }
  return key;
}

TransactionForm AutofillEditor::Details(const AutofillForm& form, const std::string& payee,
                                        const std::string& category) {
  const auto stored = ReadStored(ledger_, form.transactionId);
  TransactionForm details = stored ? FormOf(ledger_, *stored) : TransactionForm();
  details.accountId = form.accountId;
  details.date = form.date;
  details.amount = form.amount;
  details.type = form.type;
  const auto knownPayee = RowOf(ledger_.References().Payees(), &PayeeRecord::payeeId, form.payeeId);
  if (knownPayee || !payee.empty()) details.payee = knownPayee ? knownPayee->payee : payee;
  const auto known = ledger_.Categories().ReadCategory(form.categoryId);
  if (!known && category.empty()) return details;
  const CategoryName name =
      known ? CategoryName{known->category, known->subCategory} : CategoryOf(ledger_, category);
  details.category = name.category;
  details.subCategory = name.subCategory;
  return details;
}

}  // namespace corvanta::inline entry
