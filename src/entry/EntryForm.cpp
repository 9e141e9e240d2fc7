#include "entry/EntryForm.h"

#include "platform/TextCase.h"

namespace corvanta::inline entry {
namespace {

constexpr const char* kTransferCategory = "Credit";

}  // namespace

const char* TextOf(EntryType type) {
  switch (type) {
    case EntryType::Expense:
      return "Expense";
    case EntryType::Income:
      return "Income";
    case EntryType::Transfer:
      return "Transfer";
    case EntryType::None:
      break;
  }
  return "";
}

int SignOf(EntryType type) {
  if (type == EntryType::None) return 0;
  return type == EntryType::Income ? 1 : -1;
}

EntryType TypeOf(bool isTransfer, double amount) {
  if (isTransfer) return EntryType::Transfer;
  return amount > 0 ? EntryType::Income : EntryType::Expense;
}

void ChooseType(EntryForm& form, EntryType type) {
  const bool was = form.IsTransfer();
  form.type = type;
  if (!was && form.IsTransfer() && Trim(form.category).empty()) form.category = kTransferCategory;
  if (was && !form.IsTransfer() && EqualFolded(form.category, kTransferCategory)) {
    form.category.clear();
  }
}

}  // namespace corvanta::inline entry
