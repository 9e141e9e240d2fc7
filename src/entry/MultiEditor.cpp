#include "entry/MultiEditor.h"

#include "entry/EntryRules.h"
#include "ledger/BulkEditor.h"
#include "ledger/CategoryBook.h"
#include "ledger/ReferenceBook.h"
#include "ledger/TransactionBook.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/StatusWords.h"
#include "platform/TextCase.h"
#include "reference/Deletion.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta {
namespace {

constexpr const char* kAmendItem = "Amend Item";
constexpr const char* kUpdating = "Please wait updating records...";

bool IsEmpty(const std::string& text) {
  return Trim(text).empty();
}

bool ChangesNothing(const MultiEditForm& form, const CategoryName& name) {
  return form.type == TypeChange::None && form.accountId == 0 && IsEmpty(form.payment) &&
         IsEmpty(form.payee) && IsEmpty(name.category);
}

// Whether a closed account holds one of them.
bool AreClosed(clsCorvanta& ledger, Keys keys) {
  std::string list;
  for (const std::int64_t key : keys) list += (list.empty() ? "" : ",") + SqlNumber(key);
  return ledger.Store()
             .QueryValue(
                 "Select Count(*) from tblTransactions T INNER JOIN tblAccounts A ON "
                 "T.AccountID = A.AccountID WHERE A.CloseAccount <> 0 AND "
                 "T.TransactionID IN (" +
                 list + ")")
             .Int() > 0;
}

}  // namespace

std::optional<Warning> MultiEditor::Check(const MultiEditForm& form, Keys keys) {
  const CategoryName name = CategoryOf(ledger_, form.category, form.subCategory);
  if (ChangesNothing(form, name)) {
    return Warning{kSaveWarning,
                   "You need to select at least one from Type, Payment Type, Account, Payee or "
                   "Category",
                   "cmbType"};
  }
  if (auto warning = CheckPayment(form.payment, false)) return warning;
  if (auto warning = CheckPayee(form.payee, false)) return warning;
  if (auto warning = CheckCategory(name, false)) return warning;
  if (!IsEmpty(name.subCategory)) {
    if (auto warning = CheckCategory(name, true)) return warning;
  }
  if (AreClosed(ledger_, keys)) return Warning{kAmendItem, kAccountClosed, {}};
  return CheckOpenAccount(ledger_, form.accountId, kAmendItem, "cmbAccount");
}

std::optional<std::size_t> MultiEditor::Save(MultiEditForm form, Keys keys) {
  TrimText(form.category);
  TrimText(form.subCategory);
  TakeCategoryPath(ledger_, form);
  const int kind = form.type == TypeChange::Income ? 1 : -1;
  if (!form.category.empty() &&
      !AgreeToCategory(ledger_, platform_.prompts, form.category, form.subCategory, kind)) {
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
  change.paymentId = ledger_.References().FindOrCreatePayment(form.payment);
  change.payeeId = ledger_.References().FindOrCreatePayee(form.payee);
  change.categoryId =
      ledger_.Categories().FindOrCreateCategory(form.category, form.subCategory, kind);
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

}  // namespace corvanta
