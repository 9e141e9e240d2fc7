#include "reference/BankEditor.h"

#include "ledger/ReferenceBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/UndoLog.h"

namespace corvanta {

std::optional<BankRecord> BankEditor::Load(std::int64_t key) {
  return RowOf(ledger_.References().Banks(), &BankRecord::bankId, key);
}

std::optional<Warning> BankEditor::Check(const BankRecord& form) {
  if (auto warning = Missing(form.bank, "You need to enter a Bank", "txtBank")) return warning;
  if (auto warning =
          NameTooLong(form.bank, "Bank must be less than 100 characters long", "txtBank"))
    return warning;
  if (auto warning = TextTooLong(ledger_, "tblBank",
                                 {{"Address", form.address, "txtAddress"},
                                  {"Postcode", form.postcode, "txtPostcode"},
                                  {"Telephone", form.telephone, "txtTelephone"},
                                  {"Account", form.account, "txtAccount"},
                                  {"Sortcode", form.sortcode, "txtSortcode"},
                                  {"Web", form.web, "txtWeb"},
                                  {"Description", form.description, "txtDescription"}})) {
    return warning;
  }
  const auto former = Load(form.bankId);
  // Rows of one name that came with an import stay open to other changes.
  if (former && EqualFolded(Trim(form.bank), former->bank)) return std::nullopt;
  return Duplicate(ledger_.References().OtherBank(form.bank, form.bankId) != 0,
                   "Bank already exists", "txtBank");
}

std::int64_t BankEditor::Save(BankRecord form) {
  TrimText(form.bank);
  TrimText(form.address);
  TrimText(form.postcode);
  TrimText(form.telephone);
  TrimText(form.account);
  TrimText(form.sortcode);
  TrimText(form.web);
  TrimText(form.description);
  const UndoLog::Step step = ledger_.Undo().Begin(form.bankId == 0 ? "Add Bank" : "Edit Bank");
  return ledger_.References().SaveBank(form);
}

Deletion BankEditor::Delete(std::int64_t key) {
  return AskDelete(prompts_) ? DeleteUnasked(key) : Deletion();
}

Deletion BankEditor::DeleteUnasked(std::int64_t key) {
  const auto row = Load(key);
  return DeletionOf(ledger_.References().DeleteBank(key), row ? row->bank : std::string());
}

}  // namespace corvanta
