#include "entry/EntryEditor.h"

#include "entry/EntryRules.h"
#include "ledger/Money.h"
#include "ledger/accounts/CurrencyOf.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace corvanta::inline entry {
namespace {

constexpr const char* kTransferPayee = "Transfer";
constexpr const char* kAllocateWarning = "Allocate Item Warning";

}  // namespace

std::string EntryEditor::CurrencyOf(std::int64_t accountId) {
  return corvanta::CurrencyOf(ledger_, accountId);
}

std::optional<Warning> EntryEditor::CheckAllocate(const EntryForm& form) {
  if (form.type == EntryType::None || form.IsTransfer()) {
    return Warning{kAllocateWarning, "Please select a Type (Not Transfer) to allocate an Item",
                   "cmbType"};
  }
  if (!HasNoAmount(form)) return std::nullopt;
  return Warning{kAllocateWarning, "Please select a valid value for Amount", "txtAmount"};
}

std::optional<Warning> EntryEditor::CheckAccounts(const EntryForm& form, bool isNew) {
  const char* title = isNew ? "Add Item" : kAmendItem;
  if (auto warning = CheckOpenAccount(ledger_, form.accountId, title, "cmbAccount")) {
    return warning;
  }
  if (!form.IsTransfer()) return std::nullopt;
  return CheckOpenAccount(ledger_, form.accountToId, title, "cmbAccountTo");
}

Warning EntryEditor::Gone() {
  return {kAmendItem, "This Item does not exist any more", {}};
}

bool EntryEditor::AgreeTo(const EntryForm& form) {
  Prompts& prompts = platform_.prompts;
  declinedField_.clear();
  if (!AgreeToCategory(ledger_, prompts, form.category, form.subCategory, SignOf(form.type))) {
    declinedField_ = "cmbCategory";
  } else if (form.IsTransfer() && form.hasLines &&
             !prompts.Ask("Transfer Item?",
                          "A transfer keeps no Allocated items. Do you wish to remove them?")) {
    declinedField_ = "cmbType";
  }
  return declinedField_.empty();
}

template <typename Record>
void EntryEditor::Fill(const EntryForm& form, Record& record) {
  const bool isOtherAccount = record.accountId != form.accountId;
  record.accountId = form.accountId;
  record.payeeId =
      ledger_.References().FindOrCreatePayee(form.IsTransfer() ? kTransferPayee : form.payee);
  record.paymentId = ledger_.References().FindOrCreatePayment(form.payment);
  record.categoryId = ledger_.Categories().FindOrCreateCategory(form.category, form.subCategory,
                                                                SignOf(form.type) > 0 ? 1 : -1);
  const double amount = form.SignedAmount();
  // One that is not touched stays to its last digit.
  if (isOtherAccount || amount != record.amount) {
    record.amount = RoundToCurrency(amount, CurrencyOf(form.accountId));
  }
  record.reference = form.reference;
  record.description = form.description;
}

template void EntryEditor::Fill(const EntryForm& form, TransactionRecord& record);
template void EntryEditor::Fill(const EntryForm& form, ScheduleRecord& record);

}  // namespace corvanta::inline entry
