#include "reference/PayeeEditor.h"

#include "ledger/ReferenceBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/UndoLog.h"

namespace corvanta {

std::optional<PayeeRecord> PayeeEditor::Load(std::int64_t key) {
  return RowOf(ledger_.References().Payees(), &PayeeRecord::payeeId, key);
}

std::optional<Warning> PayeeEditor::Check(const PayeeRecord& form) {
  if (auto warning = Missing(form.payee, "You need to enter a Payee", "txtPayee")) return warning;
  if (auto warning =
          NameTooLong(form.payee, "Payee must be less than 100 characters long", "txtPayee"))
    return warning;
  if (auto warning = TextTooLong(ledger_, "tblPayees",
                                 {{"Description", form.description, "txtDescription"}})) {
    return warning;
  }
  const auto former = Load(form.payeeId);
  // Rows of one name that came with an import stay open to other changes.
  if (former && EqualFolded(Trim(form.payee), former->payee)) return std::nullopt;
  return Duplicate(ledger_.References().OtherPayee(form.payee, form.payeeId) != 0,
                   "Payee already exists", "txtPayee");
}

std::int64_t PayeeEditor::Save(PayeeRecord form) {
  TrimText(form.payee);
  TrimText(form.description);
  const UndoLog::Step step = ledger_.Undo().Begin(form.payeeId == 0 ? "Add Payee" : "Edit Payee");
  return ledger_.References().SavePayee(form);
}

Deletion PayeeEditor::Delete(std::int64_t key) {
  if (!AskDelete(prompts_)) return {};
  const auto row = Load(key);
  return DeletionOf(ledger_.References().DeletePayee(key), row ? row->payee : std::string());
}

}  // namespace corvanta
