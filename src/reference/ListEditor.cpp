#include "reference/ListEditor.h"

#include "ledger/KeywordBook.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "ledger/clsCorvanta.h"
#include "reference/AccountTypeEditor.h"
#include "reference/BankEditor.h"
#include "reference/KeywordEditor.h"
#include "reference/PaymentEditor.h"

namespace corvanta {
namespace {
constexpr const char* kKeptWhenUsed =
    " If this item is being used by existing Transactions, then this item will not be deleted.";
}

std::string ListEditor::Caption() const {
  switch (kind_) {
    case ListKind::Payment:
      return "Payments";
    case ListKind::Bank:
      return "Banks";
    case ListKind::AccountType:
      return "Account Groups";
    case ListKind::Keywords:
      break;
  }
  return "Transaction Keywords";
}

std::vector<ListItem> ListEditor::Items() {
  std::vector<ListItem> items;
  switch (kind_) {
    case ListKind::Payment:
      for (const PaymentRecord& row : ledger_.References().Payments()) {
        items.push_back({row.paymentId, row.payment, row.description});
      }
      break;
    case ListKind::Bank:
      for (const BankRecord& row : ledger_.References().Banks()) {
        items.push_back({row.bankId, row.bank, row.description});
      }
      break;
    case ListKind::AccountType:
      for (const AccountGroupRecord& row : ledger_.References().AccountGroups()) {
        items.push_back({row.accountTypeId, row.accountType, row.description});
      }
      break;
    case ListKind::Keywords:
      for (const KeywordRecord& row : ledger_.Notes().Keywords()) {
        items.push_back({row.keywordId, row.keyword, {}});
      }
      break;
  }
  return items;
}

Deletion ListEditor::Delete(std::int64_t key) {
  if (!AskDelete(prompts_, kKeptWhenUsed)) return {};
  switch (kind_) {
    case ListKind::Payment:
      return PaymentEditor(ledger_, prompts_).DeleteUnasked(key);
    case ListKind::Bank:
      return BankEditor(ledger_, prompts_).DeleteUnasked(key);
    case ListKind::AccountType:
      return AccountTypeEditor(ledger_, prompts_).DeleteUnasked(key);
    case ListKind::Keywords:
      break;
  }
  return KeywordEditor(ledger_, prompts_).DeleteUnasked(key);
}

}  // namespace corvanta
