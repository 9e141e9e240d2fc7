#include "entry/MultiEditor.h"

#include "entry/EntryForm.h"
#include "entry/EntryRules.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/BulkEditor.h"
#include "ledger/transactions/TransactionBook.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/StatusWords.h"
#include "reference/Deletion.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline entry {
namespace {

constexpr const char* kUpdating = "Please wait updating records...";

constexpr EntryRule kRules[] = {
    kPaymentFits,
    kPayeeFits,
    kCategoryFits,
    kSubCategoryFits,
    {[](const EntryForm& form) { return form.category.empty() && !form.subCategory.empty(); },
     kCategoryNeeded.text, kCategoryNeeded.field},
};

// The names as rules see them.
EntryForm NamesOf(clsCorvanta& ledger, const MultiEditForm& form) {
  EntryForm names;
  names.payment = form.payment;
  names.payee = form.payee;
  names.category = form.category;
  names.subCategory = form.subCategory;
  Settle(ledger, names);
  return names;
}

}  // namespace

std::optional<Warning> MultiEditor::Check(const MultiEditForm& form, Keys keys) {
  const EntryForm names = NamesOf(ledger_, form);
  const bool namesNothing = names.payment.empty() && names.payee.empty() && names.category.empty();
  if (form.type == TypeChange::None && form.accountId == 0 && namesNothing) {
    return Warning{kSaveWarning,
                   "You need to select at least one from Type, Payment Type, Account, Payee or "
                   "Category",
                   "cmbType"};
  }
  if (auto warning = FirstBroken(kRules, names)) return warning;
  if (ledger_.Transactions().ReachesClosedAccount(keys)) {
    return Warning{kAmendItem, kAccountClosed, {}};
  }
  return CheckOpenAccount(ledger_, form.accountId, kAmendItem, "cmbAccount");
}

std::optional<std::size_t> MultiEditor::Save(const MultiEditForm& form, Keys keys) {
  const EntryForm names = NamesOf(ledger_, form);
  const int kind = form.type == TypeChange::Income ? 1 : -1;
  if (!names.category.empty() &&
      !AgreeToCategory(ledger_, platform_.prompts, names.category, names.subCategory, kind)) {
    return std::nullopt;
  }
  const StatusWords words(platform_.progress, kUpdating);
  const UndoLog::Step step = ledger_.Undo().Begin("Edit Transactions");
  // The names that are new come with the rows or not at all.
  Transaction all = ledger_.Store().Begin();
  BulkChange change;
  change.accountId = form.accountId;
  change.status = form.status;
  change.type = form.type;
  change.paymentId = ledger_.References().FindOrCreatePayment(names.payment);
  change.payeeId = ledger_.References().FindOrCreatePayee(names.payee);
  change.categoryId =
      ledger_.Categories().FindOrCreateCategory(names.category, names.subCategory, kind);
  const std::optional<std::size_t> changed = ledger_.BulkEdits().BulkEdit(keys, change);
  if (changed) all.Commit();
  return changed;
}

bool MultiEditor::Delete(Keys keys) {
  Prompts& prompts = platform_.prompts;
  if (keys.empty()) {
    prompts.Tell("Delete Item", "No items available");
    return false;
  }
  if (ledger_.Transactions().ReachesClosedAccount(keys)) {
    prompts.Tell(kAmendItem, kAccountClosed);
    return false;
  }
  if (!AskDeleteItems(prompts, keys.size())) return false;
  const StatusWords words(platform_.progress, kUpdating);
  return ledger_.Transactions().DeleteTransactions(keys);
}

}  // namespace corvanta::inline entry
