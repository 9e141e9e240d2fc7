#include "entry/TransactionForm.h"

namespace corvanta {

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

}  // namespace corvanta
