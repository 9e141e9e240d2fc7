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
  int factor = type == EntryType::Income ? 1 : type == EntryType::Expense ? -1 : 0;
  if (type == EntryType::Transfer) factor = -1;
  return factor;
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
