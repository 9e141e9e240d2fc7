#include "reference/AccountTypeEditor.h"

#include "ledger/ReferenceBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/UndoLog.h"

namespace corvanta {

std::optional<AccountGroupRecord> AccountTypeEditor::Load(std::int64_t key) {
  return RowOf(ledger_.References().AccountGroups(), &AccountGroupRecord::accountTypeId, key);
}

std::optional<Warning> AccountTypeEditor::Check(const AccountGroupRecord& form) {
  if (auto warning =
          Missing(form.accountType, "You need to enter an Account Group", "txtAccountType")) {
    return warning;
  }
  if (auto warning =
          NameTooLong(form.accountType, "Account Group must be less than 100 characters long",
                      "txtAccountType")) {
    return warning;
  }
  if (auto warning = TextTooLong(ledger_, "tblAccountType",
                                 {{"Description", form.description, "txtDescription"}})) {
    return warning;
  }
  return Duplicate(
      ledger_.References().OtherAccountGroup(form.accountType, form.accountTypeId) != 0,
      "Account group already exists", "txtAccountType");
}

std::int64_t AccountTypeEditor::Save(AccountGroupRecord form) {
  TrimText(form.accountType);
  TrimText(form.description);
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.accountTypeId == 0 ? "Add Account Group" : "Edit Account Group");
  return ledger_.References().SaveAccountGroup(form);
}

Deletion AccountTypeEditor::Delete(std::int64_t key) {
  return AskDelete(prompts_) ? DeleteUnasked(key) : Deletion();
}

Deletion AccountTypeEditor::DeleteUnasked(std::int64_t key) {
  const auto row = Load(key);
  return DeletionOf(ledger_.References().DeleteAccountGroup(key),
                    row ? row->accountType : std::string());
}

}  // namespace corvanta
