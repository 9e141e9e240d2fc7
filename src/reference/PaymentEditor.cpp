#include "reference/PaymentEditor.h"

#include "ledger/ReferenceBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/UndoLog.h"

namespace corvanta {
namespace {
constexpr std::string_view kImport = "Import";
}

std::optional<PaymentRecord> PaymentEditor::Load(std::int64_t key) {
  return RowOf(ledger_.References().Payments(), &PaymentRecord::paymentId, key);
}

std::optional<Warning> PaymentEditor::Check(const PaymentRecord& form) {
  if (auto warning = Missing(form.payment, "You need to enter a Payment Type", "txtPayment"))
    return warning;
  if (auto warning = NameTooLong(form.payment, "Payment Type must be less than 100 characters long",
                                 "txtPayment"))
    return warning;
  if (auto warning = TextTooLong(ledger_, "tblPayments",
                                 {{"Description", form.description, "txtDescription"}})) {
    return warning;
  }
  const auto former = Load(form.paymentId);
  if (former) {
    if (auto warning =
            FixedName(kImport, former->payment, form.payment, "Payment Type", "txtPayment")) {
      return warning;
    }
  }
  // Rows of one name that came with an import stay open to other changes.
  if (former && EqualFolded(Trim(form.payment), former->payment)) return std::nullopt;
  return Duplicate(ledger_.References().OtherPayment(form.payment, form.paymentId) != 0,
                   "Payment type already exists", "txtPayment");
}

std::int64_t PaymentEditor::Save(PaymentRecord form) {
  TrimText(form.payment);
  TrimText(form.description);
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.paymentId == 0 ? "Add Payment Type" : "Edit Payment Type");
  return ledger_.References().SavePayment(form);
}

Deletion PaymentEditor::Delete(std::int64_t key) {
  return AskDelete(prompts_) ? DeleteUnasked(key) : Deletion();
}

Deletion PaymentEditor::DeleteUnasked(std::int64_t key) {
  const auto row = Load(key);
  return DeletionOf(ledger_.References().DeletePayment(key), row ? row->payment : std::string());
}

}  // namespace corvanta
